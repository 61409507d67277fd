// SPDX-License-Identifier: GPL-3.0-or-later
// The search that takes no notice of case in any script.
#include "editor/modFoldedSearch.h"

#include "platform/modRuntime.h"

#include <QChar>

#include <algorithm>

namespace ob {

namespace {

constexpr unsigned char FirstBeyondAscii = 0x80;
constexpr char32_t FirstMalformed = QChar::LastValidCodePoint + 1;

struct Decoded {
    char32_t folded = 0;
    qsizetype length = 0;
};

// The length of a character by its first byte; 1 for a byte that starts none.
qsizetype LengthBy(unsigned char lead)
{
    if (lead < 0xC2 || lead > 0xF4)
        return 1;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

char32_t FoldAscii(unsigned char byte)
{
    return static_cast<unsigned char>(LowerAscii(static_cast<char>(byte)));
}

Decoded DecodeFolded(QByteArrayView text, qsizetype at)
{
    const auto byteAt = [&](qsizetype place) { return static_cast<unsigned char>(text[place]); };
    const unsigned char lead = byteAt(at);
    if (lead < FirstBeyondAscii)
        return {FoldAscii(lead), 1};
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
    return {character > QChar::LastValidCodePoint ? character : QChar::toCaseFolded(character), length};
}

// Where the match that starts at `at` ends; nothing when there is none.
std::optional<qsizetype> MatchEnd(QByteArrayView text, const FoldedText& folded, qsizetype at)
{
    for (const char32_t wanted : folded) {
        if (at >= text.size())
            return std::nullopt;
        const Decoded here = DecodeFolded(text, at);
        if (here.folded != wanted)
            return std::nullopt;
        at += here.length;
    }
    return at;
}

} // namespace

FoldedText FoldCase(QByteArrayView text)
{
    FoldedText folded;
    for (qsizetype at = 0; at < text.size();) {
        const Decoded here = DecodeFolded(text, at);
        folded.push_back(here.folded);
        at += here.length;
    }
    return folded;
}

std::optional<ByteRange> FindFolded(QByteArrayView text, const FoldedText& folded, qsizetype from)
{
    if (folded.empty())
        return std::nullopt;
    const char32_t first = folded.front();
    for (qsizetype at = std::max<qsizetype>(from, 0); at < text.size();) {
        const auto lead = static_cast<unsigned char>(text[at]);
        // Most of a program is ASCII, which needs no decoding.
        if (lead < FirstBeyondAscii && FoldAscii(lead) != first) {
            ++at;
            continue;
        }
        const Decoded here = DecodeFolded(text, at);
        if (here.folded == first)
            if (const auto end = MatchEnd(text, folded, at))
                return ByteRange{at, *end};
        at += here.length;
    }
    return std::nullopt;
}

} // namespace ob
