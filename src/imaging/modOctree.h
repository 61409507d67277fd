// SPDX-License-Identifier: GPL-3.0-or-later
// The octree that finds a picture's best colours.
#pragma once

#include "imaging/cDIBSection.h"
#include "imaging/modPaletteEntry.h"
#include "imaging/modProgress.h"

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace ob {

struct OctreeNode {
    std::array<std::int32_t, 8> children = {}; // by red bit + 2 x green bit + 4 x blue bit; 0 is none
    std::int32_t next = 0;                     // in a list of nodes that can be folded, or of free ones
    std::uint32_t path = 0;                    // the bits that lead here, three per level
    std::uint8_t level = 0;
    bool isLeaf = false;
    bool isMarked = false; // is or was in a list of nodes that can be folded
};

// The deepest level of a full tree; level 9 fails as soon as a fold is needed, others at once.
constexpr int DeepestOctreeLevel = 8;

// The tree after a picture was added. Colours are added at every byte of a line, also where the three bytes span two
// pixels, and folded from the deepest level up as soon as there are more leaves than wanted. A colour only adds nodes
// where no leaf covers it yet, and folds are never undone and do not depend on sums; so a table of the first six levels
// leads from a colour to its leaf, and the tree is walked only for new colours.
class cOctree {
public:
    cOctree(std::int32_t colorsWanted, int maximumLevel);

    // Called once, when a fold was needed and no node could be folded; with the number of times that it would have
    // happened.
    using FailureSink = std::function<void(std::int64_t times)>;

    // Adds a picture, reporting the progress of each line. Raises the subscript error for a maximum level beyond the
    // tree, once it is reached.
    void AddPicture(const cDIBSection& picture, const cProgress& progress, const FailureSink& failed);

    struct Leaf {
        std::int32_t node = 0;
        PaletteEntry color; // the mean, halves to even
    };
    // In the order of the nodes.
    std::vector<Leaf> Leaves();

    // Node 1 is the root; the list includes free nodes.
    std::vector<OctreeNode> TakeNodes() { return std::move(nodes); }

private:
    // The sums of a leaf. Neighbours in a line mostly go to the same leaf; three in turn have their own sums, so that
    // adding one need not wait for the one before.
    struct Recent {
        std::array<std::array<std::uint64_t, 2>, 3> packed = {}; // blue and green, red and count, 32 bits each
    };
    struct Sums {
        std::uint64_t blue = 0;
        std::uint64_t green = 0;
        std::uint64_t red = 0;
        std::uint64_t count = 0;
    };

    template <int Phase>
    void AddColor(const std::uint8_t* triple, std::int64_t ordinal);
    void AddStretch(const std::uint8_t* bytes, std::int64_t count, std::int64_t ordinal);
    std::int32_t LeafOf(std::uint32_t code) const;
    std::int32_t LeafOfNewColor(std::uint32_t code, std::int32_t entry, std::int64_t ordinal);
    void Insert(std::uint32_t code);
    std::int32_t NewNode(std::uint32_t code, int nodeLevel);
    bool ReduceNode();
    void FreeNode(std::int32_t node);
    void Cover(std::int32_t node);
    void Settle(std::int32_t node);
    std::uint32_t SlotAt(std::uint32_t code, int nodeLevel) const { return code >> (3 * (levels - nodeLevel)) & 7U; }

    std::int32_t wanted;
    int levels;
    int tableLevels;
    int tableShift;
    std::array<std::uint32_t, 256> spread = {}; // a channel's path through the tree, one bit in three
    std::vector<std::int32_t> table; // 0: not seen; positive: the leaf; negative: the inner node at the table's depth
    std::vector<OctreeNode> nodes;
    std::vector<Sums> sums;
    std::vector<Recent> recent;
    std::array<std::int32_t, DeepestOctreeLevel + 1> reducible = {};
    std::int32_t freeHead = 0;
    std::int32_t leafCount = 0;
    std::int64_t tripleCount = 0;
    std::int64_t sinceSettled = 0;
    const FailureSink* failure = nullptr;
    bool hasFailed = false;
};

} // namespace ob
