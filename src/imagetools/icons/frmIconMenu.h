// SPDX-License-Identifier: GPL-3.0-or-later
// The menus and the toolbar of the icon editor: two tables, each read by one loop.
#pragma once

#include <QHash>
#include <QList>
#include <QString>

class QAction;
class QMenuBar;
class QToolBar;

namespace ob {

// The items by name. Paint and change are exclusive and show which of them is on.
QHash<QString, QAction*> BuildIconMenu(QMenuBar& bar);

// The buttons by number, from 0; separators are null. A button triggers a menu item and shows its state; only "runtime"
// has a switch of its own.
QList<QAction*> BuildIconToolbar(QToolBar& bar, const QHash<QString, QAction*>& items);

} // namespace ob
