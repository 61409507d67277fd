// SPDX-License-Identifier: GPL-3.0-or-later
// The binary palette file: a count of 32 bits, then four bytes an entry.
#pragma once

#include "imaging/modFileAccess.h"
#include "imaging/modPaletteEntry.h"

#include <cstddef>
#include <vector>

namespace ob {

// The greatest count that a reader takes.
constexpr std::int32_t MostBinaryEntries = 4097;

enum class BinaryPaletteState {
    Whole,
    BadCount, // there are no four bytes for the count, or it is below 1 or above the limit
    CutShort  // the entries end early; those that are missing, in whole or in part, are zeros
};

struct BinaryPalette {
    BinaryPaletteState state = BinaryPaletteState::BadCount;
    std::vector<PaletteEntry> entries;
    std::size_t byteCount = 0; // of a whole palette: what it takes up in the file
};

// The palette that starts at the bytes' start; more bytes may follow it.
BinaryPalette ReadBinaryPalette(ByteView bytes);

std::vector<std::uint8_t> WriteBinaryPalette(std::span<const PaletteEntry> entries);

} // namespace ob
