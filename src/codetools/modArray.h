// SPDX-License-Identifier: GPL-3.0-or-later
// The array maker: a list of items becomes the code that dimensions an array and fills it.
#pragma once

#include <QString>

namespace ob {

enum class ArrayType { Numeric, String };

struct ArraySpec {
    QString name; // empty: DefaultArrayName
    ArrayType type = ArrayType::String;
    QString items; // each item with a "|" in front of it
};

inline const QString DefaultArrayName = QStringLiteral("Array$");
inline const QString NoArrayItemsText = QStringLiteral("No items contained in array.  Continue anyway?");
inline const QString ArrayCopiedText =
    QStringLiteral("Code for array has been copied to the clipboard.  Please paste it into your program.");

// The items with one more. A "|" within it makes two of it.
QString WithArrayItem(const QString& items, const QString& item);

// The number of the last item; -1 when there is none.
qsizetype ArrayBound(const QString& items);

// The name as it stands before a number in parentheses: "days" is "days$(" for a String array. What a user wrote
// behind a "$" or "(" of the other type stays.
QString ReadyArrayName(const QString& name, ArrayType type);

// The code, lines ending in CR LF, with two empty lines behind it. Elements count from 1. Texts are put in as they
// stand.
QString ArrayCode(const ArraySpec& spec);

} // namespace ob
