// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's toolbar as one table.
#pragma once

#include <QHash>
#include <QString>

class QAction;
class QToolBar;

namespace ob {

// Fills the toolbar; every button does what the menu item of its row does. Gives the buttons in their order, a null
// pointer for each separator, so that button N stands at index N - 1.
QList<QAction*> BuildToolbar(QToolBar& bar, const QHash<QString, QAction*>& items);

} // namespace ob
