// SPDX-License-Identifier: GPL-3.0-or-later
// The language's colours: sixteen names and the system's button face.
#pragma once

#include <QString>

#include <array>
#include <cstdint>
#include <string_view>

namespace ob {

// A colour in the form that the language and the edit control use: red in the low byte.
using ColorRef = std::uint32_t;

constexpr ColorRef Rgb(unsigned red, unsigned green, unsigned blue)
{
    return red | (green << 8) | (blue << 16);
}

// The language's sixteen colours and the system's button face, in step. Index 0 to 16.
inline constexpr int ColorCount = 17;
inline constexpr std::array<ColorRef, ColorCount> ColorValue = {
    Rgb(0, 0, 0),     Rgb(255, 255, 255), Rgb(192, 192, 192), Rgb(128, 128, 128), Rgb(255, 0, 0),   Rgb(128, 0, 0),
    Rgb(255, 255, 0), Rgb(128, 128, 0),   Rgb(0, 255, 0),     Rgb(0, 128, 0),     Rgb(0, 255, 255), Rgb(0, 128, 128),
    Rgb(0, 0, 255),   Rgb(0, 0, 128),     Rgb(255, 0, 255),   Rgb(128, 0, 128),   0x8000000F};
inline constexpr std::array<std::string_view, ColorCount> ColorName = {
    "Black",     "White", "Lightgray", "Darkgray", "Red",      "Darkred", "Yellow",   "Brown",     "Green",
    "Darkgreen", "Cyan",  "Darkcyan",  "Blue",     "Darkblue", "Pink",    "Darkpink", "Buttonface"};

// The value of the colour with that name, case-sensitive; 0 for an unknown name.
ColorRef ColorFromName(const QString& name);

// The name of a colour whose value is given as decimal text; empty for an unknown one.
QString NameFromColor(const QString& text);

} // namespace ob
