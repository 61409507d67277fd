// SPDX-License-Identifier: GPL-3.0-or-later
// What all windows and boxes of the program do alike.
#include "platform/dialogs/frmManners.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QMainWindow>
#include <QPushButton>
#include <QToolButton>

#include <algorithm>
#include <chrono>

namespace ob {

namespace {

// The windows in the order of their last use. After one has closed it takes the window manager a moment to activate
// another, and until then the toolkit names the closed one or none.
QList<QPointer<QWidget>>& Used()
{
    static QList<QPointer<QWidget>> windows;
    return windows;
}

// How long a window manager may take to activate a window after another one has closed.
constexpr auto SettlingTime = std::chrono::milliseconds(300);

bool IsUsable(const QWidget* window)
{
    return window != nullptr && window->isVisible() && !window->isMinimized();
}

void PutLast(QWidget* window)
{
    Used().removeIf([window](const QPointer<QWidget>& each) { return each.isNull() || each == window; });
    Used().append(window);
}

// The window that was used last and can be used now; null for none.
QWidget* LastUsed()
{
    if (QWidget* modal = QApplication::activeModalWidget(); IsUsable(modal))
        return modal;
    const auto last = std::find_if(Used().rbegin(), Used().rend(), [](const auto& each) { return IsUsable(each); });
    return last == Used().rend() ? nullptr : last->data();
}

// Menus and tips are windows too, but nothing belongs to them.
bool IsOwnWindow(const QWidget& widget)
{
    return widget.isWindow() && (widget.windowType() == Qt::Window || widget.windowType() == Qt::Dialog);
}

bool IsPlainEnter(const QKeyEvent& key)
{
    return (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) &&
           (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

// Check boxes and options leave Enter to the default button.
QAbstractButton* ButtonForEnter(QObject* watched)
{
    if (auto* button = qobject_cast<QPushButton*>(watched))
        return button;
    return qobject_cast<QToolButton*>(watched);
}

void RemoveIcons(const QDialogButtonBox& box)
{
    for (QAbstractButton* button : box.buttons())
        button->setIcon({});
}

} // namespace

frmManners::frmManners(QObject* parent) : QObject(parent)
{
    settling.setSingleShot(true);
    settling.setInterval(SettlingTime);
    connect(&settling, &QTimer::timeout, this, [this] {
        if (IsUsable(wanted) && QApplication::activeWindow() != wanted)
            wanted->activateWindow();
        wanted.clear();
    });
    qApp->installEventFilter(this);
}

frmManners::~frmManners()
{
    qApp->removeEventFilter(this);
}

bool frmManners::eventFilter(QObject* watched, QEvent* event)
{
    if (!watched->isWidgetType())
        return false;
    auto* widget = static_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        wanted.clear();
        break;
    case QEvent::KeyPress:
        wanted.clear();
        if (QAbstractButton* button = ButtonForEnter(watched);
            button != nullptr && IsPlainEnter(static_cast<const QKeyEvent&>(*event))) {
            button->click();
            return true;
        }
        break;
    case QEvent::Show:
        if (const auto* box = qobject_cast<QDialogButtonBox*>(watched))
            RemoveIcons(*box);
        if (IsOwnWindow(*widget))
            wanted.clear();
        break;
    case QEvent::WindowActivate:
        if (IsOwnWindow(*widget))
            Activated(*widget);
        break;
    case QEvent::Hide:
        if (IsOwnWindow(*widget) && !event->spontaneous())
            PassKeyboardOn(*widget);
        break;
    default:
        break;
    }
    return false;
}

void frmManners::PassKeyboardOn(const QWidget& closed)
{
    // A window that closes while another program is in use must not bring others to the front.
    const bool wasInUse = !Used().isEmpty() && Used().last() == &closed;
    if (!wasInUse || QGuiApplication::applicationState() != Qt::ApplicationActive)
        return;
    Used().removeLast();
    wanted = LastUsed();
    if (wanted.isNull())
        return;
    PutLast(wanted);
    wanted->activateWindow();
    settling.start();
}

// Some window managers pass the keyboard on by their own rules, to the main window as a rule, and do so after the
// request to activate another one.
void frmManners::Activated(QWidget& window)
{
    if (IsUsable(wanted) && wanted != &window)
        wanted->activateWindow();
    else
        PutLast(&window);
}

QWidget* BoxOwner()
{
    if (QWidget* active = QApplication::activeWindow(); IsUsable(active))
        return active;
    if (QWidget* last = LastUsed())
        return last;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (IsUsable(window) && qobject_cast<QMainWindow*>(window) != nullptr)
            return window;
    return nullptr;
}

} // namespace ob
