// SPDX-License-Identifier: GPL-3.0-or-later
// Turns pictures grey, black and white, or into the colours of a palette, with error diffusion. They stay at 24 bits.
#pragma once

#include "imaging/cDIBSection.h"
#include "imaging/cPalette.h"
#include "imaging/modProgress.h"

namespace ob {

enum class Dither { Off, On };

// Source and target are pictures of one size, or one picture; afterwards both contain the result. The sizes may differ
// as long as the source has memory for each of the target's pixels; otherwise, and without pixels, the subscript error
// is raised.
// Progress positions are byte offsets in a line, in steps of 3.
class cColourReduceDIB {
public:
    ProgressEvents events;

    // In place; weights 0.707 green, 0.222 red, 0.071 blue, halves to even.
    void GrayScale(cDIBSection& picture) const;

    // Raises the events of GrayScale first, then its own.
    void BlackAndWhite(cDIBSection& source, cDIBSection& target) const;

    // Raises the subscript error for a colour without a nearest entry; both pictures are then unfinished.
    void ApplyPalette(cDIBSection& source, cDIBSection& target, const cPalette& palette, Dither dither) const;
};

} // namespace ob
