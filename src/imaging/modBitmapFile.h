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
    UnknownHeader, // the header's size is none that is known
    UnknownFormat, // a number of bits or a compression that is not read
    BadSize,       // a side below 1, or more pixels than a picture can have
    TooShort,      // most of a large picture's pixels are not there
    NoMemory
};

// Pictures that fill more memory than this must have at least a quarter of their pixels in the file.
constexpr std::size_t UncheckedPictureBytes = 16U << 20;

// The picture in the bytes of a bitmap file. What a file lacks at its end counts as zeros, as the bitmap writer makes
// such files. A fourth channel is left out; colours that the table lacks are black.
std::variant<cDIBSection, BitmapError> ReadBitmap(ByteView file);

} // namespace ob
