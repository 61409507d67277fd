// SPDX-License-Identifier: GPL-3.0-or-later
// The binary palette file.
#include "imaging/modPaletteBinary.h"

#include "imaging/cByteReader.h"
#include "imaging/cByteWriter.h"

#include <algorithm>
#include <cstring>

namespace ob {

namespace {

constexpr std::size_t CountBytes = 4;

static_assert(sizeof(PaletteEntry) == 4);

} // namespace

BinaryPalette ReadBinaryPalette(ByteView bytes)
{
    BinaryPalette palette;
    if (bytes.size() < CountBytes)
        return palette;
    const std::int32_t count = cByteReader(bytes).SignedLong(0);
    if (count < 1 || count > MostBinaryEntries)
        return palette;
    palette.entries.resize(static_cast<std::size_t>(count));
    const std::size_t wanted = palette.entries.size() * sizeof(PaletteEntry);
    const std::size_t found = std::min(wanted, bytes.size() - CountBytes);
    if (found != 0)
        std::memcpy(palette.entries.data(), bytes.data() + CountBytes, found);
    palette.state = found == wanted ? BinaryPaletteState::Whole : BinaryPaletteState::CutShort;
    palette.byteCount = CountBytes + wanted;
    return palette;
}

std::vector<std::uint8_t> WriteBinaryPalette(std::span<const PaletteEntry> entries)
{
    cByteWriter writer;
    writer.Reserve(CountBytes + entries.size_bytes());
    writer.Long(static_cast<std::uint32_t>(entries.size()));
    for (const PaletteEntry& entry : entries)
        writer.Byte(entry.red).Byte(entry.green).Byte(entry.blue).Byte(entry.spare);
    return writer.Take();
}

} // namespace ob
