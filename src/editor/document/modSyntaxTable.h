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

// What the editor knows of the language; set by BuildSyntaxTable.
struct LanguageWords {
    // A row is one or more lines of syntax, a line feed, and one or more comment lines that each begin with an
    // apostrophe; all of it ASCII. The rows are in the program's own memory, stay valid until it ends, and no NUL
    // follows them.
    std::vector<std::string_view> SyntaxTable;

    // The highest index of SyntaxTable.
    std::int16_t SyntaxTableLast = -1;

    // Words in mixed case, each followed by a space, functions with an opening parenthesis: the list of F2.
    QByteArray KeywordList;

    // KeywordList in lower case; the user's custom keywords join it, so that they are colored but not offered by F2.
    QByteArray LexerKeywords;
};
LanguageWords& Words();

// Sets all of Words() anew, so that custom keywords are gone from LexerKeywords afterwards.
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
