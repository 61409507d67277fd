// SPDX-License-Identifier: GPL-3.0-or-later
// The scanner: the text of a program, a token at a time.
#pragma once

#include "orchard/language/cNames.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace ob::basic {

enum class TokenKind : std::uint8_t {
    EndOfText,
    EndOfLine, // not of a line that goes on in the next one
    Colon,
    Name,     // name; words of the language too
    Number,   // number
    Text,     // offset and length with the quotes
    OpenText, // a text without its second quote, up to the end of the line
    Label,    // name, with the brackets
    Handle,   // name, without the #
    HandleOf, // #name$: the name of the variable
    Constant, // name, with the _
    Comma,
    Semicolon,
    LeftParenthesis,
    RightParenthesis,
    Bar,
    Plus,
    Minus,
    Star,
    Slash,
    Caret,
    Equal,
    NotEqual,
    Less,
    Greater,
    LessEqual,
    GreaterEqual,
    Unknown, // a byte that begins nothing
};

struct Token {
    TokenKind kind = TokenKind::EndOfText;
    std::uint32_t offset = 0;
    std::uint32_t length = 0;
    NameId name = cNames::NoName;
    double number = 0;
};

class cScanner {
public:
    // Both are used as long as the scanner is.
    cScanner(std::string_view text, cNames& names);

    // The next token. Spaces, comments after ' and the ends of lines that go on count as nothing.
    Token Next();

    // Moves to a place where a token starts.
    void MoveTo(std::uint32_t offset) { at = offset; }

    // Moves to the end of the line, without a look at what is on it.
    void SkipLine();

    // One item of a data statement from the scanner's place on, without its quotes and the spaces around it. The next
    // token is what comes after it.
    Token DataItem();

    std::string_view TextOf(const Token& token) const { return text.substr(token.offset, token.length); }
    std::string_view Text() const { return text; }

private:
    bool SkipToToken();
    bool IsEndOfLineFrom(std::size_t place) const;
    std::size_t NameEnd(std::size_t from) const;
    Token Taken(TokenKind kind, std::size_t end);
    Token Named(TokenKind kind, std::size_t end, std::string_view name);
    Token NameToken();
    Token NumberToken();
    Token TextToken();
    Token LabelToken();
    Token HandleToken();
    Token ConstantToken();
    Token SignToken();
    Token LineEndToken();
    char ByteAt(std::size_t place) const { return place < text.size() ? text[place] : '\0'; }

    std::string_view text;
    cNames& names;
    std::size_t at = 0;
};

} // namespace ob::basic
