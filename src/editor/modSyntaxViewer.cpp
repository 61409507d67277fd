// SPDX-License-Identifier: GPL-3.0-or-later
// The catalogue of syntax hints in the order and the form of the Syntax Viewer.
#include "editor/modSyntaxViewer.h"

#include "editor/document/modSyntaxTable.h"
#include "platform/language/modRuntime.h"

#include <algorithm>
#include <ranges>

namespace ob {

std::vector<std::string_view> SortedSyntaxRows(std::span<const std::string_view> rows)
{
    std::vector<std::string_view> sorted(rows.begin(), rows.end());
    std::ranges::stable_sort(sorted, [](std::string_view left, std::string_view right) {
        return std::ranges::lexicographical_compare(
            left, right, {}, [](char character) { return LowerAscii(character); },
            [](char character) { return LowerAscii(character); });
    });
    return sorted;
}

QStringList SyntaxKeys(std::span<const std::string_view> rows)
{
    QStringList keys;
    for (const std::string_view row : rows)
        keys.append(QString::fromLatin1(QByteArrayView(KeyOfRow(row))));
    return keys;
}

QString SyntaxRowText(std::string_view row)
{
    return QString::fromLatin1(QByteArrayView(row)).replace(QLatin1Char('\n'), QLatin1String("\r\n"));
}

} // namespace ob
