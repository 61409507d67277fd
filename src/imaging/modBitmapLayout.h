// SPDX-License-Identifier: GPL-3.0-or-later
// The layout of a bitmap file's pixels, from its headers.
#pragma once

#include "imaging/modBitmapFile.h"

#include <array>
#include <cstdint>
#include <variant>

namespace ob {

enum class BitmapPacking { Indexed, RunLengths, TrueColor, Masks };

struct BitmapLayout {
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool topDown = false;
    int bits = 0;
    BitmapPacking packing = BitmapPacking::Indexed;
    std::array<std::uint32_t, 3> masks = {};                  // blue, green, red
    std::array<std::array<std::uint8_t, 3>, 256> colors = {}; // blue, green, red
    ByteView pixels;                                          // as many as the file has

    // A line of the file, a multiple of 4 bytes.
    std::int64_t LineBytes() const { return (std::int64_t{width} * bits + 31) / 32 * 4; }
};

// Parses the headers and the colour table; the sizes are checked against the bytes. The layout refers to them.
std::variant<BitmapLayout, BitmapError> ReadBitmapLayout(ByteView file);
std::variant<BitmapLayout, BitmapError> ReadBitmapLayout(const BitmapParts& parts);

} // namespace ob
