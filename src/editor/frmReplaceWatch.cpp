// SPDX-License-Identifier: GPL-3.0-or-later
// The windows during a long replacement.
#include "editor/frmReplaceWatch.h"

#include "shell/state/frmTool.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QProgressDialog>
#include <QWindow>

namespace ob {

namespace {

// In milliseconds: how often the event loop runs, and when the box appears.
constexpr qint64 turnEvery = 50;
constexpr qint64 boxAfter = 1000;

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

frmReplaceWatch::frmReplaceWatch(QWidget* text) : still(text)
{
    if (still != nullptr)
        still->setUpdatesEnabled(false);
    qApp->installEventFilter(this);
    sinceStart.start();
    sinceTurn.start();
}

frmReplaceWatch::~frmReplaceWatch()
{
    qApp->removeEventFilter(this);
    if (still != nullptr)
        still->setUpdatesEnabled(true);
}

RoundEnd frmReplaceWatch::Round(std::int64_t replacements)
{
    if (sinceTurn.elapsed() >= turnEvery) {
        if (sinceStart.elapsed() >= boxAfter)
            ShowProgress(replacements);
        QApplication::processEvents();
        sinceTurn.restart();
    }
    return isStopped ? RoundEnd::Stop : RoundEnd::GoOn;
}

void frmReplaceWatch::ShowProgress(std::int64_t replacements)
{
    if (box == nullptr) {
        box = std::make_unique<QProgressDialog>(ToolOwner());
        box->setObjectName(QStringLiteral("frmReplaceProgress"));
        box->setWindowTitle(QStringLiteral("Replace All"));
        box->setWindowModality(Qt::ApplicationModal);
        box->setRange(0, 0);
        box->setMinimumWidth(320);
        connect(box.get(), &QProgressDialog::canceled, this, [this] { isStopped = true; });
        box->show();
    }
    box->setLabelText(QStringLiteral("Replacements made so far: %1").arg(QLocale().toString(replacements)));
}

bool frmReplaceWatch::IsOfBox(QObject* watched) const
{
    if (box == nullptr)
        return false;
    const auto* widget = qobject_cast<QWidget*>(watched);
    return widget != nullptr ? widget->window() == box.get() : watched == box->windowHandle();
}

bool frmReplaceWatch::eventFilter(QObject* watched, QEvent* event)
{
    if (!IsInput(event->type()))
        return false;
    // The box has its own shortcut for Escape, which takes the key before it becomes a press.
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (isKey && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        isStopped = true;
        if (box != nullptr)
            box->cancel();
        return true;
    }
    if (IsOfBox(watched))
        return false;
    // A close event has to be ignored explicitly, or it counts as accepted.
    if (event->type() == QEvent::Close)
        event->ignore();
    return true;
}

} // namespace ob
