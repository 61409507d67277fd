// SPDX-License-Identifier: GPL-3.0-or-later
// Grey values of colours.
#pragma once

#include <cstdint>

namespace ob {

// (707 green + 222 red + 71 blue) / 1000, halves to even.
constexpr std::uint8_t GreyOf(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    const unsigned sum = 707U * green + 222U * red + 71U * blue;
    const unsigned whole = sum / 1000;
    const unsigned rest = sum % 1000;
    return static_cast<std::uint8_t>(whole + (rest > 500 || (rest == 500 && whole % 2 != 0) ? 1 : 0));
}

// A line of that many pixels (blue, green, red), in place.
void MakeLineGrey(std::uint8_t* line, std::int32_t width);

} // namespace ob
