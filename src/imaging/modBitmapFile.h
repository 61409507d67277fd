// SPDX-License-Identifier: GPL-3.0-or-later
// Reads bitmap files as pictures: 1, 4, 8, 16, 24 and 32 bits, run lengths, bit fields, old headers, top-down.
#pragma once

#include "imaging/cDIBSection.h"
#include "imaging/modFileAccess.h"

#include <cstddef>
#include <variant>

namespace ob {

enum class BitmapError {
    NotABitmap,    // does not start with "BM", or ends within its header
    UnknownHeader, // a header of unknown size
    UnknownFormat, // an unsupported number of bits or compression
    BadSize,       // a side below 1, or too many pixels for a picture
    TooShort,      // most of a large picture's pixels are missing
    NoMemory
};

// Pictures that take more memory than this must have at least a quarter of their pixels in the file.
constexpr std::size_t UncheckedPictureBytes = 16U << 20;

// A bitmap without its file header: the information header with masks and colours, and the pixels after them. The two
// need not be neighbours in memory.
struct BitmapParts {
    ByteView info;
    ByteView pixels;
};

// The picture in the bytes of a bitmap file. Missing bytes at the end of a file count as zeros, as the bitmap writer
// creates such files. A fourth channel is ignored; colours missing from the table are black.
std::variant<cDIBSection, BitmapError> ReadBitmap(ByteView file);
std::variant<cDIBSection, BitmapError> ReadBitmap(const BitmapParts& parts);

} // namespace ob
