// SPDX-License-Identifier: GPL-3.0-or-later
// A list of colours, entries from 1: fixed palettes, the best one for a picture, the nearest entry, two file formats.
#pragma once

#include "imaging/cDIBSection.h"
#include "imaging/modFileAccess.h"
#include "imaging/modOctree.h"
#include "imaging/modPaletteEntry.h"
#include "imaging/modProgress.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace ob {

class cPalette {
public:
    void Add(std::uint8_t red, std::uint8_t green, std::uint8_t blue);
    void Clear();

    std::int32_t Count() const { return static_cast<std::int32_t>(entries.size()); }
    // An entry's channel, index from 1. Raise the subscript error for an index outside the list.
    std::uint8_t Red(std::int32_t index) const { return EntryAt(index).red; }
    std::uint8_t Green(std::int32_t index) const { return EntryAt(index).green; }
    std::uint8_t Blue(std::int32_t index) const { return EntryAt(index).blue; }
    std::span<const PaletteEntry> Entries() const { return entries; }

    // The index of the entry with the least sum of differences, the first of several; any numbers are allowed. 0 when
    // no sum is below 765.
    std::int32_t ClosestIndex(std::int32_t red, std::int32_t green, std::int32_t blue) const;

    void CreateWebSafe();  // 256 entries, many of them black
    void CreateHalfTone(); // 256 entries, those from 126 on black
    void CreateMono();     // black and white
    void Create16Colour();

    struct OptimalEvents {
        ProgressEvents progress;
        // "Error in reducing nodes" once, with the number of times that it would have occurred. Building continues when
        // this returns.
        cOctree::FailureSink reducingFailed;
    };

    // The best palette for a picture by an octree of that depth. The result may have a few more or fewer colours than
    // wanted. Raises the subscript error, with the entries unchanged, for an impossible depth: 0 and from 10 on at
    // once, 9 when there are more colours than wanted.
    void CreateOptimal(const cDIBSection& picture, std::int32_t colorsWanted, std::uint8_t maximumLevel,
                       const OptimalEvents& events);
    void CreateOptimal(const cDIBSection& picture, std::int32_t colorsWanted, std::uint8_t maximumLevel);

    // The tree of the last CreateOptimal, kept until then.
    const std::vector<OctreeNode>& Nodes() const { return nodes; }
    void EraseNodes();

    // The binary format at a position of a file. On success the position moves to the end of the palette; one below 1
    // counts as 0. False when the file cannot be read, has a count outside 1 to 4097 there (the entries stay), or ends
    // early (missing entries are zeros).
    bool Load(const std::string& fileName, std::int32_t& position, const FileReader& read);
    // With a position of 1 or more, zeros come before it.
    bool Save(const std::string& fileName, std::int32_t position, const FileWriter& write) const;

    // The text format. Always false, also after a good write.
    bool SaveToJASCFile(const std::string& fileName, const FileWriter& write) const;
    // False, with no entries, when the file cannot be read or a line of three parts contains anything but bytes.
    bool LoadFromJASCFile(const std::string& fileName, const FileReader& read);

private:
    const PaletteEntry& EntryAt(std::int32_t index) const;
    void AddDarkColours(std::size_t start);
    void AddBrightColours(std::size_t start);

    std::vector<OctreeNode> nodes;
    std::vector<PaletteEntry> entries;
};

} // namespace ob
