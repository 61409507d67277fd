// SPDX-License-Identifier: GPL-3.0-or-later
// The binary palette file: a count of 32 bits, then four bytes per entry.
#pragma once

#include "imaging/modFileAccess.h"
#include "imaging/modPaletteEntry.h"

#include <cstddef>
#include <vector>

namespace ob {

// The greatest count that a reader accepts.
constexpr std::int32_t MostBinaryEntries = 4097;

enum class BinaryPaletteState {
    Whole,
    BadCount, // fewer than four bytes for the count, or it is below 1 or above the limit
    CutShort  // the entries end early; those missing, wholly or in part, are zeros
};

struct BinaryPalette {
    BinaryPaletteState state = BinaryPaletteState::BadCount;
    std::vector<PaletteEntry> entries;
    std::size_t byteCount = 0; // of a complete palette: its size in the file
};

// The palette at the start of the bytes; more bytes may follow it.
BinaryPalette ReadBinaryPalette(ByteView bytes);

std::vector<std::uint8_t> WriteBinaryPalette(std::span<const PaletteEntry> entries);

} // namespace ob
