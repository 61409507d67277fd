// SPDX-License-Identifier: GPL-3.0-or-later
// The layout of a bitmap file's pixels, from its headers.
#include "imaging/modBitmapLayout.h"

#include "imaging/cByteReader.h"
#include "imaging/modBitmapHeaders.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace ob {

namespace {

constexpr std::uint32_t CoreHeaderSize = 12;
constexpr std::uint32_t LeastHeaderSize = 16;
constexpr std::uint32_t MaskedHeaderSize = 52; // from here on the masks are in the header
constexpr std::uint32_t OldSystemHeaderSize = 64;
constexpr std::uint32_t MostHeaderSize = 4096;
enum Compression : std::uint32_t { Plain = 0, RunLengths8 = 1, RunLengths4 = 2, BitFields = 3, AlphaBitFields = 6 };

struct Headers {
    std::uint32_t size = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;
    int bits = 0;
    std::uint32_t compression = Plain;
    std::uint32_t colorsUsed = 0;
};

std::optional<Headers> ReadHeaders(ByteView info)
{
    const cByteReader reader(info);
    Headers headers;
    headers.size = reader.Long(0);
    const bool isKnown =
        headers.size == CoreHeaderSize || (headers.size >= LeastHeaderSize && headers.size <= MostHeaderSize);
    if (!isKnown || headers.size > info.size())
        return {};
    const cByteReader fields(info.first(headers.size));
    if (headers.size == CoreHeaderSize) {
        headers.width = fields.Word(4);
        headers.height = fields.Word(6);
        headers.bits = fields.Word(10);
        return headers;
    }
    headers.width = fields.SignedLong(4);
    headers.height = fields.SignedLong(8);
    headers.bits = fields.Word(14);
    headers.compression = fields.Long(16);
    headers.colorsUsed = fields.Long(32);
    return headers;
}

// The bytes between a short header and the colour table.
std::size_t MaskBytesAfter(const Headers& headers)
{
    if (headers.size >= MaskedHeaderSize)
        return 0;
    return headers.compression == BitFields ? 12 : headers.compression == AlphaBitFields ? 16 : 0;
}

std::optional<BitmapPacking> PackingOf(const Headers& headers)
{
    const bool isOldSystem = headers.size == OldSystemHeaderSize || headers.size < InfoHeaderSize;
    switch (headers.compression) {
    case Plain:
        if (headers.bits == 1 || headers.bits == 4 || headers.bits == 8)
            return BitmapPacking::Indexed;
        if (headers.bits == 24)
            return BitmapPacking::TrueColor;
        if (headers.bits == 16 || headers.bits == 32)
            return BitmapPacking::Masks;
        return {};
    case RunLengths8:
        return headers.bits == 8 ? std::optional(BitmapPacking::RunLengths) : std::nullopt;
    case RunLengths4:
        return headers.bits == 4 ? std::optional(BitmapPacking::RunLengths) : std::nullopt;
    case BitFields:
    case AlphaBitFields:
        // In the older system these numbers have other meanings.
        if (!isOldSystem && (headers.bits == 16 || headers.bits == 32))
            return BitmapPacking::Masks;
        return {};
    default:
        return {};
    }
}

// A number that lies in the header's part, or goes on in the pixels' where a damaged bitmap has no masks.
std::uint32_t LongIn(const BitmapParts& parts, std::size_t offset)
{
    std::array<std::uint8_t, 4> bytes;
    for (std::uint8_t& byte : bytes) {
        byte = offset < parts.info.size() ? parts.info[offset]
                                          : cByteReader(parts.pixels).Byte(offset - parts.info.size());
        ++offset;
    }
    return cByteReader(bytes).Long(0);
}

std::array<std::uint32_t, 3> MasksOf(const Headers& headers, const BitmapParts& parts)
{
    if (headers.compression == Plain) {
        return headers.bits == 16 ? std::array<std::uint32_t, 3>{0x1F, 0x3E0, 0x7C00}
                                  : std::array<std::uint32_t, 3>{0xFF, 0xFF00, 0xFF0000};
    }
    return {LongIn(parts, InfoHeaderSize + 8), LongIn(parts, InfoHeaderSize + 4), LongIn(parts, InfoHeaderSize)};
}

// The colour table as far as it goes, and its end.
std::size_t ReadColors(const Headers& headers, ByteView info, std::size_t pixelOffset, BitmapLayout& layout)
{
    const std::size_t start = headers.size + MaskBytesAfter(headers);
    if (headers.bits > 8)
        return start;
    const std::size_t entryBytes = headers.size == CoreHeaderSize ? 3 : 4;
    const std::size_t most = std::size_t{1} << headers.bits;
    std::size_t count = headers.colorsUsed == 0 ? most : std::min<std::size_t>(headers.colorsUsed, most);
    if (pixelOffset >= start)
        count = std::min(count, (pixelOffset - start) / entryBytes);
    const cByteReader reader(info);
    for (std::size_t index = 0; index < count; ++index) {
        for (std::size_t channel = 0; channel < 3; ++channel)
            layout.colors[index][channel] = reader.Byte(start + index * entryBytes + channel);
    }
    return start + count * entryBytes;
}

// Whether the file is large enough for its header's claims.
bool HasEnoughPixels(const BitmapLayout& layout)
{
    const std::int64_t pictureBytes = std::int64_t{layout.width} * layout.height * 3;
    if (pictureBytes <= static_cast<std::int64_t>(UncheckedPictureBytes))
        return true;
    const auto available = static_cast<std::int64_t>(layout.pixels.size());
    // Two bytes encode at most 255 pixels.
    constexpr std::int64_t pictureBytesPerRunByte = 255 * 3 / 2 + 1;
    if (layout.packing == BitmapPacking::RunLengths)
        return pictureBytes / pictureBytesPerRunByte <= available;
    return layout.LineBytes() * layout.height / 4 <= available;
}

// The pixels start at a distance from the header's start, which may lie in either part.
std::variant<BitmapLayout, BitmapError> LayoutOf(const BitmapParts& parts, std::size_t pixelOffset)
{
    const std::optional<Headers> headers = ReadHeaders(parts.info);
    if (!headers)
        return BitmapError::UnknownHeader;
    const std::optional<BitmapPacking> packing = PackingOf(*headers);
    if (!packing)
        return BitmapError::UnknownFormat;

    BitmapLayout layout;
    const std::int64_t height = headers->height < 0 ? -headers->height : headers->height;
    constexpr std::int64_t longestBlock = std::numeric_limits<std::int32_t>::max();
    if (headers->width < 1 || height < 1 || ((headers->width * 3 + 3) & ~3LL) > longestBlock / height)
        return BitmapError::BadSize;
    layout.width = static_cast<std::int32_t>(headers->width);
    layout.height = static_cast<std::int32_t>(height);
    layout.topDown = headers->height < 0;
    layout.bits = headers->bits;
    layout.packing = *packing;
    layout.masks = MasksOf(*headers, parts);
    const std::size_t colorsEnd = ReadColors(*headers, parts.info, pixelOffset, layout);
    // Pixels that would start within the header start after the table.
    if (pixelOffset < headers->size)
        pixelOffset = colorsEnd;
    layout.pixels = parts.pixels.empty() ? parts.info.subspan(std::min(pixelOffset, parts.info.size())) : parts.pixels;
    if (!HasEnoughPixels(layout))
        return BitmapError::TooShort;
    return layout;
}

} // namespace

std::variant<BitmapLayout, BitmapError> ReadBitmapLayout(ByteView file)
{
    const cByteReader reader(file);
    if (file.size() < FileHeaderSize + 4 || reader.SignedWord(0) != BitmapFileType)
        return BitmapError::NotABitmap;
    const std::size_t pixelOffset = std::max<std::size_t>(reader.Long(10), FileHeaderSize) - FileHeaderSize;
    return LayoutOf({file.subspan(FileHeaderSize), {}}, pixelOffset);
}

std::variant<BitmapLayout, BitmapError> ReadBitmapLayout(const BitmapParts& parts)
{
    return LayoutOf(parts, parts.info.size());
}

} // namespace ob
