// SPDX-License-Identifier: GPL-3.0-or-later
// The device that the records of a metafile draw on: a picture, with the drawing state and rules of the format.
#pragma once

#include "imagetools/metafiles/modMetafileCost.h"
#include "imagetools/metafiles/modMetafileObjects.h"

#include <QByteArrayView>
#include <QPainter>
#include <QPainterPath>

#include <optional>
#include <set>
#include <span>
#include <vector>

namespace ob {

enum class ArcKind { Arc, ArcTo, Chord, Pie };
enum class ClipMode { And = 1, Or = 2, Xor = 3, Difference = 4, Copy = 5 };
enum class Outline { Polyline, Polygon };

// Whether shapes in a box exclude the pixels of its right and bottom edge.
enum class LastPixels { LeftOut, Drawn };

struct MetafileText {
    static constexpr unsigned Opaque = 2;
    static constexpr unsigned Clipped = 4;
    static constexpr unsigned GlyphNumbers = 0x10;

    QString text;
    QPointF position;
    std::vector<double> advances; // logical, one per character; empty: the font's own
    unsigned options = 0;
    QRectF box; // of Opaque and Clipped
};

// What an extent is multiplied by; a divisor of 0 leaves it unchanged.
struct MetafileScale {
    double x = 1;
    double xDivisor = 1;
    double y = 1;
    double yDivisor = 1;
};

// A picture and its target; negative sides mirror it.
struct MetafileBlt {
    QImage image;
    QRectF source; // in its pixels, from its top left corner
    QRectF target; // logical
    std::uint32_t operation = 0x00CC0020;
    double opacity = 1;
};

// Coordinates are logical unless stated otherwise. The work of a file is limited: once its records have used it up, the
// rest draws nothing.
class cMetafileCanvas {
public:
    // Draws on the picture (RGB32). Without one nothing is drawn, and Extent is what would have been.
    cMetafileCanvas(QImage* picture, LastPixels lastPixelsOfBoxes);

    // Device pixels to those of the picture; the pixels per millimetre of the device.
    void SetDevice(const QTransform& deviceToPicture, QPointF devicePixelsPerMillimetre);

    MetafileState& State() { return state; }
    void SetMapping(const MetafileMapping& mapping);
    void SetMapMode(int mode);
    void SetOrigin(QPointF MetafileMapping::*origin, QPointF value);
    void MoveOrigin(QPointF MetafileMapping::*origin, QPointF distance);
    void SetExtent(QPointF MetafileMapping::*extent, QPointF value);
    void ScaleExtent(QPointF MetafileMapping::*extent, const MetafileScale& scale);
    void SaveState();
    void RestoreState(int which); // negative: relative to the last; positive: the one of that number
    void Select(const MetafileObject& object);

    // Pays for a step before it is taken; false when the file has used up its work.
    bool Spend(double nanoseconds);
    QRectF Extent() const { return extent; }

    void MoveTo(QPointF place);
    void LineTo(QPointF place);
    void Poly(std::span<const QPointF> points, Outline outline);
    void PolyPoly(std::span<const QPointF> points, std::span<const std::uint32_t> counts, Outline outline);
    void PolyFromHere(std::span<const QPointF> points);
    void Beziers(std::span<const QPointF> points);
    void BeziersFromHere(std::span<const QPointF> points);
    void PolyDraw(std::span<const QPointF> points, QByteArrayView kinds);
    void Rectangle(QRectF box);
    void RoundRectangle(QRectF box, QPointF corner);
    void Ellipse(QRectF box);
    void Arc(ArcKind kind, QRectF box, QPointF start, QPointF end);
    void AngleArc(QPointF center, double radius, double startDegrees, double sweepDegrees);
    void SetPixel(QPointF place, QRgb color);
    void GradientBox(QRectF box, QRgb first, QRgb last, Qt::Orientation direction);

    void FillRegion(const MetafileRegion& region, const MetafileBrush& brush);
    void FrameRegion(const MetafileRegion& region, const MetafileBrush& brush, QPointF thickness);
    void InvertRegion(const MetafileRegion& region);

    void BeginPath();
    void EndPath() { isPathOpen = false; }
    void CloseFigure();
    void AbortPath();
    enum class PathUse { Fill, Stroke, Both };
    void DrawPath(PathUse use);
    void ClipToPath(ClipMode mode);

    void IntersectClip(QRectF box);
    void ExcludeClip(QRectF box);
    void OffsetClip(QPointF distance);
    void ClipToRegion(const MetafileRegion& region, ClipMode mode); // the region is in device pixels
    void ResetClip();

    void PatternBlt(QRectF box, std::uint32_t operation);
    void Blt(const MetafileBlt& blt);

    void Text(const MetafileText& text);
    // A text in bytes of the selected font's character set.
    QString TextOfBytes(QByteArrayView bytes) const;

private:
    enum class Parts { Fill, Stroke, Both };

    QPointF ToPixels(QPointF place) const;
    std::optional<QRectF> PixelBox(const QRectF& box) const;
    QRect PixelArea(const QRectF& box) const;
    QRectF ShapeBox(const QRectF& pixels) const;
    QPainterPath PathOfBox(const QRectF& box, void (QPainterPath::*add)(const QRectF&)) const;
    void AddLines(QPainterPath& path, std::span<const QPointF> points, Outline outline) const;
    void AddBeziers(QPainterPath& path, std::span<const QPointF> points) const;
    MetafileMixing Mixing() const;
    MetafileStroke StrokeForPixels() const;
    double CostOf(const QPainterPath& path, Parts parts) const;
    bool PayForArea(const QRect& visible, double pixelCost);
    QPainterPath FromHere() const;
    void Draw(const QPainterPath& path, Parts parts);
    void Paint(const QPainterPath& path, Parts parts);
    void Note(const QRectF& pixels);
    bool UseClip();
    void CombineClip(QRegion region, ClipMode mode);
    QPen PenForPixels() const;
    void PaintBrush(QPainter& target, const QPainterPath& path, const MetafileBrush& brush) const;
    void CombineArea(const QRect& area, const QImage& source, std::uint32_t operation);
    QImage StretchedSource(const MetafileBlt& blt, const QRect& area, const QRect& visible) const;
    void TurnedBlt(const MetafileBlt& blt);
    bool PayForFont();
    void PaintText(const MetafileText& text, const QFont& font, QPointF origin, double advanceScale);

    MetafileState state;
    std::vector<MetafileState> saved;
    QImage* image;
    LastPixels lastPixels;
    std::optional<QPainter> painter;
    QTransform toPicture;
    QPointF pixelsPerMillimetre = {96 / 25.4, 96 / 25.4};
    QTransform toPixels;
    QPainterPath path; // in pixels
    bool isPathOpen = false;
    bool isClipUsed = false;
    double linesOfClip = 0;      // of the clip in use
    std::set<QString> fontsUsed; // families, and families with all properties of a font
    double work;
    QRectF extent;
};

} // namespace ob
