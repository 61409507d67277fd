// SPDX-License-Identifier: GPL-3.0-or-later
// Turning ANSI text into UTF-8 and back, a machine word of ASCII at a time.
#include "platform/language/modAnsi.h"

#include "platform/language/cLines.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <vector>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#define OB_HAS_SSE2 1
#endif

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

namespace ob {

namespace {

#ifndef Q_OS_WIN
// What the bytes 80 to 9F mean in windows-1252; all other bytes are the characters of their own number.
constexpr std::array<char16_t, 32> windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
#endif

// A code page of single bytes, its lower half being ASCII.
class CodePage {
public:
    explicit CodePage(const std::array<char16_t, 256>& meanings)
    {
        pages.resize(pageSize);
        for (std::size_t number = 0x80; number < 256; ++number) {
            const char16_t character = meanings[number];
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

#ifdef Q_OS_WIN
// The system's own code page, as far as it is one of single bytes.
CodePage SystemCodePage()
{
    std::array<char16_t, 256> meanings = {};
    for (unsigned number = 0; number < 256; ++number) {
        const char byte = static_cast<char>(number);
        wchar_t character = static_cast<wchar_t>(number);
        MultiByteToWideChar(CP_ACP, 0, &byte, 1, &character, 1);
        meanings[number] = static_cast<char16_t>(character);
    }
    return CodePage(meanings);
}

bool SystemHasSingleBytes()
{
    CPINFO info = {};
    return !GetCPInfo(CP_ACP, &info) || info.MaxCharSize == 1;
}
#else
CodePage SystemCodePage()
{
    std::array<char16_t, 256> meanings = {};
    for (std::size_t number = 0; number < 256; ++number)
        meanings[number] = number >= 0x80 && number < 0xA0 ? windows1252[number - 0x80] : static_cast<char16_t>(number);
    return CodePage(meanings);
}
#endif

const CodePage& AnsiCodePage()
{
    static const CodePage page = SystemCodePage();
    return page;
}

bool IsAscii(char byte)
{
    return static_cast<signed char>(byte) >= 0;
}

// How many bytes at the start are ASCII.
std::size_t AsciiLength(const char* bytes, std::size_t length)
{
    std::size_t position = 0;
#ifdef OB_HAS_SSE2
    const auto load = [&](std::size_t offset) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + position + offset));
    };
    for (; position + 64 <= length; position += 64) {
        const __m128i all = _mm_or_si128(_mm_or_si128(load(0), load(16)), _mm_or_si128(load(32), load(48)));
        if (_mm_movemask_epi8(all) != 0)
            break;
    }
    for (; position + 16 <= length; position += 16) {
        const auto high = static_cast<unsigned>(_mm_movemask_epi8(load(0)));
        if (high != 0)
            return position + static_cast<std::size_t>(std::countr_zero(high));
    }
#else
    for (; position + 8 <= length; position += 8) {
        std::uint64_t word;
        std::memcpy(&word, bytes + position, 8);
        if ((word & 0x8080808080808080U) != 0)
            break;
    }
#endif
    while (position < length && IsAscii(bytes[position]))
        ++position;
    return position;
}

// How many bytes are above 7F.
std::size_t HighCount(const char* bytes, std::size_t length)
{
    std::size_t count = 0;
    std::size_t position = 0;
    for (; position + 8 <= length; position += 8) {
        std::uint64_t word;
        std::memcpy(&word, bytes + position, 8);
        count += static_cast<std::size_t>(std::popcount(word & 0x8080808080808080U));
    }
    for (; position < length; ++position)
        count += IsAscii(bytes[position]) ? 0 : 1;
    return count;
}

// Copies ASCII from source to target up to the first other byte and gives how many bytes that was. Writes behind that
// many bytes too, but never more than the length.
std::size_t CopyAscii(char* target, const char* source, std::size_t length)
{
    std::size_t position = 0;
#ifdef OB_HAS_SSE2
    for (; position + 16 <= length; position += 16) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + position));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(target + position), block);
        const auto high = static_cast<unsigned>(_mm_movemask_epi8(block));
        if (high != 0)
            return position + static_cast<std::size_t>(std::countr_zero(high));
    }
#else
    for (; position + 8 <= length; position += 8) {
        std::uint64_t word;
        std::memcpy(&word, source + position, 8);
        if ((word & 0x8080808080808080U) != 0)
            break;
        std::memcpy(target + position, &word, 8);
    }
#endif
    for (; position < length && IsAscii(source[position]); ++position)
        target[position] = source[position];
    return position;
}

// One character of UTF-8 read from at least one byte; the length is 0 when the bytes are malformed.
struct Utf8Character {
    char32_t character;
    std::size_t length;
};

Utf8Character ReadUtf8(const char* bytes, std::size_t length)
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

// The number, from 1, of the line that the position lies in.
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
    // The fixed three-byte copy below may write one byte too many behind a two-byte character.
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

#ifdef Q_OS_WIN
// Code pages with characters of several bytes go through the system, a character or a text at a time.
QByteArray DecodeSeveralBytes(QByteArrayView ansi)
{
    const int length = static_cast<int>(ansi.size());
    const int wideLength = MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, nullptr, 0);
    QString text(wideLength, Qt::Uninitialized);
    MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, reinterpret_cast<wchar_t*>(text.data()), wideLength);
    return text.toUtf8();
}

AnsiText EncodeSeveralBytes(QByteArrayView utf8)
{
    AnsiText result;
    const bool pageIsUtf8 = GetACP() == CP_UTF8;
    const auto length = static_cast<std::size_t>(utf8.size());
    for (std::size_t position = 0; position < length;) {
        const Utf8Character read = ReadUtf8(utf8.data() + position, length - position);
        char bytes[8] = {};
        int count = 0;
        if (read.length != 0) {
            const QString character = QString::fromUcs4(&read.character, 1);
            BOOL isLost = FALSE;
            count = WideCharToMultiByte(
                CP_ACP, pageIsUtf8 ? 0 : WC_NO_BEST_FIT_CHARS, reinterpret_cast<const wchar_t*>(character.constData()),
                static_cast<int>(character.size()), bytes, sizeof bytes, nullptr, pageIsUtf8 ? nullptr : &isLost);
            if (isLost)
                count = 0;
        }
        if (count == 0 && result.lostCount++ == 0)
            result.firstLostLine = LineAt(utf8, position);
        result.bytes += count == 0 ? QByteArrayView("?") : QByteArrayView(bytes, count);
        position += std::max<std::size_t>(read.length, 1);
    }
    return result;
}
#endif

// For a text that holds more than ASCII, its first part being ASCII of that length.
QByteArray DecodeBeyondAscii(QByteArrayView ansi, std::size_t asciiLength)
{
#ifdef Q_OS_WIN
    if (!SystemHasSingleBytes())
        return DecodeSeveralBytes(ansi);
#endif
    return DecodeSingleBytes(ansi, asciiLength);
}

AnsiText EncodeBeyondAscii(QByteArrayView utf8, std::size_t asciiLength)
{
#ifdef Q_OS_WIN
    if (!SystemHasSingleBytes())
        return EncodeSeveralBytes(utf8);
#endif
    return EncodeSingleBytes(utf8, asciiLength);
}

std::size_t AsciiLength(QByteArrayView bytes)
{
    return AsciiLength(bytes.data(), static_cast<std::size_t>(bytes.size()));
}

} // namespace

QByteArray DecodeAnsi(QByteArrayView ansi)
{
    const std::size_t asciiLength = AsciiLength(ansi);
    if (asciiLength == static_cast<std::size_t>(ansi.size()))
        return ansi.toByteArray();
    return DecodeBeyondAscii(ansi, asciiLength);
}

QByteArray DecodeAnsi(const QByteArray& ansi)
{
    const std::size_t asciiLength = AsciiLength(ansi);
    if (asciiLength == static_cast<std::size_t>(ansi.size()))
        return ansi;
    return DecodeBeyondAscii(ansi, asciiLength);
}

AnsiText EncodeAnsi(QByteArrayView utf8)
{
    const std::size_t asciiLength = AsciiLength(utf8);
    if (asciiLength == static_cast<std::size_t>(utf8.size()))
        return {utf8.toByteArray()};
    return EncodeBeyondAscii(utf8, asciiLength);
}

AnsiText EncodeAnsi(const QByteArray& utf8)
{
    const std::size_t asciiLength = AsciiLength(utf8);
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
    // Qt turns an unpaired surrogate into another character without a word; a byte that UTF-8 never holds counts.
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
