// SPDX-License-Identifier: GPL-3.0-or-later
// Which entry of a list of colours is nearest to a colour.
#include "imaging/modNearest.h"

#include "imaging/modSimd.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <numeric>

namespace ob {

namespace {

constexpr std::int32_t CellSide = 16;
// The lists of palettes beyond any file format could exhaust memory.
constexpr std::size_t MostBlocks = 1 << 16;

std::int32_t CityBlock(PaletteEntry one, PaletteEntry other)
{
    return std::abs(one.red - other.red) + std::abs(one.green - other.green) + std::abs(one.blue - other.blue);
}

struct Best {
    std::int32_t distance = FarthestCityBlock;
    std::int32_t index = 0;
};

Best ClosestFrom(std::span<const PaletteEntry> entries, std::size_t first, PaletteEntry color, Best best)
{
    for (std::size_t index = first; index < entries.size(); ++index) {
        const std::int32_t distance = CityBlock(entries[index], color);
        if (distance < best.distance)
            best = {distance, static_cast<std::int32_t>(index) + 1};
    }
    return best;
}

#ifdef OB_X86
// Eight entries at a time; each lane keeps the first of its best.
OB_TARGET("avx2")
Best ClosestOfEights(std::span<const PaletteEntry> entries, PaletteEntry color)
{
    const __m256i spareless = _mm256_set1_epi32(0x00FFFFFF);
    const __m256i wanted = _mm256_set1_epi32(color.red | color.green << 8 | color.blue << 16);
    const __m256i ones8 = _mm256_set1_epi8(1);
    const __m256i ones16 = _mm256_set1_epi16(1);
    __m256i bestDistance = _mm256_set1_epi32(FarthestCityBlock);
    __m256i bestIndex = _mm256_setzero_si256();
    __m256i index = _mm256_setr_epi32(1, 2, 3, 4, 5, 6, 7, 8);
    for (std::size_t start = 0; start + 8 <= entries.size(); start += 8) {
        const auto* source = reinterpret_cast<const __m256i*>(entries.data() + start);
        const __m256i eight = _mm256_and_si256(_mm256_loadu_si256(source), spareless);
        const __m256i apart = _mm256_or_si256(_mm256_subs_epu8(eight, wanted), _mm256_subs_epu8(wanted, eight));
        const __m256i distance = _mm256_madd_epi16(_mm256_maddubs_epi16(apart, ones8), ones16);
        const __m256i isLess = _mm256_cmpgt_epi32(bestDistance, distance);
        bestDistance = _mm256_min_epi32(bestDistance, distance);
        bestIndex = _mm256_blendv_epi8(bestIndex, index, isLess);
        index = _mm256_add_epi32(index, _mm256_set1_epi32(8));
    }
    alignas(32) std::int32_t distances[8];
    alignas(32) std::int32_t laneIndices[8];
    _mm256_store_si256(reinterpret_cast<__m256i*>(distances), bestDistance);
    _mm256_store_si256(reinterpret_cast<__m256i*>(laneIndices), bestIndex);
    Best best;
    for (int lane = 0; lane < 8; ++lane) {
        const bool isNearer = distances[lane] < best.distance;
        const bool isEarlier = distances[lane] == best.distance && best.index != 0 && laneIndices[lane] < best.index;
        if (isNearer || isEarlier)
            best = {distances[lane], laneIndices[lane]};
    }
    return best;
}
#endif

// How near and how far a value from low to low + 15 can be.
std::int32_t LeastApart(std::int32_t value, std::int32_t low)
{
    return std::max({low - value, value - (low + CellSide - 1), 0});
}

std::int32_t MostApart(std::int32_t value, std::int32_t low)
{
    return std::max(value - low, low + CellSide - 1 - value);
}

} // namespace

std::int32_t ClosestEntry(std::span<const PaletteEntry> entries, PaletteEntry color)
{
    color.spare = 0;
#ifdef OB_X86
    if (HasAvx2())
        return ClosestFrom(entries, entries.size() / 8 * 8, color, ClosestOfEights(entries, color)).index;
#endif
    return ClosestFrom(entries, 0, color, {}).index;
}

cNearest::cNearest(std::span<const PaletteEntry> entries, Distance distance) : metric(distance)
{
    // An earlier duplicate of a colour wins every tie.
    std::vector<bool> isMet(std::size_t{1} << 24);
    for (std::size_t index = 0; index < entries.size(); ++index) {
        const PaletteEntry& entry = entries[index];
        const std::size_t color = std::size_t{entry.red} << 16 | std::size_t{entry.green} << 8 | entry.blue;
        if (isMet[color])
            continue;
        isMet[color] = true;
        indices.push_back(static_cast<std::uint32_t>(index));
        channels[0].push_back(entry.red);
        channels[1].push_back(entry.green);
        channels[2].push_back(entry.blue);
    }
    least.resize(indices.size());
}

std::int32_t cNearest::DistanceOf(std::int32_t red, std::int32_t green, std::int32_t blue) const
{
    return metric == Distance::CityBlock ? std::abs(red) + std::abs(green) + std::abs(blue)
                                         : red * red + green * green + blue * blue;
}

// No colour of the cell is farther from its nearest entry than the smallest of the entries' greatest distances. A
// palette that fits into one block needs no selection.
void cNearest::SelectCandidates(std::array<std::int32_t, 3> low)
{
    std::int32_t bound = std::numeric_limits<std::int32_t>::max();
    for (std::size_t index = 0; index < indices.size(); ++index) {
        const std::int32_t red = channels[0][index];
        const std::int32_t green = channels[1][index];
        const std::int32_t blue = channels[2][index];
        least[index] = DistanceOf(LeastApart(red, low[0]), LeastApart(green, low[1]), LeastApart(blue, low[2]));
        bound = std::min(bound, DistanceOf(MostApart(red, low[0]), MostApart(green, low[1]), MostApart(blue, low[2])));
    }
    candidates.clear();
    for (std::size_t index = 0; index < indices.size(); ++index) {
        if (least[index] <= bound || indices.size() <= 16)
            candidates.push_back(static_cast<std::uint32_t>(index));
    }
}

// A list in palette order resolves ties like the whole list, so any cell may use the whole one. Cells with most of the
// colours as candidates do, and all cells once the lists of a huge palette have filled their space.
void cNearest::MakeCell(std::size_t number)
{
    const auto cell = static_cast<std::int32_t>(number);
    SelectCandidates({(cell >> 8) * CellSide, (cell >> 4 & 15) * CellSide, (cell & 15) * CellSide});
    const bool isShort = candidates.size() * 4 <= indices.size() * 3;
    if (isShort && blocks.size() + candidates.size() / 16 < MostBlocks) {
        cells[number] = AddBlocks(candidates);
        return;
    }
    if (whole.blockCount == 0) {
        std::vector<std::uint32_t> all(indices.size());
        std::iota(all.begin(), all.end(), 0U);
        whole = AddBlocks(all);
    }
    cells[number] = whole;
}

cNearest::Cell cNearest::AddBlocks(const std::vector<std::uint32_t>& entries)
{
    const std::size_t blockCount = (entries.size() + 15) / 16;
    const Cell cell{static_cast<std::uint32_t>(blocks.size()), static_cast<std::uint32_t>(blockCount)};
    for (std::size_t block = 0; block < blockCount; ++block) {
        NearestBlock& made = blocks.emplace_back();
        for (std::size_t lane = 0; lane < 16; ++lane) {
            const std::uint32_t entry = entries[std::min(block * 16 + lane, entries.size() - 1)];
            made.red[lane] = channels[0][entry];
            made.green[lane] = channels[1][entry];
            made.blue[lane] = channels[2][entry];
            places.push_back(indices[entry]);
            colors.push_back(std::uint32_t{made.red[lane]} << 16 | std::uint32_t{made.green[lane]} << 8 |
                             made.blue[lane]);
        }
    }
    return cell;
}

std::int32_t cNearest::Find(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    if (indices.empty())
        return -1;
    const Cell& cell = CellOf(red, green, blue);
    const NearestBlock* block = Blocks(cell);
    std::int32_t best = metric == Distance::CityBlock ? FarthestCityBlock : std::numeric_limits<std::int32_t>::max();
    std::int64_t bestPlace = -1;
    for (std::uint32_t place = 0; place < cell.blockCount * 16; ++place) {
        const NearestBlock& of = block[place / 16];
        const std::int32_t distance =
            DistanceOf(of.red[place % 16] - red, of.green[place % 16] - green, of.blue[place % 16] - blue);
        if (distance < best) {
            best = distance;
            bestPlace = place;
        }
    }
    return bestPlace < 0 ? -1 : static_cast<std::int32_t>(EntryAt(cell, static_cast<std::uint32_t>(bestPlace)));
}

} // namespace ob
