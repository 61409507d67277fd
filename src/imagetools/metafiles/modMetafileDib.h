// SPDX-License-Identifier: GPL-3.0-or-later
// Bitmaps within the records of metafiles.
#pragma once

#include <QByteArrayView>
#include <QImage>
#include <QRectF>

#include <cstdint>

namespace ob {

enum class DibAlpha { Ignored, Used };

// The sides of a bitmap without a file header, from its header, and the number of bytes before its pixels. All 0 when
// it is not a bitmap.
struct DibSize {
    int width = 0;
    int height = 0;
    bool isTopDown = false;
    qsizetype pixelOffset = 0;

    double Points() const { return static_cast<double>(width) * height; }
};
DibSize SizeOfDib(QByteArrayView info);

// Marks bitmaps whose colours are indices into the current palette; they are not read.
constexpr std::uint32_t PaletteColors = 1;

// Converts a part of such a picture to one counted from the top; part is counted from the picture's first line.
QRectF FromBottom(const QRectF& part, const DibSize& size);

// The picture of a header with its colours, and of its pixels; a JPEG or PNG file may be in place of the latter. Null
// when it cannot be read. With alpha, the fourth byte of 32-bit pixels is used, the others being premultiplied by it.
QImage ImageOfDib(QByteArrayView info, QByteArrayView pixels, DibAlpha alpha = DibAlpha::Ignored);

// The picture of both in one piece.
QImage ImageOfPackedDib(QByteArrayView dib);

// A picture of the old kind: type, width, height, bytes per line, planes, bits, then lines from the top. One bit per
// pixel only, 0 in the one and 1 in the other colour; null for others.
QImage ImageOfDeviceBitmap(QByteArrayView bitmap, QRgb zero, QRgb one);

} // namespace ob
