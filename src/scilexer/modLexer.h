// SPDX-License-Identifier: GPL-3.0-or-later
// The language's lexer: bytes in, one style per byte out; a single number passes from line to line.
#pragma once

#include "scilexer/modKeywords.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace ob {

enum Style : unsigned char {
    StyleDefault = 0,
    StyleComment = 1,
    StyleNumber = 2,
    StyleKeyword = 3,
    StyleString = 4,
    StyleHandle = 5,
    StyleOperator = 6,
    StyleIdentifier = 7,
    StyleLabel = 8,
};

// Bytes, with the line end. The edit control gives a longer line no colours and shows only the part around the caret.
constexpr std::ptrdiff_t LongestColoredLine = 64 * 1024;

// A line state is the number of blocks open at the end of a line; it is 0 before the first line.
struct LexedLine {
    std::size_t length = 0; // bytes, with the line end
    int state = 0;          // at the end of the line
};

// Styles the first line of `text`, up to and including its end (CR LF, LF or CR) or to the end of the text. `styles`
// has room for text.size() bytes; those after the line may be overwritten with anything.
LexedLine LexFirstLine(int lineState, std::string_view text, const KeywordSet& keywords, unsigned char* styles);

// Styles one line, given with its end if it has one, and returns the state after it. A negative state counts as 0.
inline int LexLine(int lineState, std::string_view line, const KeywordSet& keywords, unsigned char* styles)
{
    return LexFirstLine(lineState, line, keywords, styles).state;
}

// Styles a whole text from its first line on and returns the state at its end.
int LexText(std::string_view text, const KeywordSet& keywords, unsigned char* styles);

enum FoldFlag : int {
    FoldBase = 0x400,
    FoldNumberMask = 0xFFF,
    FoldWhite = 0x1000,
    FoldHeader = 0x2000,
};

// The fold level of a line between two states, as Scintilla counts: the depth before the line from FoldBase on,
// FoldHeader when the line opens more blocks than it closes, FoldWhite when it is blank.
int FoldLevel(int stateBefore, int stateAfter, std::string_view line);

// Whether a byte is one of the four that MatchBrace handles: ( ) [ ]
inline bool IsBrace(char c)
{
    return c == '(' || c == ')' || c == '[' || c == ']';
}

// The column (bytes) of the partner of the brace in `column`, considering only braces of the same style within the
// line. Nothing when it has no partner or when there is no brace.
std::optional<std::size_t> MatchBrace(std::string_view line, const unsigned char* styles, std::size_t column);

} // namespace ob
