// SPDX-License-Identifier: GPL-3.0-or-later
// Error diffusion from grey to black and white.
#pragma once

#include "imaging/cDIBSection.h"

#include <array>
#include <cstdint>
#include <vector>

namespace ob {

// Computes the target's lines from those of a grey source of its size, from the bottom line up. The diffusion is
// defined column by column; line by line, a pixel receives its shares in the same order: 1/16 from the pixel to the
// left in the line before, 7/16 from the left, 5/16 from the line before, each truncated and clamped separately. The
// 3/16 that goes back to the left is too late to matter. The first and last columns receive nothing. The source does
// not change.
class cBlackAndWhiteLines {
public:
    cBlackAndWhiteLines(const cDIBSection& greySource, cDIBSection& result);

    // Called for all lines in order, band by band.
    void Make(std::int32_t firstLine, std::int32_t endLine);

private:
    // A line in progress.
    struct Line {
        const std::uint8_t* source = nullptr;
        std::uint8_t* target = nullptr;
        std::uint8_t left = 0;       // the value at the column before
        std::uint8_t beforeLeft = 0; // the same in the line before
    };

    template <int Lines>
    void MakeTogether(std::int32_t firstLine);
    void Step(Line& line, std::int32_t column, bool takesShares);

    const cDIBSection& source;
    cDIBSection& target;
    // What a pixel's value passes on, by weight.
    std::array<std::int16_t, 256> share1;
    std::array<std::int16_t, 256> share5;
    std::array<std::int16_t, 256> share7;
    // The values of the line before, errors included; 0 passes nothing on.
    std::vector<std::uint8_t> before;
};

} // namespace ob
