// SPDX-License-Identifier: GPL-3.0-or-later
// Holds the windows of the program while a command is at work and events run.
#include "platform/dialogs/frmHold.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWindow>

#include <utility>

namespace ob {

namespace {

bool IsInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

} // namespace

frmHold::frmHold(std::function<void()> escape) : onEscape(std::move(escape))
{
    qApp->installEventFilter(this);
}

frmHold::~frmHold()
{
    qApp->removeEventFilter(this);
}

bool frmHold::IsExcepted(QObject* watched) const
{
    if (excepted == nullptr)
        return false;
    const auto* widget = qobject_cast<QWidget*>(watched);
    return widget != nullptr ? widget->window() == excepted : watched == excepted->windowHandle();
}

bool frmHold::eventFilter(QObject* watched, QEvent* event)
{
    if (!IsInput(event->type()))
        return false;
    // A window may have a shortcut of its own for Escape, which takes the key before it becomes a press.
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (isKey && onEscape && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        onEscape();
        return true;
    }
    if (IsExcepted(watched))
        return false;
    // An event that only windows get has to be refused, or it counts as done.
    if (event->type() == QEvent::Close)
        event->ignore();
    return true;
}

} // namespace ob
