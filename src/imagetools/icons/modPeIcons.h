// SPDX-License-Identifier: GPL-3.0-or-later
// The icons in programs and libraries of the PE format, 32 and 64 bits.
#pragma once

#include "imagetools/icons/modIconTable.h"

#include <cstddef>

namespace ob {

// The table of a program whose PE header starts at that place; empty for anything else. Loops, and offsets beyond the
// end, result in icons without an image. Of an icon in several languages the first counts.
IconTable ReadPeIcons(ByteView file, std::size_t header);

} // namespace ob
