// SPDX-License-Identifier: GPL-3.0-or-later
// The two headers of a bitmap file, and their bytes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace ob {

constexpr std::int16_t BitmapFileType = 19778; // "BM"
constexpr std::size_t FileHeaderSize = 14;
constexpr std::size_t InfoHeaderSize = 40;

struct BitmapFileHeader {
    std::int16_t bfType = 0;
    std::int32_t bfSize = 0;
    std::int16_t bfReserved1 = 0;
    std::int16_t bfReserved2 = 0;
    std::int32_t bfOffBits = 0;
};

struct BitmapInfoHeader {
    std::int32_t biSize = 0;
    std::int32_t biWidth = 0;
    std::int32_t biHeight = 0;
    std::int16_t biPlanes = 0;
    std::int16_t biBitCount = 0;
    std::int32_t biCompression = 0;
    std::int32_t biSizeImage = 0;
    std::int32_t biXPelsPerMeter = 0;
    std::int32_t biYPelsPerMeter = 0;
    std::int32_t biClrUsed = 0;
    std::int32_t biClrImportant = 0;
};

// Little-endian numbers from foreign bytes; bytes beyond the end count as zeros.
class cByteReader {
public:
    explicit cByteReader(std::span<const std::uint8_t> content) : bytes(content) {}

    std::uint8_t Byte(std::size_t offset) const { return offset < bytes.size() ? bytes[offset] : std::uint8_t{0}; }
    std::uint16_t Word(std::size_t offset) const
    {
        return static_cast<std::uint16_t>(Byte(offset) | Byte(offset + 1) << 8);
    }
    std::uint32_t Long(std::size_t offset) const
    {
        return Word(offset) | static_cast<std::uint32_t>(Word(offset + 2)) << 16;
    }
    std::int16_t SignedWord(std::size_t offset) const { return static_cast<std::int16_t>(Word(offset)); }
    std::int32_t SignedLong(std::size_t offset) const { return static_cast<std::int32_t>(Long(offset)); }

private:
    std::span<const std::uint8_t> bytes;
};

// Short content reads as if followed by zeros.
BitmapFileHeader ReadFileHeader(std::span<const std::uint8_t> bytes);
BitmapInfoHeader ReadInfoHeader(std::span<const std::uint8_t> bytes);

std::array<std::uint8_t, FileHeaderSize> BytesOf(const BitmapFileHeader& header);
std::array<std::uint8_t, InfoHeaderSize> BytesOf(const BitmapInfoHeader& header);

} // namespace ob
