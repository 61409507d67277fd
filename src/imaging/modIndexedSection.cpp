// SPDX-License-Identifier: GPL-3.0-or-later
// A picture of 1, 4 or 8 bits per pixel with its colour table.
#include "imaging/modIndexedSection.h"

#include "imaging/cByteWriter.h"
#include "imaging/modBitmapHeaders.h"
#include "imaging/modNearest.h"

#include <algorithm>

namespace ob {

namespace {

// Caches the slots of recently looked-up colours.
class SlotFinder {
public:
    explicit SlotFinder(std::span<const PaletteEntry> colors)
        : nearest(colors, Distance::Squared), known(std::size_t{1} << HashBits, Unknown)
    {
    }

    std::uint8_t Find(const std::uint8_t* pixel)
    {
        const std::uint32_t color = pixel[0] | std::uint32_t{pixel[1]} << 8 | std::uint32_t{pixel[2]} << 16;
        constexpr std::uint32_t scatter = 0x9E3779B1;
        std::uint64_t& entry = known[color * scatter >> (32 - HashBits)];
        if (entry >> 8 != color)
            entry = std::uint64_t{color} << 8 | static_cast<std::uint8_t>(nearest.Find(pixel[2], pixel[1], pixel[0]));
        return static_cast<std::uint8_t>(entry);
    }

private:
    static constexpr int HashBits = 13;
    static constexpr std::uint64_t Unknown = ~std::uint64_t{0};

    cNearest nearest;
    std::vector<std::uint64_t> known; // a colour, and its slot in the low byte
};

} // namespace

cIndexedSection::cIndexedSection(std::int32_t sectionWidth, std::int32_t sectionHeight, int bits,
                                 std::span<const Slot> table)
    : width(sectionWidth), height(sectionHeight), bitCount(bits),
      lineBytes((std::int64_t{sectionWidth} * bits + 31) / 32 * 4), slots(table.begin(), table.end())
{
    slots.resize(std::size_t{1} << bits);
    pixels.Allocate(static_cast<std::size_t>(lineBytes * height));
}

void cIndexedSection::TakePicture(cDIBSection& picture, CopyBack copyBack)
{
    std::vector<PaletteEntry> colors;
    for (const Slot& slot : slots)
        colors.push_back({slot[2], slot[1], slot[0], 0});
    SlotFinder finder(colors);
    std::vector<std::uint8_t> indices(static_cast<std::size_t>(width));
    for (std::int32_t y = 0; y < height; ++y) {
        std::uint8_t* pixel = picture.Line(y);
        for (std::uint8_t& index : indices) {
            index = finder.Find(pixel);
            if (copyBack == CopyBack::Yes)
                std::copy_n(slots[index].begin(), 3, pixel);
            pixel += 3;
        }
        PackLine(y, indices);
    }
}

void cIndexedSection::PackLine(std::int32_t y, std::span<const std::uint8_t> indices)
{
    std::uint8_t* line = pixels.Data() + y * lineBytes;
    if (bitCount == 8) {
        std::copy(indices.begin(), indices.end(), line);
        return;
    }
    const std::size_t perByte = static_cast<std::size_t>(8 / bitCount);
    for (std::size_t start = 0; start < indices.size(); start += perByte) {
        unsigned packed = 0;
        for (std::size_t place = 0; place < perByte; ++place) {
            const unsigned index = start + place < indices.size() ? indices[start + place] : 0U;
            packed = packed << bitCount | index;
        }
        *line++ = static_cast<std::uint8_t>(packed);
    }
}

std::int32_t cIndexedSection::FilePixelBytes() const
{
    // Whole bytes of a line, then not rounded up to a multiple of 4 but increased by the remainder of a division by 4.
    const std::int64_t whole = std::int64_t{width} * bitCount / 8;
    return static_cast<std::int32_t>((whole + whole % 4) * height);
}

bool cIndexedSection::WriteFile(const std::string& fileName, const FileWriter& write) const
{
    BitmapInfoHeader info;
    info.biSize = static_cast<std::int32_t>(InfoHeaderSize);
    info.biWidth = width;
    info.biHeight = height;
    info.biPlanes = 1;
    info.biBitCount = static_cast<std::int16_t>(bitCount);
    info.biSizeImage = FilePixelBytes();
    const auto infoBytes = BytesOf(info);
    cByteWriter table;
    for (const Slot& slot : slots)
        table.Bytes(slot);
    const auto pixelOffset = static_cast<std::int32_t>(FileHeaderSize + InfoHeaderSize + table.Size());
    const auto fileSize = static_cast<std::uint32_t>(info.biSizeImage) + static_cast<std::uint32_t>(pixelOffset);
    const auto header =
        BytesOf(BitmapFileHeader{BitmapFileType, static_cast<std::int32_t>(fileSize), 0, 0, pixelOffset});

    const auto wanted = static_cast<std::size_t>(info.biSizeImage);
    const std::size_t own = std::min(wanted, pixels.Size());
    cBytes beyond;
    if (wanted > own && !beyond.Allocate(wanted - own))
        return false;
    const std::array<ByteView, 5> pieces = {header, infoBytes, table.View(), pixels.View().first(own), beyond.View()};
    const WriteResult result = write(fileName, pieces);
    if (result.outcome != FileOutcome::Done && result.outcome != FileOutcome::Failed)
        RaiseFileNotOpened(result.systemError);
    return result.outcome == FileOutcome::Done;
}

} // namespace ob
