// SPDX-License-Identifier: GPL-3.0-or-later
// ANSI text to UTF-8 and back, a block of ASCII at a time.
#include "platform/language/modAnsi.h"

#include "platform/language/cLines.h"
#include "platform/language/modAnsiSystem.h"
#include "platform/language/modAsciiBlocks.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

namespace ob {

namespace {

// A code page of single bytes; its lower half is ASCII.
class CodePage {
public:
    explicit CodePage(const std::array<char16_t, 256>& characters)
    {
        pages.resize(pageSize);
        for (std::size_t number = 0x80; number < 256; ++number) {
            const char16_t character = characters[number];
            SetUtf8(utf8[number - 0x80], character);
            std::uint8_t& page = pageOf[character >> 8];
            if (page == 0) {
                page = static_cast<std::uint8_t>(pages.size() / pageSize);
                pages.resize(pages.size() + pageSize);
            }
            pages[page * pageSize + (character & 0xFF)] = static_cast<char>(number);
        }
    }

    // The UTF-8 form of a byte above 7F: two or three bytes; the fourth is the length.
    const std::array<char, 4>& Utf8Of(unsigned char byte) const { return utf8[byte - 0x80U]; }

    // The byte of a character above 7F; NUL when the code page lacks it.
    char ByteOf(char32_t character) const
    {
        return character > 0xFFFF ? '\0' : pages[pageOf[character >> 8] * pageSize + (character & 0xFF)];
    }

private:
    static constexpr std::size_t pageSize = 256;

    static void SetUtf8(std::array<char, 4>& bytes, char16_t character)
    {
        if (character < 0x800) {
            bytes = {static_cast<char>(0xC0 | (character >> 6)), static_cast<char>(0x80 | (character & 0x3F)), 0, 2};
        } else {
            bytes = {static_cast<char>(0xE0 | (character >> 12)), static_cast<char>(0x80 | ((character >> 6) & 0x3F)),
                     static_cast<char>(0x80 | (character & 0x3F)), 3};
        }
    }

    std::array<std::array<char, 4>, 128> utf8 = {};
    // Characters back to bytes, 256 to a page; page 0 is the empty one.
    std::array<std::uint8_t, 256> pageOf = {};
    std::vector<char> pages;
};

const CodePage& AnsiCodePage()
{
    static const CodePage page(CharactersOfBytes());
    return page;
}

// One UTF-8 character read from at least one byte; the length is 0 when the bytes are malformed.
struct Utf8Character {
    char32_t character;
    std::size_t length;
};

inline Utf8Character ReadUtf8(const char* bytes, std::size_t length)
{
    const auto at = [bytes](std::size_t index) { return static_cast<unsigned char>(bytes[index]); };
    const auto follows = [&](std::size_t index) { return (at(index) & 0xC0U) == 0x80U; };
    const unsigned first = at(0);
    if (first < 0x80)
        return {first, 1};
    if (first >= 0xC2 && first < 0xE0 && length >= 2 && follows(1))
        return {((first & 0x1FU) << 6) | (at(1) & 0x3FU), 2};
    if (first >= 0xE0 && first < 0xF0 && length >= 3 && follows(1) && follows(2)) {
        const char32_t character = ((first & 0x0FU) << 12) | ((at(1) & 0x3FU) << 6) | (at(2) & 0x3FU);
        const bool isSurrogate = character >= 0xD800 && character < 0xE000;
        return {character, character >= 0x800 && !isSurrogate ? 3U : 0U};
    }
    if (first >= 0xF0 && first < 0xF5 && length >= 4 && follows(1) && follows(2) && follows(3)) {
        const char32_t character =
            ((first & 0x07U) << 18) | ((at(1) & 0x3FU) << 12) | ((at(2) & 0x3FU) << 6) | (at(3) & 0x3FU);
        return {character, character >= 0x10000 && character < 0x110000 ? 4U : 0U};
    }
    return {first, 0};
}

// The number, from 1, of the line that the position is in.
int LineAt(QByteArrayView text, std::size_t position)
{
    cLines lines(text.first(static_cast<qsizetype>(position) + 1));
    while (lines.Next()) {
    }
    return lines.Number() + 1;
}

QByteArray DecodeSingleBytes(QByteArrayView ansi, std::size_t asciiLength)
{
    const CodePage& page = AnsiCodePage();
    const auto length = static_cast<std::size_t>(ansi.size());
    const char* source = ansi.data();
    // The fixed three-byte copy below may write one byte too many after a two-byte character.
    const std::size_t room = length + 2 * HighCount(source, length) + 1;
    QByteArray result(static_cast<qsizetype>(room), Qt::Uninitialized);
    char* target = result.data();
    std::memcpy(target, source, asciiLength);
    target += asciiLength;
    std::size_t position = asciiLength;
    while (position < length) {
        const std::array<char, 4>& utf8 = page.Utf8Of(static_cast<unsigned char>(source[position]));
        std::memcpy(target, utf8.data(), 3);
        target += utf8[3];
        ++position;
        if (position == length || !IsAscii(source[position]))
            continue;
        const std::size_t copied = CopyAscii(target, source + position, length - position);
        target += copied;
        position += copied;
    }
    result.resize(target - result.constData());
    return result;
}

AnsiText EncodeSingleBytes(QByteArrayView utf8, std::size_t asciiLength)
{
    const CodePage& page = AnsiCodePage();
    const auto length = static_cast<std::size_t>(utf8.size());
    const char* source = utf8.data();
    AnsiText result{QByteArray(utf8.size(), Qt::Uninitialized)};
    char* target = result.bytes.data();
    std::memcpy(target, source, asciiLength);
    target += asciiLength;
    std::size_t position = asciiLength;
    while (position < length) {
        const Utf8Character read = ReadUtf8(source + position, length - position);
        const char byte = read.length == 0 ? '\0' : page.ByteOf(read.character);
        if (byte == '\0') {
            if (result.lostCount++ == 0)
                result.firstLostLine = LineAt(utf8, position);
        }
        *target++ = byte == '\0' ? '?' : byte;
        position += std::max<std::size_t>(read.length, 1);
        if (position == length || !IsAscii(source[position]))
            continue;
        const std::size_t copied = CopyAscii(target, source + position, length - position);
        target += copied;
        position += copied;
    }
    result.bytes.resize(target - result.bytes.constData());
    return result;
}

QByteArray DecodeMultiByte(QByteArrayView ansi, const MultiByteCodePage& page)
{
    const std::u16string text = page.decode(std::string_view(ansi.data(), static_cast<std::size_t>(ansi.size())));
    return QStringView(text).toUtf8();
}

AnsiText EncodeMultiByte(QByteArrayView utf8, const MultiByteCodePage& page)
{
    AnsiText result;
    const auto length = static_cast<std::size_t>(utf8.size());
    for (std::size_t position = 0; position < length;) {
        const Utf8Character read = ReadUtf8(utf8.data() + position, length - position);
        const std::string bytes = read.length == 0 ? std::string() : page.encode(read.character);
        if (bytes.empty() && result.lostCount++ == 0)
            result.firstLostLine = LineAt(utf8, position);
        result.bytes += bytes.empty() ? QByteArrayView("?") : QByteArrayView(bytes.data(), bytes.size());
        position += std::max<std::size_t>(read.length, 1);
    }
    return result;
}

// For a text that is not all ASCII; its first asciiLength bytes are.
QByteArray DecodeBeyondAscii(QByteArrayView ansi, std::size_t asciiLength)
{
    const MultiByteCodePage* page = SystemMultiByteCodePage();
    return page != nullptr ? DecodeMultiByte(ansi, *page) : DecodeSingleBytes(ansi, asciiLength);
}

AnsiText EncodeBeyondAscii(QByteArrayView utf8, std::size_t asciiLength)
{
    const MultiByteCodePage* page = SystemMultiByteCodePage();
    return page != nullptr ? EncodeMultiByte(utf8, *page) : EncodeSingleBytes(utf8, asciiLength);
}

std::size_t AsciiLengthOf(QByteArrayView bytes)
{
    return AsciiLength(bytes.data(), static_cast<std::size_t>(bytes.size()));
}

} // namespace

QByteArray DecodeAnsi(QByteArrayView ansi)
{
    const std::size_t asciiLength = AsciiLengthOf(ansi);
    if (asciiLength == static_cast<std::size_t>(ansi.size()))
        return ansi.toByteArray();
    return DecodeBeyondAscii(ansi, asciiLength);
}

QByteArray DecodeAnsi(const QByteArray& ansi)
{
    const std::size_t asciiLength = AsciiLengthOf(ansi);
    if (asciiLength == static_cast<std::size_t>(ansi.size()))
        return ansi;
    return DecodeBeyondAscii(ansi, asciiLength);
}

AnsiText EncodeAnsi(QByteArrayView utf8)
{
    const std::size_t asciiLength = AsciiLengthOf(utf8);
    if (asciiLength == static_cast<std::size_t>(utf8.size()))
        return {utf8.toByteArray()};
    return EncodeBeyondAscii(utf8, asciiLength);
}

AnsiText EncodeAnsi(const QByteArray& utf8)
{
    const std::size_t asciiLength = AsciiLengthOf(utf8);
    if (asciiLength == static_cast<std::size_t>(utf8.size()))
        return {utf8};
    return EncodeBeyondAscii(utf8, asciiLength);
}

QString TextFromAnsi(QByteArrayView ansi)
{
    return QString::fromUtf8(DecodeAnsi(ansi));
}

AnsiText AnsiFromText(QStringView text)
{
    if (text.isValidUtf16())
        return EncodeAnsi(text.toUtf8());
    // Qt replaces an unpaired surrogate and does not report it; a byte that never occurs in UTF-8 counts as lost.
    QByteArray utf8;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const bool isPair =
            text[index].isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate();
        if (text[index].isSurrogate() && !isPair) {
            utf8 += '\xFF';
            continue;
        }
        utf8 += text.mid(index, isPair ? 2 : 1).toUtf8();
        index += isPair ? 1 : 0;
    }
    return EncodeAnsi(utf8);
}

} // namespace ob
