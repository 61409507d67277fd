// SPDX-License-Identifier: GPL-3.0-or-later
// One image of an icon, as in icon files and programs, and its drawing.
#pragma once

#include "imagetools/icons/modIcon.h"
#include "imaging/modByteView.h"
#include "platform/language/modColorNames.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace ob {

// Sides beyond this are rejected; the directories of icon files end at 256, PNG images may go beyond that.
constexpr int MostIconSide = 1024;

struct IconImageSize {
    int width = 0;
    int height = 0;
    int bits = 0; // per pixel, all channels together
    bool operator==(const IconImageSize&) const = default;
};

// Pixels in rows from the top, each from the left.
struct IconImage {
    int width = 0;
    int height = 0;
    int bits = 0;
    std::vector<ColorRef> colors;
    std::vector<std::uint8_t> mask;  // 1 where the colour is combined with the background by exclusive or
    std::vector<std::uint8_t> alpha; // empty when the mask counts; otherwise 255 covers the background, 0 leaves it
};

// The size in the header of an image; nothing unless the bytes contain a complete bitmap of that size (1, 4, 8, 16, 24
// or 32 bits per pixel, not compressed), or are a PNG file with a header.
std::optional<IconImageSize> ReadIconImageSize(ByteView bytes);

// The same for an image of that many bytes of which only the first are there: IconHeadBytes, or all if it has fewer.
constexpr std::size_t IconHeadBytes = 40;
std::optional<IconImageSize> ReadIconImageSize(ByteView head, std::uint64_t byteCount);

// How many bytes from its start an image with that head needs at most; 0 when it is none.
std::uint64_t IconImageBytes(ByteView head);

// The image. Nothing where ReadIconImageSize returns nothing, and for a damaged PNG file.
//
// An image of 32 bits whose fourth channel is 0 everywhere has no alpha: it is drawn by its mask, as the system does.
std::optional<IconImage> ReadIconImage(ByteView bytes);

// Draws the image over the icon; one of another size is stretched, a pixel of the icon taking the image's at
// x * width \ 32.
void DrawIcon(Icon& target, const IconImage& image);

} // namespace ob
