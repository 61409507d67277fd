// SPDX-License-Identifier: GPL-3.0-or-later
// The objects with which a metafile draws: pens, brushes, fonts, regions, and their state.
#pragma once

#include <QByteArrayView>
#include <QImage>
#include <QList>
#include <QPen>
#include <QPointF>
#include <QRectF>
#include <QRegion>
#include <QString>
#include <QTransform>

#include <cstdint>
#include <variant>

namespace ob {

// A colour as records hold it: red in the low byte.
QRgb ColorOfRecord(std::uint32_t color);

// A text of 16-bit units, the lower byte first.
QString TextOfUnits(QByteArrayView units);

struct MetafilePen {
    Qt::PenStyle style = Qt::SolidLine;
    double width = 0; // logical; 0 is one pixel
    QRgb color = qRgb(0, 0, 0);
    Qt::PenCapStyle cap = Qt::RoundCap;
    Qt::PenJoinStyle join = Qt::RoundJoin;
    QList<qreal> dashes; // in pixels of a thin pen, in pen widths of a wide one
    bool isCosmetic = false;
};

struct MetafileBrush {
    Qt::BrushStyle style = Qt::SolidPattern;
    QRgb color = qRgb(255, 255, 255);
    QImage texture;
};

struct MetafileFont {
    double height = 0;  // logical; below 0 that of the characters, above 0 that of the line
    double width = 0;   // of an average character; 0: the font's own
    int escapement = 0; // tenths of a degree, counterclockwise
    int weight = 400;
    bool isItalic = false;
    bool isUnderlined = false;
    bool isStruckOut = false;
    int charset = 0;
    int pitch = 0;
    QString face;
};

struct MetafileRegion {
    QList<QRectF> boxes;
};

// A place in the table taken by something not used here, such as a palette.
struct MetafileUnused {};

using MetafileObject =
    std::variant<std::monostate, MetafilePen, MetafileBrush, MetafileFont, MetafileRegion, MetafileUnused>;

// Pens by the style word of the records: the line in the lowest bits, then cap and join.
MetafilePen PenOfStyle(std::uint32_t style, double width, std::uint32_t color);
MetafileBrush BrushOfStyle(std::uint32_t style, std::uint32_t color, std::uint32_t hatch);
// The stock objects, by number; monostate for an unknown one.
MetafileObject StockObject(std::uint32_t number);

enum class MapMode {
    Text = 1,
    LowMetric = 2,
    HighMetric = 3,
    LowEnglish = 4,
    HighEnglish = 5,
    Twips = 6,
    Isotropic = 7,
    Anisotropic = 8
};

// Converts logical units to those of the device.
struct MetafileMapping {
    MapMode mode = MapMode::Text;
    QPointF windowOrigin;
    QPointF windowExtent = {1, 1};
    QPointF viewportOrigin;
    QPointF viewportExtent = {1, 1};
    QTransform world;

    // The device's pixels per millimetre apply in the modes of fixed units.
    QTransform ToDevice(QPointF pixelsPerMillimetre) const;
};

enum class BackgroundMode { Transparent = 1, Opaque = 2 };

// Everything that is saved and restored together.
struct MetafileState {
    MetafileMapping mapping;
    MetafilePen pen;
    MetafileBrush brush;
    MetafileFont font;
    QRgb textColor = qRgb(0, 0, 0);
    QRgb backColor = qRgb(255, 255, 255);
    BackgroundMode backMode = BackgroundMode::Opaque;
    Qt::FillRule fillRule = Qt::OddEvenFill;
    int rasterOperation = 13; // the pen or brush unchanged
    std::uint32_t textAlign = 0;
    bool isSmoothStretch = false;
    bool isClockwise = false;
    double miterLimit = 10;
    QPointF position;    // logical
    QPointF brushOrigin; // in pixels
    bool isClipped = false;
    QRegion clip; // in pixels
};

} // namespace ob
