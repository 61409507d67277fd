// SPDX-License-Identifier: GPL-3.0-or-later
// The text palette file.
#include "imaging/modPaletteText.h"

#include <array>

namespace ob {

namespace {

constexpr std::string_view LineEnd = "\r\n";

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

// Removes the digits at the start of the text and returns them.
std::string_view TakeDigits(std::string_view& text)
{
    std::size_t count = 0;
    while (count < text.size() && IsDigit(text[count]))
        ++count;
    const std::string_view digits = text.substr(0, count);
    text.remove_prefix(count);
    return digits;
}

// Removes the part up to the delimiter, and the delimiter, from the text; the last part has no delimiter, and nothing
// follows it.
std::string_view TakePart(std::string_view& text, std::string_view delimiter, bool& hasMore)
{
    const std::size_t end = text.find(delimiter);
    hasMore = end != std::string_view::npos;
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(hasMore ? end + delimiter.size() : text.size());
    return part;
}

// The three parts of a line; nothing when it has more or fewer.
std::optional<std::array<std::string_view, 3>> ThreeParts(std::string_view line)
{
    std::array<std::string_view, 3> parts;
    bool hasMore = true;
    for (std::string_view& part : parts) {
        if (!hasMore)
            return {};
        part = TakePart(line, " ", hasMore);
    }
    return hasMore ? std::nullopt : std::optional(parts);
}

} // namespace

std::optional<std::uint8_t> ByteOfText(std::string_view text)
{
    const bool isNegative = !text.empty() && text.front() == '-';
    if (isNegative || (!text.empty() && text.front() == '+'))
        text.remove_prefix(1);
    const std::string_view whole = TakeDigits(text);
    std::string_view fraction;
    if (!text.empty() && text.front() == '.') {
        text.remove_prefix(1);
        fraction = TakeDigits(text);
    }
    if (!text.empty() || (whole.empty() && fraction.empty()))
        return {};

    constexpr int tooMuch = 1000;
    int value = 0;
    for (const char digit : whole)
        value = value >= tooMuch ? tooMuch : value * 10 + (digit - '0');
    // A double would round a fraction of very many digits to a half.
    const bool isHalfOrMore = !fraction.empty() && fraction.front() >= '5';
    const bool isHalf =
        isHalfOrMore && fraction.front() == '5' && fraction.find_first_not_of('0', 1) == std::string_view::npos;
    if (isHalf ? value % 2 != 0 : isHalfOrMore)
        ++value;
    if (value > 255 || (isNegative && value > 0))
        return {};
    return static_cast<std::uint8_t>(value);
}

std::optional<std::vector<PaletteEntry>> ReadTextPalette(ByteView bytes)
{
    std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    std::vector<PaletteEntry> entries;
    bool hasMore = true;
    while (hasMore) {
        const auto parts = ThreeParts(TakePart(text, LineEnd, hasMore));
        if (!parts)
            continue;
        const auto red = ByteOfText((*parts)[0]);
        const auto green = ByteOfText((*parts)[1]);
        const auto blue = ByteOfText((*parts)[2]);
        if (!red || !green || !blue)
            return {};
        entries.push_back({*red, *green, *blue, 0});
    }
    return entries;
}

std::string WriteTextPalette(std::span<const PaletteEntry> entries)
{
    std::string text = "JASC\r\n0100\r\n" + std::to_string(entries.size());
    for (const PaletteEntry& entry : entries) {
        text += LineEnd;
        text += std::to_string(entry.red) + ' ' + std::to_string(entry.green) + ' ' + std::to_string(entry.blue);
    }
    return text;
}

} // namespace ob
