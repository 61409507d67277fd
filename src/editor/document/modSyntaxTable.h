// SPDX-License-Identifier: GPL-3.0-or-later
// The catalogue of syntax hints on the language, and the keyword lists for autocompletion and colouring.
#pragma once

#include <QByteArray>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace ob {

// What F4 shows for a term that the catalogue lacks.
inline constexpr std::string_view NoSyntaxHelp = "No syntax help available for that term.";

// The catalogue, set by BuildSyntaxTable. A row is one or more lines of syntax, a line feed, and one or more
// comment lines that each begin with an apostrophe; all of it ASCII. The rows lie in the program's own memory, stay
// valid until it ends, and have no NUL behind them.
extern std::vector<std::string_view> SyntaxTable;

// The highest index of SyntaxTable.
extern std::int16_t SyntaxTableLast;

// Words in mixed case, each with a blank behind it, functions with an opening parenthesis: the list of F2.
extern QByteArray KeywordList;

// KeywordList in lower case; the user's custom keywords join it, so that they are coloured but not offered by F2.
extern QByteArray LexerKeywords;

// Sets all four of the above anew, so that custom keywords are gone from LexerKeywords afterwards.
void BuildSyntaxTable();

// The part of a row before its first blank. A row whose syntax has no blank gives more than a word: its key runs over
// the line feed into the comment, so no term finds it.
std::string_view KeyOfRow(std::string_view row);

// The key as a list of the catalogue shows it: KeyOfRow, ended by a line feed as well.
std::string_view ReportedKey(std::string_view row);

// The index of the first row of SyntaxTable whose key is term, ignoring the case of ASCII letters; nothing when no
// key is. Blanks around the term count.
std::optional<int> FindSyntaxRow(std::string_view term);

// What F4 shows for term: its whole row, or NoSyntaxHelp.
std::string_view SyntaxTip(std::string_view term);

} // namespace ob
