// SPDX-License-Identifier: GPL-3.0-or-later
// The lexer: one pass over a line, led by a table of character classes.
#include "scilexer/modLexer.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

namespace ob {

namespace {

// The first three are the word characters.
enum CharClass : unsigned char {
    ClassLetter,
    ClassDigit,
    ClassSuffix,
    ClassSpace,
    ClassLineEnd,
    ClassQuote,
    ClassApostrophe,
    ClassHash,
    ClassBracket,
    ClassOperator,
};

constexpr std::array<unsigned char, 256> Classes = [] {
    std::array<unsigned char, 256> table{};
    for (unsigned c = 0; c < 256; ++c) {
        const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c >= 0x80;
        const bool isDigit = c >= '0' && c <= '9';
        const bool isSpace = c <= ' ' || c == 0x7F;
        table[c] = isLetter ? ClassLetter : isDigit ? ClassDigit : isSpace ? ClassSpace : ClassOperator;
    }
    table['$'] = table['!'] = table['?'] = ClassSuffix;
    table['\r'] = table['\n'] = ClassLineEnd;
    table['"'] = ClassQuote;
    table['\''] = ClassApostrophe;
    table['#'] = ClassHash;
    table['['] = ClassBracket;
    return table;
}();

CharClass ClassOf(char c)
{
    return static_cast<CharClass>(Classes[static_cast<unsigned char>(c)]);
}

bool IsWordChar(char c)
{
    return ClassOf(c) <= ClassSuffix;
}

bool IsLineEnd(char c)
{
    return c == '\n' || c == '\r';
}

// What the previous token implies for the next word.
enum class Expect : unsigned char { Nothing, Statement, StatementAfterThen, AfterEnd, AfterSelect };

class LineLexer {
public:
    LineLexer(std::string_view source, const KeywordSet& words, unsigned char* target, int lineState)
        : text(source.data()), size(source.size()), keywords(words), styles(target), depth(lineState)
    {
    }

    std::size_t Run();
    int Depth() const { return depth; }

private:
    void Fill(std::size_t end, Style style);
    std::size_t FindLineEnd(std::size_t from) const;
    void String();
    void Number();
    void Handle();
    void Word();
    void Bracket();
    void Operator();
    bool NoteRole(WordRole role);
    void OpenIf(bool condition);
    void CloseIf(bool condition);
    std::size_t FinishLine();
    std::size_t DigitsEnd(std::size_t from) const;

    const char* text;
    std::size_t size;
    const KeywordSet& keywords;
    unsigned char* styles;
    std::size_t at = 0;
    std::size_t nextClose = 0; // the first "]" after the last "[" seen, or size when there is none
    int depth;
    Expect expect = Expect::Statement;
    bool hasIf = false;
};

// Styles everything from the current position up to `end` and moves there.
inline void LineLexer::Fill(std::size_t end, Style style)
{
    // Most tokens are short: one store of fixed size beats a call. Excess bytes are overwritten later.
    constexpr std::size_t block = 16;
    if (end - at <= block && size - at >= block)
        std::memset(styles + at, style, block);
    else
        std::memset(styles + at, style, end - at);
    at = end;
}

inline std::size_t LineLexer::FindLineEnd(std::size_t from) const
{
    while (from < size && !IsLineEnd(text[from]))
        ++from;
    return from;
}

inline std::size_t LineLexer::DigitsEnd(std::size_t from) const
{
    while (from < size && ClassOf(text[from]) == ClassDigit)
        ++from;
    return from;
}

inline void LineLexer::String()
{
    std::size_t end = at + 1;
    while (end < size && text[end] != '"' && !IsLineEnd(text[end]))
        ++end;
    if (end < size && text[end] == '"')
        ++end;
    Fill(end, StyleString);
    expect = Expect::Nothing;
}

inline void LineLexer::Number()
{
    std::size_t end = DigitsEnd(at + 1);
    if (end + 1 < size && text[end] == '.' && ClassOf(text[end + 1]) == ClassDigit)
        end = DigitsEnd(end + 2);
    if (end < size && (text[end] | 0x20) == 'e') {
        const bool hasSign = end + 1 < size && (text[end + 1] == '+' || text[end + 1] == '-');
        const std::size_t digits = end + (hasSign ? 2 : 1);
        if (digits < size && ClassOf(text[digits]) == ClassDigit)
            end = DigitsEnd(digits + 1);
    }
    Fill(end, StyleNumber);
    expect = Expect::Nothing;
}

inline void LineLexer::Handle()
{
    std::size_t end = at + 1;
    while (end < size && (IsWordChar(text[end]) || text[end] == '.'))
        ++end;
    Fill(end, StyleHandle);
    expect = Expect::Nothing;
}

inline void LineLexer::Operator()
{
    expect = text[at] == ':' ? Expect::Statement : Expect::Nothing;
    styles[at++] = StyleOperator;
}

inline void LineLexer::Bracket()
{
    // The cached answer keeps a line of many "[" from being searched to its end for each of them.
    if (nextClose <= at) {
        nextClose = at + 1;
        while (nextClose < size && text[nextClose] != ']' && !IsLineEnd(text[nextClose]))
            ++nextClose;
        if (nextClose < size && text[nextClose] != ']')
            nextClose = size;
    }
    const bool isLabel = nextClose < size && nextClose > at + 1 && ClassOf(text[at + 1]) != ClassSpace &&
                         ClassOf(text[nextClose - 1]) != ClassSpace;
    if (isLabel) {
        Fill(nextClose + 1, StyleLabel);
        expect = Expect::Nothing;
    } else {
        Operator();
    }
}

inline void LineLexer::OpenIf(bool condition)
{
    depth += condition && depth < std::numeric_limits<int>::max();
}

// A closer with nothing to close is ignored.
inline void LineLexer::CloseIf(bool condition)
{
    depth -= condition && depth > 0;
}

// Counts blocks. Returns true when the word starts a comment.
inline bool LineLexer::NoteRole(WordRole role)
{
    const Expect before = expect;
    const bool isStatement = before == Expect::Statement || before == Expect::StatementAfterThen;
    expect = Expect::Nothing;
    switch (role) {
    case WordRole::None:
        break;
    case WordRole::If:
        hasIf = hasIf || isStatement;
        CloseIf(before == Expect::AfterEnd);
        break;
    case WordRole::Then:
        expect = Expect::StatementAfterThen;
        break;
    case WordRole::Else:
        expect = Expect::Statement;
        break;
    case WordRole::End:
        expect = isStatement ? Expect::AfterEnd : Expect::Nothing;
        break;
    case WordRole::Select:
        expect = isStatement ? Expect::AfterSelect : Expect::Nothing;
        CloseIf(before == Expect::AfterEnd);
        break;
    case WordRole::Case:
        OpenIf(before == Expect::AfterSelect);
        break;
    case WordRole::Routine:
        OpenIf(isStatement);
        CloseIf(before == Expect::AfterEnd);
        break;
    case WordRole::Opener:
        OpenIf(isStatement);
        break;
    case WordRole::Closer:
        CloseIf(isStatement);
        break;
    case WordRole::Rem:
        expect = isStatement ? before : Expect::Nothing;
        return isStatement;
    }
    return false;
}

inline void LineLexer::Word()
{
    std::size_t end = at + 1;
    while (end < size && IsWordChar(text[end]))
        ++end;
    const WordInfo info = keywords.Find(text + at, end - at, size - at);
    if (NoteRole(info.role))
        Fill(FindLineEnd(end), StyleComment);
    else
        Fill(end, info.isKeyword ? StyleKeyword : StyleIdentifier);
}

// Styles the line end and returns the length of the line.
inline std::size_t LineLexer::FinishLine()
{
    OpenIf(hasIf && expect == Expect::StatementAfterThen);
    if (at < size) {
        const bool isPair = text[at] == '\r' && at + 1 < size && text[at + 1] == '\n';
        styles[at++] = StyleDefault;
        if (isPair)
            styles[at++] = StyleDefault;
    }
    return at;
}

std::size_t LineLexer::Run()
{
    while (at < size) {
        // Most tokens are one space apart: handling it here saves a turn of the switch.
        if (text[at] == ' ') {
            styles[at++] = StyleDefault;
            continue;
        }
        switch (ClassOf(text[at])) {
        case ClassSpace:
            styles[at++] = StyleDefault;
            break;
        case ClassLetter:
            Word();
            break;
        case ClassDigit:
            Number();
            break;
        case ClassQuote:
            String();
            break;
        case ClassApostrophe:
            Fill(FindLineEnd(at + 1), StyleComment);
            break;
        case ClassHash:
            Handle();
            break;
        case ClassBracket:
            Bracket();
            break;
        case ClassSuffix:
        case ClassOperator:
            Operator();
            break;
        case ClassLineEnd:
            return FinishLine();
        }
    }
    return FinishLine();
}

} // namespace

LexedLine LexFirstLine(int lineState, std::string_view text, const KeywordSet& keywords, unsigned char* styles)
{
    LineLexer lexer(text, keywords, styles, std::max(lineState, 0));
    const std::size_t length = lexer.Run();
    return {length, lexer.Depth()};
}

int LexText(std::string_view text, const KeywordSet& keywords, unsigned char* styles)
{
    LexedLine line;
    for (std::size_t at = 0; at < text.size(); at += line.length)
        line = LexFirstLine(line.state, text.substr(at), keywords, styles + at);
    return line.state;
}

int FoldLevel(int stateBefore, int stateAfter, std::string_view line)
{
    const bool isBlank = std::all_of(line.begin(), line.end(),
                                     [](char c) { return ClassOf(c) == ClassSpace || ClassOf(c) == ClassLineEnd; });
    const int depth = std::clamp(stateBefore, 0, FoldNumberMask - FoldBase);
    return FoldBase + depth + (stateAfter > stateBefore ? FoldHeader : 0) + (isBlank ? FoldWhite : 0);
}

std::optional<std::size_t> MatchBrace(std::string_view line, const unsigned char* styles, std::size_t column)
{
    if (column >= line.size() || !IsBrace(line[column]))
        return std::nullopt;
    const char own = line[column];
    const bool isForward = own == '(' || own == '[';
    const char partner = own == '(' ? ')' : own == ')' ? '(' : own == '[' ? ']' : '[';
    std::size_t depth = 1;
    // Going back wraps around below 0, which ends the loop just as going past the end does.
    for (std::size_t i = isForward ? column + 1 : column - 1; i < line.size(); isForward ? ++i : --i) {
        if (styles[i] != styles[column])
            continue;
        if (line[i] == own)
            ++depth;
        else if (line[i] == partner && --depth == 0)
            return i;
    }
    return std::nullopt;
}

} // namespace ob
