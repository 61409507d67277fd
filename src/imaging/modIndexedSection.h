// SPDX-License-Identifier: GPL-3.0-or-later
// A picture of 1, 4 or 8 bits a pixel with its colour table, on its way into a file.
#pragma once

#include "imaging/cBytes.h"
#include "imaging/cDIBSection.h"
#include "imaging/modPaletteEntry.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace ob {

enum class CopyBack { No, Yes };

class cIndexedSection {
public:
    // A slot of the table in the order of the file: what it calls the first byte is blue for every reader.
    using Slot = std::array<std::uint8_t, 4>;

    // Bits are 1, 4 or 8; the table is filled up with black to 2, 16 or 256 slots, or cut to as many.
    // HasMemory is false when there is not enough of it.
    cIndexedSection(std::int32_t sectionWidth, std::int32_t sectionHeight, int bits, std::span<const Slot> table);
    bool HasMemory() const { return pixels.Data() != nullptr; }

    // Each pixel takes the slot with the least squared distance, the first of several; on request the picture takes
    // the slot's colour.
    void TakePicture(cDIBSection& picture, CopyBack copyBack);

    // Writes file header, information block and pixels. The block of pixels is as long as the file's own rule makes
    // it, which is not the length of the section: it is cut, or filled up with zeros. Raises error 17 when the file
    // cannot be opened.
    bool WriteFile(const std::string& fileName, const FileWriter& write) const;

    // The length of the file's block of pixels.
    std::int32_t FilePixelBytes() const;

private:
    void PackLine(std::int32_t y, std::span<const std::uint8_t> indices);

    std::int32_t width;
    std::int32_t height;
    int bitCount;
    std::int64_t lineBytes;
    std::vector<Slot> slots;
    cBytes pixels;
};

} // namespace ob
