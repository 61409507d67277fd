// SPDX-License-Identifier: GPL-3.0-or-later
// The icons in programs and libraries of the older, 16-bit NE format, as icon libraries (.icl) mostly are.
#pragma once

#include "imagetools/icons/modIconTable.h"

namespace ob {

// The table of a program whose NE header starts at that place; empty for anything else. Throws what the source throws.
IconTable ReadNeIcons(const cByteSource& file, std::uint64_t header);

} // namespace ob
