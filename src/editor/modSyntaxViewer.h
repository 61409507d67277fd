// SPDX-License-Identifier: GPL-3.0-or-later
// The catalogue of syntax hints in the order and the form of the Syntax Viewer.
#pragma once

#include <QString>
#include <QStringList>

#include <span>
#include <string_view>
#include <vector>

namespace ob {

// The rows sorted by the codes of their lower-case characters, equal ones in their original order. Their keys are then
// in that order too.
std::vector<std::string_view> SortedSyntaxRows(std::span<const std::string_view> rows);

// The keys of the rows, in the same order: the text of each before its first space.
QStringList SyntaxKeys(std::span<const std::string_view> rows);

// A row with CR LF in place of each line feed.
QString SyntaxRowText(std::string_view row);

} // namespace ob
