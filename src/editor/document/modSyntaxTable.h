// SPDX-License-Identifier: GPL-3.0-or-later
// The catalogue of syntax hints on the language, and the keyword lists for autocompletion and colouring.
#pragma once

#include <QByteArray>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace ob {

// What F4 shows for a term that is not in the catalogue.
inline constexpr std::string_view NoSyntaxHelp = "No syntax help available for that term.";

// The editor's words of the language; set by BuildSyntaxTable.
struct LanguageWords {
    // A row is one or more lines of syntax, a line feed, and one or more comment lines that each begin with an
    // apostrophe; all of it ASCII. The rows are in the program's own memory, stay valid until it ends, and are not
    // terminated by NUL.
    std::vector<std::string_view> SyntaxTable;

    // The highest index of SyntaxTable.
    std::int16_t SyntaxTableLast = -1;

    // Words in mixed case, each followed by a space, functions with an opening parenthesis: the list of F2.
    QByteArray KeywordList;

    // KeywordList in lower case; the user's custom keywords are added, so that they are colored but not offered by F2.
    QByteArray LexerKeywords;
};
LanguageWords& Words();

// Rebuilds all of Words(), so that LexerKeywords no longer has custom keywords.
void BuildSyntaxTable();

// The part of a row before its first space. Where the syntax has no space, the key extends past the line feed into the
// comment, so that no term finds it.
std::string_view KeyOfRow(std::string_view row);

// The key as shown in a list of the catalogue: KeyOfRow up to its first line feed.
std::string_view ReportedKey(std::string_view row);

// The index of the first row of SyntaxTable whose key is term, ignoring the case of ASCII letters; nothing when there
// is none. Spaces around the term are significant.
std::optional<int> FindSyntaxRow(std::string_view term);

// What F4 shows for term: its whole row, or NoSyntaxHelp.
std::string_view SyntaxTip(std::string_view term);

} // namespace ob
