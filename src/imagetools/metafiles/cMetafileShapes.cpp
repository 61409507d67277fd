// SPDX-License-Identifier: GPL-3.0-or-later
// The metafile's device: lines, curves, boxes, arcs and regions.
#include "imagetools/metafiles/cMetafileCanvas.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

namespace ob {

namespace {

// The angle at which a line from the middle through the place leaves the ellipse, in degrees as arcs count them.
double AngleTo(const QRectF& box, QPointF place)
{
    const QPointF middle = box.center();
    const double x = box.width() == 0 ? 0 : (place.x() - middle.x()) / box.width();
    const double y = box.height() == 0 ? 0 : (middle.y() - place.y()) / box.height();
    return qRadiansToDegrees(std::atan2(y, x));
}

} // namespace

void cMetafileCanvas::AddLines(QPainterPath& lines, std::span<const QPointF> points, Outline outline) const
{
    if (points.empty())
        return;
    lines.moveTo(ToPixels(points.front()));
    for (const QPointF& point : points.subspan(1))
        lines.lineTo(ToPixels(point));
    if (outline == Outline::Polygon)
        lines.closeSubpath();
}

// Three points per curve, from the path's current position.
void cMetafileCanvas::AddBeziers(QPainterPath& lines, std::span<const QPointF> points) const
{
    for (std::size_t i = 0; i + 2 < points.size(); i += 3)
        lines.cubicTo(ToPixels(points[i]), ToPixels(points[i + 1]), ToPixels(points[i + 2]));
}

void cMetafileCanvas::MoveTo(QPointF place)
{
    state.position = place;
    if (isPathOpen && Spend(50))
        path.moveTo(ToPixels(place));
}

// In a path bracket a figure continues; elsewhere each line is separate.
QPainterPath cMetafileCanvas::FromHere() const
{
    QPainterPath lines;
    if (isPathOpen && path.elementCount() > 0)
        lines.moveTo(path.currentPosition());
    else
        lines.moveTo(ToPixels(state.position));
    return lines;
}

void cMetafileCanvas::LineTo(QPointF place)
{
    PolyFromHere({&place, 1});
}

void cMetafileCanvas::PolyFromHere(std::span<const QPointF> points)
{
    if (points.empty() || !Spend(20.0 * static_cast<double>(points.size())))
        return;
    QPainterPath lines = FromHere();
    for (const QPointF& point : points)
        lines.lineTo(ToPixels(point));
    state.position = points.back();
    if (isPathOpen)
        path.connectPath(lines);
    else
        Paint(lines, Parts::Stroke);
}

void cMetafileCanvas::BeziersFromHere(std::span<const QPointF> points)
{
    if (points.size() < 3 || !Spend(20.0 * static_cast<double>(points.size())))
        return;
    QPainterPath lines = FromHere();
    AddBeziers(lines, points);
    state.position = points[points.size() / 3 * 3 - 1];
    if (isPathOpen)
        path.connectPath(lines);
    else
        Paint(lines, Parts::Stroke);
}

void cMetafileCanvas::Poly(std::span<const QPointF> points, Outline outline)
{
    if (points.size() < 2 || !Spend(20.0 * static_cast<double>(points.size())))
        return;
    QPainterPath lines;
    AddLines(lines, points, outline);
    Draw(lines, outline == Outline::Polygon ? Parts::Both : Parts::Stroke);
}

void cMetafileCanvas::PolyPoly(std::span<const QPointF> points, std::span<const std::uint32_t> counts, Outline outline)
{
    if (!Spend(20.0 * static_cast<double>(points.size() + counts.size())))
        return;
    QPainterPath lines;
    for (const std::uint32_t count : counts) {
        if (count > points.size())
            return;
        if (count > 1)
            AddLines(lines, points.first(count), outline);
        points = points.subspan(count);
    }
    Draw(lines, outline == Outline::Polygon ? Parts::Both : Parts::Stroke);
}

void cMetafileCanvas::Beziers(std::span<const QPointF> points)
{
    if (points.size() < 4 || !Spend(20.0 * static_cast<double>(points.size())))
        return;
    QPainterPath lines;
    lines.moveTo(ToPixels(points.front()));
    AddBeziers(lines, points.subspan(1));
    Draw(lines, Parts::Stroke);
}

void cMetafileCanvas::PolyDraw(std::span<const QPointF> points, QByteArrayView kinds)
{
    constexpr int closeFigure = 1;
    constexpr int lineTo = 2;
    constexpr int bezierTo = 4;
    if (points.size() != static_cast<std::size_t>(kinds.size()))
        return;
    QPainterPath lines = FromHere();
    for (std::size_t i = 0; i < points.size(); ++i) {
        const int kind = kinds[static_cast<qsizetype>(i)];
        const int step = kind & ~closeFigure;
        std::size_t last = i;
        if (step == lineTo) {
            lines.lineTo(ToPixels(points[i]));
        } else if (step == bezierTo && i + 2 < points.size()) {
            last = i + 2;
            AddBeziers(lines, points.subspan(i, 3));
        } else {
            lines.moveTo(ToPixels(points[i]));
        }
        if ((kinds[static_cast<qsizetype>(last)] & closeFigure) != 0)
            lines.closeSubpath();
        i = last;
        state.position = points[last];
    }
    Draw(lines, Parts::Stroke);
}

// --- Boxes. ---------------------------------------------------------------------------------------------------------

// The outline of a shape in a box.
QRectF cMetafileCanvas::ShapeBox(const QRectF& pixels) const
{
    if (lastPixels == LastPixels::Drawn)
        return pixels;
    return pixels.adjusted(0, 0, pixels.width() > 0 ? -1 : 0, pixels.height() > 0 ? -1 : 0);
}

// A shape in a box: in whole pixels, or turned with its corners.
QPainterPath cMetafileCanvas::PathOfBox(const QRectF& box, void (QPainterPath::*add)(const QRectF&)) const
{
    QPainterPath lines;
    if (const auto pixels = PixelBox(box)) {
        (lines.*add)(ShapeBox(*pixels));
        return lines;
    }
    (lines.*add)(box.normalized());
    lines = toPixels.map(lines);
    for (int i = 0; i < lines.elementCount(); ++i) {
        const QPainterPath::Element each = lines.elementAt(i);
        if (!(std::abs(each.x) < 1e5 && std::abs(each.y) < 1e5))
            return {};
    }
    return lines;
}

void cMetafileCanvas::Rectangle(QRectF box)
{
    Draw(PathOfBox(box, &QPainterPath::addRect), Parts::Both);
}

void cMetafileCanvas::Ellipse(QRectF box)
{
    Draw(PathOfBox(box, &QPainterPath::addEllipse), Parts::Both);
}

void cMetafileCanvas::RoundRectangle(QRectF box, QPointF corner)
{
    QPainterPath lines;
    if (const auto pixels = PixelBox(box)) {
        const QPointF size = ToPixels(box.topLeft() + corner) - ToPixels(box.topLeft());
        lines.addRoundedRect(ShapeBox(*pixels), std::abs(size.x()) / 2, std::abs(size.y()) / 2);
    } else {
        lines = PathOfBox(box, &QPainterPath::addRect);
    }
    Draw(lines, Parts::Both);
}

void cMetafileCanvas::Arc(ArcKind kind, QRectF box, QPointF start, QPointF end)
{
    // A rotated arc is drawn in an unrotated box: rare, and close enough.
    const QRectF area = ShapeBox(QRectF(PixelArea(box)));
    const double first = AngleTo(area, ToPixels(start));
    double sweep = AngleTo(area, ToPixels(end)) - first;
    if (state.isClockwise)
        sweep = sweep >= 0 ? sweep - 360 : sweep;
    else
        sweep = sweep <= 0 ? sweep + 360 : sweep;
    QPainterPath lines;
    if (kind == ArcKind::Pie) {
        lines.moveTo(area.center());
    } else if (kind == ArcKind::ArcTo) {
        lines = FromHere();
        QPainterPath toStart;
        toStart.arcMoveTo(area, first);
        lines.lineTo(toStart.currentPosition());
    } else {
        lines.arcMoveTo(area, first);
    }
    lines.arcTo(area, first, sweep);
    if (kind == ArcKind::Pie || kind == ArcKind::Chord)
        lines.closeSubpath();
    if (kind == ArcKind::ArcTo) {
        state.position = end;
        if (isPathOpen && Spend(500)) {
            path.connectPath(lines);
            return;
        }
    }
    Draw(lines, kind == ArcKind::Pie || kind == ArcKind::Chord ? Parts::Both : Parts::Stroke);
}

void cMetafileCanvas::AngleArc(QPointF center, double radius, double startDegrees, double sweepDegrees)
{
    if (!std::isfinite(startDegrees) || !std::isfinite(sweepDegrees))
        return;
    const QRectF area = QRectF(PixelArea(QRectF(center - QPointF(radius, radius), center + QPointF(radius, radius))));
    QPainterPath lines = FromHere();
    lines.arcTo(area, std::fmod(startDegrees, 360), std::clamp(sweepDegrees, -360.0, 360.0));
    const double last = qDegreesToRadians(startDegrees + sweepDegrees);
    state.position = center + QPointF(radius * std::cos(last), -radius * std::sin(last));
    if (isPathOpen && Spend(500))
        path.connectPath(lines);
    else
        Paint(lines, Parts::Stroke);
}

// --- Regions. -------------------------------------------------------------------------------------------------------

void cMetafileCanvas::FillRegion(const MetafileRegion& region, const MetafileBrush& brush)
{
    const MetafileBrush before = state.brush;
    state.brush = brush;
    for (const QRectF& box : region.boxes) {
        QPainterPath lines;
        lines.addRect(PixelArea(box));
        Paint(lines, Parts::Fill);
    }
    state.brush = before;
}

void cMetafileCanvas::FrameRegion(const MetafileRegion& region, const MetafileBrush& brush, QPointF thickness)
{
    QRegion whole;
    for (const QRectF& box : region.boxes) {
        if (!Spend(CombiningCost(whole.rectCount()) / 3))
            return;
        whole |= PixelArea(box);
    }
    const QPointF size = ToPixels(thickness) - ToPixels({0, 0});
    const int across = std::max(1, static_cast<int>(std::abs(size.x())));
    const int down = std::max(1, static_cast<int>(std::abs(size.y())));
    if (!Spend(CombiningCost(10 * whole.rectCount())))
        return;
    const QRegion inner = whole.translated(across, 0) & whole.translated(-across, 0) & whole.translated(0, down) &
                          whole.translated(0, -down);
    const MetafileBrush before = state.brush;
    state.brush = brush;
    for (const QRect& box : whole - inner) {
        QPainterPath lines;
        lines.addRect(box);
        Paint(lines, Parts::Fill);
    }
    state.brush = before;
}

void cMetafileCanvas::InvertRegion(const MetafileRegion& region)
{
    constexpr int invert = 6;
    const int before = state.rasterOperation;
    state.rasterOperation = invert;
    FillRegion(region, MetafileBrush());
    state.rasterOperation = before;
}

} // namespace ob
