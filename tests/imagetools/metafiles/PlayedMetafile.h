// SPDX-License-Identifier: GPL-3.0-or-later
// Plays the metafiles of a test into pictures.
#pragma once

#include "imagetools/metafiles/MetafileBytes.h"

#include "imagetools/metafiles/modMetafile.h"

#include <QImage>

#include <initializer_list>

namespace ob {

inline constexpr int SelectObject = 0x12D;
inline constexpr int PenRecord = 0x2FA;
inline constexpr int BrushRecord = 0x2FC;
inline constexpr int RectangleRecord = 0x41B;

inline constexpr QRgb Red = 0xFFFF0000;
inline constexpr QRgb Green = 0xFF00FF00;
inline constexpr QRgb Blue = 0xFF0000FF;
inline constexpr QRgb White = 0xFFFFFFFF;
inline constexpr QRgb Black = 0xFF000000;
inline constexpr QRgb Yellow = 0xFFFFFF00;

inline constexpr std::int64_t RedRecord = 0x0000FF;
inline constexpr std::int64_t GreenRecord = 0x00FF00;
inline constexpr std::int64_t BlueRecord = 0xFF0000;

inline QImage Played(const QByteArray& bytes)
{
    const auto played = PlayMetafile(bytes);
    const auto* image = std::get_if<QImage>(&played);
    return image == nullptr ? QImage() : *image;
}

// A drawing of 100 x 100 pixels, one unit per pixel, with a red pen of one pixel as object 0 and a green brush as 1.
inline WmfBytes Drawing()
{
    WmfBytes file;
    file.Add(PenRecord, Words({0, 1, 0}) + Long(RedRecord));
    file.Add(BrushRecord, Word(0) + Long(GreenRecord) + Word(0));
    file.Add(SelectObject, Word(0)).Add(SelectObject, Word(1));
    return file;
}

inline QImage Drawn(const WmfBytes& file)
{
    return Played(file.Placeable(0, 0, 100, 100, 96));
}

inline EmfBytes Drawing32()
{
    EmfBytes file;
    file.Add(38, Longs({1, 0, 1, 0, RedRecord})).Add(39, Longs({2, 0, GreenRecord, 0}));
    file.Add(37, Longs({1})).Add(37, Longs({2}));
    return file;
}

inline QImage Drawn(const EmfBytes& file)
{
    return Played(file.File(100, 100));
}

inline int CountOf(const QImage& image, QRgb color, QRect area = {})
{
    int count = 0;
    const QRect all = area.isNull() ? image.rect() : area;
    for (int y = all.top(); y <= all.bottom(); ++y)
        for (int x = all.left(); x <= all.right(); ++x)
            count += image.pixel(x, y) == color ? 1 : 0;
    return count;
}

// Curves are drawn on the pixel or on a neighbouring one.
inline bool IsNear(const QImage& image, QPoint point, QRgb color)
{
    return CountOf(image, color, QRect(point - QPoint(1, 1), QSize(3, 3)) & image.rect()) > 0;
}

inline QByteArray Box32(int left, int top, int right, int bottom)
{
    return Longs({left, top, right, bottom});
}

inline QByteArray Points16(std::initializer_list<int> numbers)
{
    return Box32(0, 0, -1, -1) + Long(static_cast<std::int64_t>(numbers.size() / 2)) + Words(numbers);
}

} // namespace ob
