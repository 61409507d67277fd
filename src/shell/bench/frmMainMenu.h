// SPDX-License-Identifier: GPL-3.0-or-later
// The menu tree of the main window as one table.
#pragma once

#include "shell/help/modManual.h"

#include <QHash>
#include <QString>

#include <vector>

class QAction;
class QMenu;
class QMenuBar;

namespace ob {

// The kind and initial state of an item: On, or Off until a code window is active; a submenu; a separator; the eight
// places of the recent list; a switch with a check mark; the place of a tool, whose room has the rest of its row.
enum class ItemKind { On, Off, Menu, OffMenu, Bar, Recent, Check, Tool };

struct MenuRow {
    int depth; // 0 for the menu bar, and one more for each menu around the item
    const char* name;
    const char* caption;
    const char* key;
    const char* icon; // resources/icons/ICON.svg; empty for none
    ItemKind kind;
    void (*click)(); // null for an item that does nothing
};

// In the order shown on the screen, all tools among them: no row is of the kind Tool.
const std::vector<MenuRow>& MenuTree();

// The tools as the manual lists them.
std::vector<ManualTool> ToolsForManual();

// Makes a menu read its items' icons when it opens for the first time, so that they do not slow down the start. An
// item's icon is named by its row, or by the item that it triggers.
void ShowIconsOnOpening(QMenu& menu);
void SetIconName(QAction& item, const QString& icon);
QString IconName(const QAction& item);

// Fills the bar from the table. Returns every item by its name, menus by their own item; the recent places are
// "mnuFileMRU1" to "mnuFileMRU8".
QHash<QString, QAction*> BuildMenu(QMenuBar& bar);

} // namespace ob
