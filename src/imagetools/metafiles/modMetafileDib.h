// SPDX-License-Identifier: GPL-3.0-or-later
// Bitmaps within the records of metafiles.
#pragma once

#include <QByteArrayView>
#include <QImage>
#include <QRectF>

#include <cstdint>

namespace ob {

enum class DibAlpha { Ignored, Used };

// What the header of a bitmap without a file header says: its sides, and how many bytes lie before its pixels.
// All 0 when it is none.
struct DibSize {
    int width = 0;
    int height = 0;
    bool isTopDown = false;
    qsizetype pixelOffset = 0;

    double Points() const { return static_cast<double>(width) * height; }
};
DibSize SizeOfDib(QByteArrayView info);

// Bitmaps whose colours are numbers of the palette in use are marked so; they are not read.
constexpr std::uint32_t PaletteColors = 1;

// A part of such a picture counted from its top, when it was counted from where its lines begin.
QRectF FromBottom(const QRectF& part, const DibSize& size);

// The picture of a header with its colours, and of its pixels; a JPEG or PNG file may stand for the latter. Null when
// it cannot be read. With alpha, pixels of 32 bits have their fourth byte, the others being multiplied by it.
QImage ImageOfDib(QByteArrayView info, QByteArrayView pixels, DibAlpha alpha = DibAlpha::Ignored);

// The picture of both in one piece.
QImage ImageOfPackedDib(QByteArrayView dib);

// A picture of the old kind: type, width, height, bytes a line, planes, bits, then lines from the top. One bit a
// pixel only, 0 in the one and 1 in the other colour; null for others.
QImage ImageOfDeviceBitmap(QByteArrayView bitmap, QRgb zero, QRgb one);

} // namespace ob
