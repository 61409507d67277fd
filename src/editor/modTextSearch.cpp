// SPDX-License-Identifier: GPL-3.0-or-later
// A search of our own.
#include "editor/modTextSearch.h"

#include "platform/language/modRuntime.h"

#include <QChar>

#include <algorithm>

namespace ob {

namespace {

constexpr unsigned char FirstBeyondAscii = 0x80;
constexpr char32_t FirstMalformed = QChar::LastValidCodePoint + 1;

struct Decoded {
    char32_t character = 0;
    qsizetype length = 0;
};

char32_t AsciiBy(CaseRule rule, char byte)
{
    return static_cast<unsigned char>(rule == CaseRule::Folded ? LowerAscii(byte) : byte);
}

// The length of a character by its first byte; 1 for a byte that starts none.
qsizetype LengthBy(unsigned char lead)
{
    if (lead < 0xC2 || lead > 0xF4)
        return 1;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

Decoded DecodeBeyondAscii(QByteArrayView text, qsizetype at, CaseRule rule)
{
    const auto byteAt = [&](qsizetype place) { return static_cast<unsigned char>(text[place]); };
    const unsigned char lead = byteAt(at);
    const Decoded malformed{FirstMalformed + lead, 1};
    const qsizetype length = LengthBy(lead);
    if (length == 1 || at + length > text.size())
        return malformed;
    char32_t character = lead & (0x7Fu >> length);
    for (qsizetype i = 1; i < length; ++i) {
        if ((byteAt(at + i) & 0xC0u) != 0x80u)
            return malformed;
        character = character << 6 | (byteAt(at + i) & 0x3Fu);
    }
    const bool folds = rule == CaseRule::Folded && character <= QChar::LastValidCodePoint;
    return {folds ? QChar::toCaseFolded(character) : character, length};
}

Decoded Decode(QByteArrayView text, qsizetype at, CaseRule rule)
{
    if (static_cast<unsigned char>(text[at]) < FirstBeyondAscii)
        return {AsciiBy(rule, text[at]), 1};
    return DecodeBeyondAscii(text, at, rule);
}

} // namespace

TextPattern::TextPattern(QByteArrayView pattern, CaseRule rule) : caseRule(rule)
{
    for (qsizetype at = 0; at < pattern.size();) {
        const Decoded here = Decode(pattern, at, rule);
        characters.push_back(here.character);
        at += here.length;
    }
    fallback.assign(characters.size() + 1, 0);
    std::size_t matched = 0;
    for (std::size_t i = 1; i < characters.size(); ++i) {
        while (matched > 0 && characters[i] != characters[matched])
            matched = fallback[matched];
        if (characters[i] == characters[matched])
            ++matched;
        fallback[i + 1] = matched;
    }
}

std::optional<ByteRange> TextPattern::FindIn(QByteArrayView text, qsizetype from) const
{
    if (characters.empty())
        return std::nullopt;
    const char32_t first = characters.front();
    // The starts of the last characters, as many as the pattern has.
    std::vector<qsizetype> starts(characters.size());
    std::size_t matched = 0;
    std::size_t count = 0;
    for (qsizetype at = std::max<qsizetype>(from, 0); at < text.size();) {
        // Most of a program is ASCII, and most of that starts no match.
        while (matched == 0 && at < text.size() && static_cast<unsigned char>(text[at]) < FirstBeyondAscii &&
               AsciiBy(caseRule, text[at]) != first)
            ++at;
        if (at == text.size())
            break;
        const Decoded here = Decode(text, at, caseRule);
        starts[count % starts.size()] = at;
        ++count;
        at += here.length;
        while (matched > 0 && here.character != characters[matched])
            matched = fallback[matched];
        if (here.character == characters[matched])
            ++matched;
        if (matched == characters.size())
            return ByteRange{starts[count % starts.size()], at};
    }
    return std::nullopt;
}

} // namespace ob
