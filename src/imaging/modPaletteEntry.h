// SPDX-License-Identifier: GPL-3.0-or-later
// One colour of a palette, as laid out in memory and in a binary palette file.
#pragma once

#include <cstdint>

namespace ob {

struct PaletteEntry {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t spare = 0;

    bool operator==(const PaletteEntry&) const = default;
};

} // namespace ob
