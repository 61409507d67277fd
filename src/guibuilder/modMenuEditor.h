// SPDX-License-Identifier: GPL-3.0-or-later
// The menu editor's operations on the menu table of a form, and the questions that it asks.
#pragma once

#include "guibuilder/modGui.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace ob {

// Menus and items count from 0. A place below 0 or from MenuSlots on is outside the table: reading it returns nothing;
// writing, removing and moving there leave the table unchanged.

// The names up to the first empty one.
QStringList MenuNames(const GuiForm& form);

// A menu's items up to the first one without text.
QList<MenuItemParts> MenuItems(const GuiForm& form, int menu);

void SetMenuName(GuiForm& form, int menu, const QString& name);
void SetMenuItem(GuiForm& form, int menu, int item, const MenuItemParts& parts);

// The later menus move up with their items. The last place loses its name and all items but the very last one.
void RemoveMenu(GuiForm& form, int menu);

// The menu's later items move up; its last place is empty afterwards.
void RemoveMenuItem(GuiForm& form, int menu, int item);

enum class MoveDirection { Up, Down };

// Swaps the entry with its neighbour, a menu together with its items. Returns its new place, or nothing when there is
// no neighbour on that side.
std::optional<int> MoveMenu(GuiForm& form, int menu, MoveDirection direction);
std::optional<int> MoveMenuItem(GuiForm& form, int menu, int item, MoveDirection direction);

// The label of the designed window's menu bar once its menus have been edited.
QString EditedMenuLabel(const GuiForm& form);

// The questions for a new entry. The name is empty, the item nothing, when the user entered none. An item's caption
// ends before its first "["; one with a "|" is a separator, which needs no branch. The branch is in brackets.
QString AskMenuName();
std::optional<MenuItemParts> AskMenuItem();

// The questions for new texts of the chosen entry; these complain when nothing is chosen. An empty answer counts as
// above.
QString AskOtherMenuName(const std::optional<QString>& chosen);
std::optional<MenuItemParts> AskOtherMenuItem(const std::optional<MenuItemParts>& chosen);

// Whether to remove the chosen entry; complain when nothing is chosen.
bool MayRemoveMenu(const std::optional<QString>& chosen);
bool MayRemoveMenuItem(const std::optional<MenuItemParts>& chosen);

} // namespace ob
