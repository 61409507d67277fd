// SPDX-License-Identifier: GPL-3.0-or-later
// The icons in programs and libraries of the PE format, 32 and 64 bits.
#pragma once

#include "imagetools/icons/modIconTable.h"

namespace ob {

// The table of a program whose PE header starts at that place; empty for anything else. Loops, and offsets beyond the
// end, end in icons without an image. Of an icon in several languages the first counts. Throws what the source throws.
IconTable ReadPeIcons(const cByteSource& file, std::uint64_t header);

} // namespace ob
