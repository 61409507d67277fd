// SPDX-License-Identifier: GPL-3.0-or-later
// The icons in programs and libraries of the NE format: one table, with a block per type and a row per resource.
#include "imagetools/icons/modNeIcons.h"

#include "imaging/cByteReader.h"

namespace ob {

namespace {

constexpr std::size_t HeaderBytes = 64;
constexpr std::size_t BlockBytes = 8;
constexpr std::size_t RowBytes = 12;
constexpr std::uint16_t NumberBit = 0x8000; // of a type or a resource with a number instead of a text
// Places and lengths are counted in units of a power of two; the highest used by linkers is far below.
constexpr unsigned MostShift = 16;
// The table's texts are found by offsets of 16 bits from its start.
constexpr std::size_t MostTableBytes = 1 << 16;

// Lengths are rounded up to whole units, so the last resource may appear to extend beyond the end.
ByteRange ResourceAt(const ByteRange& file, const cByteReader& row, unsigned shift)
{
    return file.From(std::uint64_t{row.Word(0)} << shift, std::uint64_t{row.Word(2)} << shift);
}

} // namespace

IconTable ReadNeIcons(const cByteSource& file, std::uint64_t header)
{
    const ByteRange headerPlace = file.All().At(header, HeaderBytes);
    if (headerPlace.IsEmpty())
        return {};
    const std::vector<std::uint8_t> headerBytes = file.Bytes(headerPlace);
    const cByteReader fields(headerBytes);
    constexpr std::uint16_t signature = 'N' | 'E' << 8;
    const std::uint64_t tableOffset = fields.Word(36);
    const std::uint64_t namesOffset = fields.Word(38);
    // A program without resources has its names where the table would be.
    if (fields.Word(0) != signature || tableOffset == 0 || tableOffset == namesOffset)
        return {};
    const std::vector<std::uint8_t> rows = file.Bytes(file.All().From(header + tableOffset, MostTableBytes));
    const cByteReader reader(rows);
    const unsigned shift = reader.Word(0);
    if (shift > MostShift)
        return {};

    IconTable table;
    std::size_t place = 2;
    while (!BytesAt(rows, place, BlockBytes).empty() && reader.Word(place) != 0) {
        const auto type = static_cast<std::uint16_t>(reader.Word(place) ^ NumberBit);
        const std::size_t count = reader.Word(place + 2);
        place += BlockBytes;
        if (BytesAt(rows, place, count * RowBytes).empty() && count != 0)
            break;
        for (std::size_t index = 0; index < count; ++index, place += RowBytes) {
            const cByteReader row(BytesAt(rows, place, RowBytes));
            const std::uint16_t name = row.Word(6);
            if (type == GroupResource)
                table.groups.push_back(ResourceAt(file.All(), row, shift));
            else if (type == ImageResource && (name & NumberBit) != 0)
                table.images.emplace_back(static_cast<std::uint16_t>(name ^ NumberBit),
                                          ResourceAt(file.All(), row, shift));
        }
    }
    table.SortImages();
    return table;
}

} // namespace ob
