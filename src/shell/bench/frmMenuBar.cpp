// SPDX-License-Identifier: GPL-3.0-or-later
// The menu bar of the main window.
#include "shell/bench/frmMenuBar.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QShortcutEvent>
#include <QStyleOptionMenuItem>

namespace ob {

namespace {

// The one after the active menu, or the first.
QAction* NextOf(const QList<QAction*>& menus, const QAction* active)
{
    return menus[(menus.indexOf(active) + 1) % menus.size()];
}

} // namespace

bool frmMenuBar::event(QEvent* event)
{
    if (event->type() == QEvent::Shortcut) {
        const QList<QAction*> shared = MenusOf(static_cast<const QShortcutEvent*>(event)->key());
        if (shared.size() > 1) {
            Select(NextOf(shared, activeAction()));
            return true;
        }
    }
    return QMenuBar::event(event);
}

// While a menu is selected the keys are the bar's, wherever the focus is.
bool frmMenuBar::eventFilter(QObject* watched, QEvent* event)
{
    if (selecting == Selecting::No)
        return QMenuBar::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        event->accept();
        return true;
    case QEvent::KeyPress:
        KeyWhileSelecting(static_cast<const QKeyEvent&>(*event));
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::WindowDeactivate:
        Leave();
        return false;
    default:
        return false;
    }
}

// A selected menu is as easy to see as an open one.
void frmMenuBar::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const
{
    QMenuBar::initStyleOption(option, action);
    if (selecting == Selecting::Yes && action == activeAction())
        option->state |= QStyle::State_Sunken;
}

QList<QAction*> frmMenuBar::UsableMenus() const
{
    QList<QAction*> menus = actions();
    menus.removeIf(
        [](const QAction* menu) { return !menu->isVisible() || !menu->isEnabled() || menu->menu() == nullptr; });
    return menus;
}

QList<QAction*> frmMenuBar::MenusOf(const QKeySequence& letter) const
{
    QList<QAction*> menus = UsableMenus();
    menus.removeIf([&letter](const QAction* menu) { return QKeySequence::mnemonic(menu->text()) != letter; });
    return menus;
}

// The toolkit selects a menu without opening it only for the mouse.
void frmMenuBar::Select(QAction* menu)
{
    const QPointF place = actionGeometry(menu).center();
    QMouseEvent move(QEvent::MouseMove, place, mapToGlobal(place), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(this, &move);
    if (selecting == Selecting::No)
        qApp->installEventFilter(this);
    selecting = Selecting::Yes;
    update();
}

void frmMenuBar::SelectNeighbour(int step)
{
    const QList<QAction*> menus = UsableMenus();
    const qsizetype here = menus.indexOf(activeAction());
    Select(menus[(here + step + menus.size()) % menus.size()]);
}

void frmMenuBar::Leave()
{
    qApp->removeEventFilter(this);
    selecting = Selecting::No;
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(this, &leave);
}

void frmMenuBar::KeyWhileSelecting(const QKeyEvent& key)
{
    QAction* const selected = activeAction();
    switch (key.key()) {
    case Qt::Key_Escape:
        Leave();
        break;
    case Qt::Key_Left:
        SelectNeighbour(layoutDirection() == Qt::LeftToRight ? -1 : 1);
        break;
    case Qt::Key_Right:
        SelectNeighbour(layoutDirection() == Qt::LeftToRight ? 1 : -1);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
    case Qt::Key_Up:
        Leave();
        setActiveAction(selected);
        break;
    default:
        LetterWhileSelecting(key);
    }
}

// A letter of one menu opens that one; any other key has no effect.
void frmMenuBar::LetterWhileSelecting(const QKeyEvent& key)
{
    const QList<QAction*> menus = MenusOf(QKeySequence(QKeyCombination(Qt::ALT, static_cast<Qt::Key>(key.key()))));
    if (menus.size() > 1) {
        Select(NextOf(menus, activeAction()));
    } else if (menus.size() == 1) {
        Leave();
        setActiveAction(menus.first());
    }
}

} // namespace ob
