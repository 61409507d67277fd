// SPDX-License-Identifier: GPL-3.0-or-later
// The octree that finds a picture's best colours.
#include "imaging/modOctree.h"

#include "imaging/cImagingError.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace ob {

namespace {

constexpr int MostTableLevels = 6;
// This many bytes of 255 add up to less than 2^32.
constexpr std::int64_t MostRecent = 1 << 24;
constexpr std::int64_t Stretch = 3 << 20;

// The path of a channel's value: at each level its range is halved, the middle belonging to the lower half.
std::uint32_t SpreadPath(int value, int levels)
{
    std::uint32_t path = 0;
    double low = 0;
    double high = 255;
    for (int level = 0; level < levels; ++level) {
        const double middle = std::nearbyint(low / 2 + high / 2);
        const bool isUpper = value > middle;
        (isUpper ? low : high) = middle;
        path = path << 3 | static_cast<std::uint32_t>(isUpper);
    }
    return path;
}

std::uint8_t Mean(std::uint64_t sum, std::uint64_t count)
{
    const std::uint64_t whole = sum / count;
    const std::uint64_t twiceRest = sum % count * 2;
    const bool up = twiceRest > count || (twiceRest == count && whole % 2 != 0);
    return static_cast<std::uint8_t>(whole + (up ? 1 : 0));
}

} // namespace

cOctree::cOctree(std::int32_t colorsWanted, int maximumLevel)
    : wanted(colorsWanted), levels(maximumLevel), tableLevels(std::min(maximumLevel, MostTableLevels)),
      tableShift(3 * (levels - tableLevels)), nodes(2), sums(2), recent(2)
{
}

void cOctree::AddPicture(const cDIBSection& picture, const cProgress& progress, const FailureSink& failed)
{
    // Level 9 has no list for nodes that can be folded, which a deeper tree needs for its first colour.
    if (picture.hdc() == 0 || levels < 1 || levels > DeepestOctreeLevel + 1)
        RaiseSubscriptError();
    for (int value = 0; value < 256; ++value)
        spread[static_cast<std::size_t>(value)] = SpreadPath(value, levels);
    table.assign(std::size_t{1} << (3 * tableLevels), 0);
    const std::int64_t perLine = std::int64_t{picture.Width() - 1} * 3 + 1;
    tripleCount = perLine * picture.Height();
    failure = &failed;
    for (std::int32_t y = 0; y < picture.Height(); ++y) {
        for (std::int64_t start = 0; start < perLine; start += Stretch)
            AddStretch(picture.Line(y) + start, std::min(Stretch, perLine - start), y * perLine + start);
        progress.At(y);
    }
    failure = nullptr;
}

void cOctree::AddStretch(const std::uint8_t* bytes, std::int64_t count, std::int64_t ordinal)
{
    sinceSettled += count;
    if (sinceSettled > MostRecent) {
        for (std::size_t node = 1; node < nodes.size(); ++node)
            Settle(static_cast<std::int32_t>(node));
        sinceSettled = count;
    }
    std::int64_t x = 0;
    for (; x + 3 <= count; x += 3) {
        AddColor<0>(bytes + x, ordinal + x);
        AddColor<1>(bytes + x + 1, ordinal + x + 1);
        AddColor<2>(bytes + x + 2, ordinal + x + 2);
    }
    for (; x < count; ++x)
        AddColor<0>(bytes + x, ordinal + x);
}

template <int Phase>
inline void cOctree::AddColor(const std::uint8_t* triple, std::int64_t ordinal)
{
    const std::uint32_t code = spread[triple[2]] | spread[triple[1]] << 1 | spread[triple[0]] << 2;
    std::int32_t leaf = table[code >> tableShift];
    if (leaf <= 0) [[unlikely]]
        leaf = LeafOfNewColor(code, leaf, ordinal);
    auto& packed = recent[static_cast<std::size_t>(leaf)].packed[Phase];
    packed[0] += triple[0] | static_cast<std::uint64_t>(triple[1]) << 32;
    packed[1] += triple[2] | std::uint64_t{1} << 32;
}

std::int32_t cOctree::LeafOf(std::uint32_t code) const
{
    std::int32_t node = table[code >> tableShift];
    if (node >= 0)
        return node;
    node = -node;
    for (int level = tableLevels + 1; node != 0 && !nodes[static_cast<std::size_t>(node)].isLeaf; ++level)
        node = nodes[static_cast<std::size_t>(node)].children[SlotAt(code, level)];
    return node;
}

std::int32_t cOctree::LeafOfNewColor(std::uint32_t code, std::int32_t entry, std::int64_t ordinal)
{
    if (entry < 0) {
        const std::int32_t leaf = LeafOf(code);
        if (leaf != 0)
            return leaf;
    }
    Insert(code);
    while (leafCount > wanted) {
        if (ReduceNode())
            continue;
        // From here on there is always one leaf too many, so each further colour would fail as well.
        if (!hasFailed && *failure)
            (*failure)(tripleCount - ordinal);
        hasFailed = true;
        break;
    }
    return LeafOf(code);
}

void cOctree::Insert(std::uint32_t code)
{
    std::int32_t node = 1;
    for (int level = 1;; ++level) {
        const std::uint32_t slot = SlotAt(code, level);
        std::int32_t child = nodes[static_cast<std::size_t>(node)].children[slot];
        const bool isNew = child == 0;
        if (isNew) {
            child = NewNode(code, level);
            nodes[static_cast<std::size_t>(node)].children[slot] = child;
        }
        OctreeNode& record = nodes[static_cast<std::size_t>(child)];
        if (record.isLeaf) {
            if (isNew)
                ++leafCount;
            return;
        }
        if (!record.isMarked) {
            record.next = reducible[static_cast<std::size_t>(level)];
            reducible[static_cast<std::size_t>(level)] = child;
            record.isMarked = true;
        }
        node = child;
    }
}

std::int32_t cOctree::NewNode(std::uint32_t code, int nodeLevel)
{
    std::int32_t node = freeHead;
    if (node == 0) {
        node = static_cast<std::int32_t>(nodes.size());
        nodes.emplace_back();
        sums.emplace_back();
        recent.emplace_back();
    } else {
        freeHead = nodes[static_cast<std::size_t>(node)].next;
    }
    OctreeNode& record = nodes[static_cast<std::size_t>(node)];
    record = {};
    record.path = code >> (3 * (levels - nodeLevel));
    record.level = static_cast<std::uint8_t>(nodeLevel);
    record.isLeaf = nodeLevel == levels;
    if (record.isLeaf)
        Cover(node);
    else if (nodeLevel == tableLevels)
        table[record.path] = -node;
    return node;
}

// From now on all colours below the node lead to it.
void cOctree::Cover(std::int32_t node)
{
    const OctreeNode& record = nodes[static_cast<std::size_t>(node)];
    if (record.level > tableLevels)
        return;
    const int below = 3 * (tableLevels - record.level);
    const auto start = table.begin() + static_cast<std::ptrdiff_t>(std::size_t{record.path} << below);
    std::fill_n(start, std::ptrdiff_t{1} << below, node);
}

bool cOctree::ReduceNode()
{
    if (levels > DeepestOctreeLevel)
        RaiseSubscriptError();
    int level = levels;
    while (level > 0 && reducible[static_cast<std::size_t>(level)] == 0)
        --level;
    if (level == 0)
        return false;
    const std::int32_t node = reducible[static_cast<std::size_t>(level)];
    OctreeNode& record = nodes[static_cast<std::size_t>(node)];
    reducible[static_cast<std::size_t>(level)] = record.next;
    Sums total;
    for (std::int32_t& child : record.children) {
        if (child == 0)
            continue;
        Settle(child);
        Sums& part = sums[static_cast<std::size_t>(child)];
        total.blue += part.blue;
        total.green += part.green;
        total.red += part.red;
        total.count += part.count;
        part = {};
        FreeNode(child);
        --leafCount;
        child = 0;
    }
    ++leafCount;
    record.isLeaf = true;
    sums[static_cast<std::size_t>(node)] = total;
    Cover(node);
    return true;
}

void cOctree::FreeNode(std::int32_t node)
{
    OctreeNode& record = nodes[static_cast<std::size_t>(node)];
    record.next = freeHead;
    record.isLeaf = false;
    record.isMarked = false;
    freeHead = node;
}

// Moves the recent sums to the leaf's full sums.
void cOctree::Settle(std::int32_t node)
{
    constexpr std::uint64_t lower = 0xFFFFFFFF;
    Sums& total = sums[static_cast<std::size_t>(node)];
    for (auto& packed : recent[static_cast<std::size_t>(node)].packed) {
        total.blue += packed[0] & lower;
        total.green += packed[0] >> 32;
        total.red += packed[1] & lower;
        total.count += packed[1] >> 32;
        packed = {};
    }
}

std::vector<cOctree::Leaf> cOctree::Leaves()
{
    std::vector<Leaf> leaves;
    for (std::size_t node = 1; node < nodes.size(); ++node) {
        if (!nodes[node].isLeaf)
            continue;
        Settle(static_cast<std::int32_t>(node));
        const Sums& sum = sums[node];
        leaves.push_back({static_cast<std::int32_t>(node),
                          {Mean(sum.red, sum.count), Mean(sum.green, sum.count), Mean(sum.blue, sum.count), 0}});
    }
    return leaves;
}

} // namespace ob
