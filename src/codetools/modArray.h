// SPDX-License-Identifier: GPL-3.0-or-later
// The array maker: a list of items becomes the code that dimensions an array and fills it.
#pragma once

#include <QString>
#include <QStringList>

namespace ob {

enum class ArrayType { Numeric, String };

struct ArraySpec {
    QString name; // empty: DefaultArrayName
    ArrayType type = ArrayType::String;
    QString items; // each item preceded by "|"
};

inline const QString DefaultArrayName = QStringLiteral("Array$");
inline const QString NoArrayItemsText = QStringLiteral("No items contained in array.  Continue anyway?");
inline const QString ArrayCopiedText =
    QStringLiteral("Code for array has been copied to the clipboard.  Please paste it into your program.");

// The items with one more. A "|" within it makes it two.
QString WithArrayItem(const QString& items, const QString& item);

// The items without the last one; empty stays empty.
QString WithoutLastArrayItem(const QString& items);

// The lines of a text that came in with line ends, an item each; nothing for a text without any. A line end at the end
// begins no further item.
QStringList PastedArrayItems(const QString& text);

// The number of the last item; -1 when there is none.
qsizetype ArrayBound(const QString& items);

// The name as it is written before a number in parentheses: "days" is "days$(" for a String array. Whatever the user
// wrote after a "$" or "(" of the other type stays.
QString ReadyArrayName(const QString& name, ArrayType type);

// The code, with lines ending in CR LF and two empty lines at the end. Elements count from 1. Texts are inserted
// unchanged.
QString ArrayCode(const ArraySpec& spec);

} // namespace ob
