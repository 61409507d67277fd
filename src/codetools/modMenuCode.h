// SPDX-License-Identifier: GPL-3.0-or-later
// The menu maker: items, added one by one, become one Menu or Popupmenu statement.
#pragma once

#include <QString>

#include <cstdint>

namespace ob {

enum class MenuType { Regular, Popup };

// The items so far, as written after the name of the menu, and their number.
struct MenuTail {
    QString list;
    std::int16_t count = 0;
};

struct MenuSpec {
    MenuType type = MenuType::Regular;
    QString name;   // of a regular menu; empty: "Menu Name"
    QString handle; // of a regular menu's window; empty: "#main"
    MenuTail tail;
};

inline const QString MenuCopiedText =
    QStringLiteral("Menu information has been copied to the clipboard.  Please paste it into your code.");

// Appends an item. An empty text or branch gets a default name with the item's number; "|" is a separator, which has no
// branch. Raises Overflow after item 32767; nothing is changed then.
void AddMenuItem(MenuTail& tail, const QString& text, const QString& branch);

// The text with another character in place of each space.
QString WithoutSpaces(QString text, QChar replacement);

// The branch in brackets and without spaces: "my item" is "[my.item]". One that contains both brackets, wherever, and
// no space is unchanged.
QString ReadyMenuLabel(const QString& branch);

// The statement, without a line end. Spaces around the name and the handle are ignored.
QString MenuCode(const MenuSpec& spec);

} // namespace ob
