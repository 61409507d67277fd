// SPDX-License-Identifier: GPL-3.0-or-later
// A picture of 1, 4 or 8 bits per pixel with its colour table, to be written to a file.
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
    // A slot of the table in the order of the file: its first byte is blue for every reader.
    using Slot = std::array<std::uint8_t, 4>;

    // Bits are 1, 4 or 8; the table is padded with black to 2, 16 or 256 slots, or truncated.
    // HasMemory is false when memory is insufficient.
    cIndexedSection(std::int32_t sectionWidth, std::int32_t sectionHeight, int bits, std::span<const Slot> table);
    bool HasMemory() const { return pixels.Data() != nullptr; }

    // Each pixel takes the slot with the least squared distance, the first of several; optionally the picture takes the
    // slot's colour.
    void TakePicture(cDIBSection& picture, CopyBack copyBack);

    // Writes file header, information block and pixels. The length of the block of pixels follows the file's own rule
    // and differs from that of the section: it is truncated, or padded with zeros. Raises error 17 when the file cannot
    // be opened.
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
