// SPDX-License-Identifier: GPL-3.0-or-later
// The scanner, led by a table of character classes.
#include "orchard/language/cScanner.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

namespace ob::basic {

namespace {

enum class CharClass : std::uint8_t { Other, Letter, Digit, NamePart, Space, LineEnd };

constexpr std::array<CharClass, 256> Classes = [] {
    std::array<CharClass, 256> table{};
    for (unsigned c = 'a'; c <= 'z'; ++c)
        table[c] = table[c - 'a' + 'A'] = CharClass::Letter;
    for (unsigned c = '0'; c <= '9'; ++c)
        table[c] = CharClass::Digit;
    table['.'] = table['_'] = CharClass::NamePart;
    table[' '] = table['\t'] = table['\v'] = table['\f'] = CharClass::Space;
    table['\r'] = table['\n'] = CharClass::LineEnd;
    return table;
}();

constexpr CharClass ClassOf(char c)
{
    return Classes[static_cast<unsigned char>(c)];
}

bool IsNamePart(char c)
{
    const CharClass charClass = ClassOf(c);
    return charClass == CharClass::Letter || charClass == CharClass::Digit || charClass == CharClass::NamePart;
}

bool IsLineEnd(char c)
{
    return ClassOf(c) == CharClass::LineEnd;
}

bool IsDigit(char c)
{
    return ClassOf(c) == CharClass::Digit;
}

// The suffix of the fields of a struct, which also follows the $ of a field's name.
bool StartsWithStruct(std::string_view text)
{
    constexpr std::string_view suffix = ".struct";
    if (text.size() < suffix.size() || (text.size() > suffix.size() && IsNamePart(text[suffix.size()])))
        return false;
    return std::equal(suffix.begin(), suffix.end(), text.begin(),
                      [](char a, char b) { return a == b || (a != '.' && a == (b | 0x20)); });
}

// Of a number that is too large or too small to be held: whether it is the latter.
bool IsBelowOne(std::string_view written)
{
    const std::size_t mark = std::min(written.find('e'), written.find('E'));
    const std::string_view digits = written.substr(0, mark);
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::size_t first = std::min(digits.find_first_not_of("0."), digits.size());
    std::int64_t exponent = 0;
    if (mark != std::string_view::npos) {
        const bool hasPlus = written[mark + 1] == '+';
        const std::string_view power = written.substr(mark + (hasPlus ? 2 : 1));
        if (std::from_chars(power.data(), power.data() + power.size(), exponent).ec != std::errc())
            return power.front() == '-';
    }
    return exponent + static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first) < 0;
}

// The value of digits with at most one point and one exponent, whose mark may be d. Infinite when it is too large.
double ValueOf(std::string_view digits)
{
    constexpr std::size_t exactDigits = 15;
    if (digits.size() <= exactDigits && std::ranges::all_of(digits, IsDigit)) {
        std::int64_t whole = 0;
        for (const char c : digits)
            whole = 10 * whole + (c - '0');
        return static_cast<double>(whole);
    }
    std::string written(digits);
    const std::size_t mark = written.find_first_of("dD");
    if (mark != std::string::npos)
        written[mark] = 'e';
    double value = 0;
    const auto [end, error] = std::from_chars(written.data(), written.data() + written.size(), value);
    if (error != std::errc::result_out_of_range)
        return value;
    return IsBelowOne(written) ? 0 : std::numeric_limits<double>::infinity();
}

} // namespace

cScanner::cScanner(std::string_view source, cNames& knownNames) : text(source), names(knownNames) {}

Token cScanner::Taken(TokenKind kind, std::size_t end)
{
    Token token;
    token.kind = kind;
    token.offset = static_cast<std::uint32_t>(at);
    token.length = static_cast<std::uint32_t>(end - at);
    at = end;
    return token;
}

Token cScanner::Named(TokenKind kind, std::size_t end, std::string_view name)
{
    Token token = Taken(kind, end);
    token.name = names.Intern(name);
    return token;
}

void cScanner::SkipLine()
{
    while (at < text.size() && !IsLineEnd(text[at]))
        ++at;
}

// Whether nothing but spaces and a comment is on the line from the place on.
bool cScanner::IsEndOfLineFrom(std::size_t place) const
{
    while (place < text.size() && ClassOf(text[place]) == CharClass::Space)
        ++place;
    return place >= text.size() || text[place] == '\'' || IsLineEnd(text[place]);
}

// Moves over what counts as nothing. False when there is a token there, true when it has to be looked at again.
bool cScanner::SkipToToken()
{
    while (at < text.size() && ClassOf(text[at]) == CharClass::Space)
        ++at;
    if (at >= text.size())
        return false;
    if (text[at] == '\'') {
        SkipLine();
        return false;
    }
    if (text[at] != '_' || !IsEndOfLineFrom(at + 1))
        return false;
    SkipLine();
    if (at < text.size())
        at += text.substr(at, 2) == "\r\n" ? 2 : 1;
    return true;
}

Token cScanner::Next()
{
    while (SkipToToken()) {
    }
    if (at >= text.size())
        return Taken(TokenKind::EndOfText, at);
    const char c = text[at];
    switch (ClassOf(c)) {
    case CharClass::Letter:
        return NameToken();
    case CharClass::Digit:
        return NumberToken();
    case CharClass::LineEnd:
        return LineEndToken();
    default:
        break;
    }
    switch (c) {
    case '"':
        return TextToken();
    case '#':
        return HandleToken();
    case '[':
        return LabelToken();
    case '_':
        return ConstantToken();
    case '.':
        return IsDigit(ByteAt(at + 1)) ? NumberToken() : Taken(TokenKind::Unknown, at + 1);
    default:
        return SignToken();
    }
}

Token cScanner::LineEndToken()
{
    Token token = Taken(TokenKind::EndOfLine, at + (text.substr(at, 2) == "\r\n" ? 2 : 1));
    token.length = 0;
    return token;
}

// The end of a name's letters, digits, points and underscores; the last underscore of a line is its continuation.
std::size_t cScanner::NameEnd(std::size_t from) const
{
    std::size_t end = from;
    while (end < text.size() && IsNamePart(text[end]))
        ++end;
    if (end > from && text[end - 1] == '_' && IsEndOfLineFrom(end))
        --end;
    return end;
}

Token cScanner::NameToken()
{
    std::size_t end = NameEnd(at);
    if (ByteAt(end) == '$') {
        ++end;
        if (StartsWithStruct(text.substr(end)))
            end = NameEnd(end);
    }
    return Named(TokenKind::Name, end, text.substr(at, end - at));
}

Token cScanner::NumberToken()
{
    std::size_t end = at;
    while (IsDigit(ByteAt(end)))
        ++end;
    if (ByteAt(end) == '.')
        ++end;
    while (IsDigit(ByteAt(end)))
        ++end;
    const char mark = static_cast<char>(ByteAt(end) | 0x20);
    if (mark == 'e' || mark == 'd') {
        const bool hasSign = ByteAt(end + 1) == '+' || ByteAt(end + 1) == '-';
        std::size_t digits = end + (hasSign ? 2 : 1);
        if (IsDigit(ByteAt(digits))) {
            while (IsDigit(ByteAt(digits)))
                ++digits;
            end = digits;
        }
    }
    const double value = ValueOf(text.substr(at, end - at));
    Token token = Taken(TokenKind::Number, end);
    token.number = value;
    return token;
}

Token cScanner::TextToken()
{
    std::size_t end = at + 1;
    while (end < text.size() && text[end] != '"' && !IsLineEnd(text[end]))
        ++end;
    if (ByteAt(end) == '"')
        return Taken(TokenKind::Text, end + 1);
    return Taken(TokenKind::OpenText, end);
}

Token cScanner::LabelToken()
{
    std::size_t end = at + 1;
    while (end < text.size() && text[end] != ']' && text[end] != '[' && !IsLineEnd(text[end]))
        ++end;
    if (ByteAt(end) != ']' || end == at + 1)
        return Taken(TokenKind::Unknown, at + 1);
    return Named(TokenKind::Label, end + 1, text.substr(at, end + 1 - at));
}

Token cScanner::HandleToken()
{
    std::size_t end = NameEnd(at + 1);
    if (end == at + 1)
        return Taken(TokenKind::Unknown, at + 1);
    const bool isVariable = ByteAt(end) == '$' && ClassOf(text[at + 1]) == CharClass::Letter;
    end += isVariable;
    return Named(isVariable ? TokenKind::HandleOf : TokenKind::Handle, end, text.substr(at + 1, end - at - 1));
}

Token cScanner::ConstantToken()
{
    const std::size_t end = NameEnd(at + 1);
    if (end == at + 1)
        return Taken(TokenKind::Unknown, at + 1);
    return Named(TokenKind::Constant, end, text.substr(at, end - at));
}

Token cScanner::SignToken()
{
    const char next = ByteAt(at + 1);
    switch (text[at]) {
    case ':':
        return Taken(TokenKind::Colon, at + 1);
    case ',':
        return Taken(TokenKind::Comma, at + 1);
    case ';':
        return Taken(TokenKind::Semicolon, at + 1);
    case '(':
        return Taken(TokenKind::LeftParenthesis, at + 1);
    case ')':
        return Taken(TokenKind::RightParenthesis, at + 1);
    case '|':
        return Taken(TokenKind::Bar, at + 1);
    case '+':
        return Taken(TokenKind::Plus, at + 1);
    case '-':
        return Taken(TokenKind::Minus, at + 1);
    case '*':
        return Taken(TokenKind::Star, at + 1);
    case '/':
        return Taken(TokenKind::Slash, at + 1);
    case '^':
        return Taken(TokenKind::Caret, at + 1);
    case '=':
        return Taken(TokenKind::Equal, at + 1);
    case '<':
        return next == '>'   ? Taken(TokenKind::NotEqual, at + 2)
               : next == '=' ? Taken(TokenKind::LessEqual, at + 2)
                             : Taken(TokenKind::Less, at + 1);
    case '>':
        return next == '=' ? Taken(TokenKind::GreaterEqual, at + 2) : Taken(TokenKind::Greater, at + 1);
    default:
        return Taken(TokenKind::Unknown, at + 1);
    }
}

Token cScanner::DataItem()
{
    while (SkipToToken()) {
    }
    if (ByteAt(at) == '"') {
        Token token = TextToken();
        if (token.kind == TokenKind::Text) {
            ++token.offset;
            token.length -= 2;
        }
        return token;
    }
    std::size_t end = at;
    while (end < text.size() && text[end] != ',' && text[end] != ':' && text[end] != '\'' && !IsLineEnd(text[end]) &&
           !(text[end] == '_' && IsEndOfLineFrom(end + 1)))
        ++end;
    Token token = Taken(TokenKind::Text, end);
    while (token.length > 0 && ClassOf(text[token.offset + token.length - 1]) == CharClass::Space)
        --token.length;
    return token;
}

} // namespace ob::basic
