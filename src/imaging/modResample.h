// SPDX-License-Identifier: GPL-3.0-or-later
// Bilinear scaling of pictures.
#pragma once

namespace ob {

class cDIBSection;

// Scales the source to the target's size. Each pixel is blended along the column first, then along the line; both
// blends are rounded, halves to even. Raises the subscript error for a source without pixels or of height or width 1.
void ResampleInto(const cDIBSection& source, cDIBSection& target);

} // namespace ob
