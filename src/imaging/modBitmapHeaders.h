// SPDX-License-Identifier: GPL-3.0-or-later
// The two headers of a bitmap file, and their bytes.
#pragma once

#include "imaging/modByteView.h"

#include <vector>

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

// Short content reads as if followed by zeros.
BitmapFileHeader ReadFileHeader(ByteView bytes);
BitmapInfoHeader ReadInfoHeader(ByteView bytes);

std::vector<std::uint8_t> BytesOf(const BitmapFileHeader& header);
std::vector<std::uint8_t> BytesOf(const BitmapInfoHeader& header);

} // namespace ob
