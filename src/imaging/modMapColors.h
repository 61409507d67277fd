// SPDX-License-Identifier: GPL-3.0-or-later
// Maps the colours of a picture to those of a palette, with or without error diffusion.
#pragma once

#include "imaging/cDIBSection.h"
#include "imaging/modNearest.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace ob {

// Computes the target's lines from those of a source of its size, from the bottom line up. Raises the subscript error
// for a colour without a nearest entry.
//
// The diffusion is defined column by column; line by line, a pixel receives its shares in the same order: 7/16 from the
// left, then 4/16 from the line before, each truncated and clamped separately. The first and last columns receive
// nothing. The source does not change.
class cMappedLines {
public:
    cMappedLines(const cDIBSection& original, cDIBSection& result, std::span<const PaletteEntry> palette);

    // Both are called for all lines in order, band by band.
    void Make(std::int32_t firstLine, std::int32_t endLine);
    void MakeDithered(std::int32_t firstLine, std::int32_t endLine);

private:
    struct Error {
        std::array<std::int8_t, 4> shares = {}; // blue, green, red: the share of the next line
    };
    struct LinePair {
        const std::uint8_t* source = nullptr;
        std::uint8_t* target = nullptr;
    };
    struct VectorSteps;

    void MakeLinePlain(LinePair line);
    void DitherLinePlain(LinePair line);
    std::uint32_t NearestColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue);

    const cDIBSection& source;
    cDIBSection& target;
    std::span<const PaletteEntry> entries;
    cNearest nearest;
    std::vector<Error> before;
};

} // namespace ob
