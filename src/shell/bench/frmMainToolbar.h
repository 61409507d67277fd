// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's toolbar as one table.
#pragma once

#include <QHash>
#include <QString>

class QAction;
class QToolBar;

namespace ob {

// The parts of the toolbar that the main window needs.
struct ToolbarParts {
    QHash<QString, QAction*> buttons; // by their names
    QList<QAction*> userItems;        // of the "User" button, "one" to "ten"
};

// Fills the toolbar; every button, and every item of its menu, does what the menu item of its row does.
ToolbarParts BuildToolbar(QToolBar& bar, const QHash<QString, QAction*>& items);

// Shows the user applications on the items of the "User" button; items without one are hidden.
void ShowUserApplicationItems(const QList<QAction*>& userItems);

} // namespace ob
