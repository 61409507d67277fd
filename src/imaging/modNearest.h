// SPDX-License-Identifier: GPL-3.0-or-later
// Which entry of a list of colours is nearest to a colour: once, or for a whole picture.
#pragma once

#include "imaging/modPaletteEntry.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace ob {

enum class Distance {
    CityBlock, // the sum of the channels' differences; must be below 765 to count
    Squared    // the sum of their squares
};

// The city-block distance from which on a colour has no nearest entry.
constexpr std::int32_t FarthestCityBlock = 765;

// The index (from 1) of the entry with the least city-block distance, the first of several; 0 when all are at the
// maximum distance.
std::int32_t ClosestEntry(std::span<const PaletteEntry> entries, PaletteEntry color);

// Sixteen entries that can be nearest to the colours of one cell, channel by channel. Unused places repeat the last
// entry.
struct alignas(64) NearestBlock {
    std::array<std::uint8_t, 16> red;
    std::array<std::uint8_t, 16> green;
    std::array<std::uint8_t, 16> blue;
};

// For pictures: the colour cube is divided into 16 x 16 x 16 cells, each with the list of the entries that can be
// nearest to a colour in it, in their order. A cell's list is built when one of its colours is first looked up.
class cNearest {
public:
    // The entries must outlive the object.
    cNearest(std::span<const PaletteEntry> entries, Distance distance);

    // The index from 0 of the nearest entry, the first of several; -1 when none counts.
    std::int32_t Find(std::uint8_t red, std::uint8_t green, std::uint8_t blue);

    struct Cell {
        std::uint32_t firstBlock = 0;
        std::uint32_t blockCount = 0; // 0: not built yet
    };
    // All colours in one block, for lists that fit into one: every cell is then this one.
    bool HasOneBlock() const { return indices.size() <= 16 && !indices.empty(); }
    const Cell& OnlyCell()
    {
        if (cells[0].blockCount == 0)
            MakeCell(0);
        return cells[0];
    }
    const Cell& CellOf(std::uint32_t red, std::uint32_t green, std::uint32_t blue)
    {
        const std::size_t number = red >> 4 << 8 | green >> 4 << 4 | blue >> 4;
        if (cells[number].blockCount == 0) [[unlikely]]
            MakeCell(number);
        return cells[number];
    }
    const NearestBlock* Blocks(const Cell& cell) const { return blocks.data() + cell.firstBlock; }
    // The entry of a place in the cell's blocks, 16 places a block.
    std::uint32_t EntryAt(const Cell& cell, std::uint32_t place) const
    {
        return places[std::size_t{cell.firstBlock} * 16 + place];
    }
    // The colours of the cell's places: blue in the low byte, then green and red.
    const std::uint32_t* Colors(const Cell& cell) const { return colors.data() + std::size_t{cell.firstBlock} * 16; }

private:
    void MakeCell(std::size_t number);
    Cell AddBlocks(const std::vector<std::uint32_t>& entries);
    void SelectCandidates(std::array<std::int32_t, 3> low);
    std::int32_t DistanceOf(std::int32_t red, std::int32_t green, std::int32_t blue) const;

    Distance metric;
    // The distinct colours, each at its first index.
    std::vector<std::uint32_t> indices;
    std::array<std::vector<std::uint8_t>, 3> channels;
    // What building a cell needs.
    std::vector<std::int32_t> least;
    std::vector<std::uint32_t> candidates;
    std::array<Cell, 4096> cells = {};
    Cell whole; // all colours, for the cells without a shorter list worth keeping
    std::vector<NearestBlock> blocks;
    std::vector<std::uint32_t> places;
    std::vector<std::uint32_t> colors;
};

} // namespace ob
