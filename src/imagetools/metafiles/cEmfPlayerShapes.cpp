// SPDX-License-Identifier: GPL-3.0-or-later
// Plays the records of an .emf file: shapes, paths, clipping, regions.
#include "imagetools/metafiles/cEmfPlayer.h"

#include <algorithm>
#include <cmath>

namespace ob {

namespace {

constexpr qsizetype BoundsBytes = 16;

} // namespace

void cEmfPlayer::PlayPoly(Record& record, Numbers numbers, void (cEmfPlayer::*draw)(std::span<const QPointF>))
{
    record.Skip(BoundsBytes);
    const std::uint32_t count = record.UInt32();
    const std::vector<QPointF> points = Points(record, count, numbers);
    if (!record.IsShort())
        (this->*draw)(points);
}

void cEmfPlayer::PlayPolyPoly(Record& record, Numbers numbers, Outline outline)
{
    record.Skip(BoundsBytes);
    const std::uint32_t figures = record.UInt32();
    const std::uint32_t count = record.UInt32();
    if (!record.Holds(figures, 4))
        return;
    std::vector<std::uint32_t> counts;
    for (std::uint32_t i = 0; i < figures; ++i)
        counts.push_back(record.UInt32());
    const std::vector<QPointF> points = Points(record, count, numbers);
    if (!record.IsShort())
        canvas.PolyPoly(points, counts, outline);
}

void cEmfPlayer::PlayPolyDraw(Record& record, Numbers numbers)
{
    record.Skip(BoundsBytes);
    const std::uint32_t count = record.UInt32();
    const std::vector<QPointF> points = Points(record, count, numbers);
    const QByteArrayView kinds = record.Bytes(static_cast<qsizetype>(points.size()));
    if (!record.IsShort())
        canvas.PolyDraw(points, kinds);
}

void cEmfPlayer::PlayArc(Record& record, ArcKind kind)
{
    const QRectF box = Box(record);
    const QPointF start = Point(record);
    const QPointF end = Point(record);
    if (!record.IsShort())
        canvas.Arc(kind, box, start, end);
}

void cEmfPlayer::SetPixel(Record& record)
{
    const QPointF place = Point(record);
    const QRgb color = ColorOfRecord(record.UInt32());
    if (!record.IsShort())
        canvas.SetPixel(place, color);
}

void cEmfPlayer::MoveTo(Record& record)
{
    const QPointF place = Point(record);
    if (!record.IsShort())
        canvas.MoveTo(place);
}

void cEmfPlayer::LineTo(Record& record)
{
    const QPointF place = Point(record);
    if (!record.IsShort())
        canvas.LineTo(place);
}

void cEmfPlayer::AngleArc(Record& record)
{
    const QPointF center = Point(record);
    const double radius = record.UInt32();
    const double start = record.Float();
    const double sweep = record.Float();
    if (!record.IsShort())
        canvas.AngleArc(center, radius, start, sweep);
}

void cEmfPlayer::Ellipse(Record& record)
{
    const QRectF box = Box(record);
    if (!record.IsShort())
        canvas.Ellipse(box);
}

void cEmfPlayer::Rectangle(Record& record)
{
    const QRectF box = Box(record);
    if (!record.IsShort())
        canvas.Rectangle(box);
}

void cEmfPlayer::RoundRectangle(Record& record)
{
    const QRectF box = Box(record);
    const QPointF corner = Point(record);
    if (!record.IsShort())
        canvas.RoundRectangle(box, corner);
}

// Only boxes; triangles are skipped.
void cEmfPlayer::GradientFill(Record& record)
{
    constexpr std::uint32_t across = 0;
    constexpr std::uint32_t down = 1;
    struct Corner {
        QPointF place;
        QRgb color;
    };
    record.Skip(BoundsBytes);
    const std::uint32_t cornerCount = record.UInt32();
    const std::uint32_t boxCount = record.UInt32();
    const std::uint32_t mode = record.UInt32();
    if ((mode != across && mode != down) || !record.Holds(cornerCount, 16))
        return;
    std::vector<Corner> corners;
    for (std::uint32_t i = 0; i < cornerCount; ++i) {
        const QPointF place = Point(record);
        const int red = record.UInt16() >> 8;
        const int green = record.UInt16() >> 8;
        const int blue = record.UInt16() >> 8;
        record.Skip(2);
        corners.push_back({place, qRgb(red, green, blue)});
    }
    if (!record.Holds(boxCount, 8))
        return;
    for (std::uint32_t i = 0; i < boxCount; ++i) {
        const std::uint32_t first = record.UInt32();
        const std::uint32_t last = record.UInt32();
        if (first < corners.size() && last < corners.size())
            canvas.GradientBox(QRectF(corners[first].place, corners[last].place), corners[first].color,
                               corners[last].color, mode == across ? Qt::Horizontal : Qt::Vertical);
    }
}

// --- Paths. ---------------------------------------------------------------------------------------------------------

void cEmfPlayer::BeginPath(Record&)
{
    canvas.BeginPath();
}

void cEmfPlayer::EndPath(Record&)
{
    canvas.EndPath();
}

void cEmfPlayer::CloseFigure(Record&)
{
    canvas.CloseFigure();
}

void cEmfPlayer::AbortPath(Record&)
{
    canvas.AbortPath();
}

void cEmfPlayer::FillPath(Record&)
{
    canvas.DrawPath(cMetafileCanvas::PathUse::Fill);
}

void cEmfPlayer::StrokePath(Record&)
{
    canvas.DrawPath(cMetafileCanvas::PathUse::Stroke);
}

void cEmfPlayer::StrokeAndFillPath(Record&)
{
    canvas.DrawPath(cMetafileCanvas::PathUse::Both);
}

static std::optional<ClipMode> ClipModeOf(std::uint32_t mode)
{
    if (mode < static_cast<std::uint32_t>(ClipMode::And) || mode > static_cast<std::uint32_t>(ClipMode::Copy))
        return std::nullopt;
    return static_cast<ClipMode>(mode);
}

void cEmfPlayer::SelectClipPath(Record& record)
{
    if (const auto mode = ClipModeOf(record.UInt32()))
        canvas.ClipToPath(*mode);
}

// --- Clipping and regions. ------------------------------------------------------------------------------------------

void cEmfPlayer::OffsetClip(Record& record)
{
    const QPointF distance = Point(record);
    if (!record.IsShort())
        canvas.OffsetClip(distance);
}

void cEmfPlayer::ExcludeClip(Record& record)
{
    const QRectF box = Box(record);
    if (!record.IsShort())
        canvas.ExcludeClip(box);
}

void cEmfPlayer::IntersectClip(Record& record)
{
    const QRectF box = Box(record);
    if (!record.IsShort())
        canvas.IntersectClip(box);
}

void cEmfPlayer::SelectClipRegion(Record& record)
{
    const std::uint32_t bytes = record.UInt32();
    const auto mode = ClipModeOf(record.UInt32());
    if (!mode || record.IsShort())
        return;
    if (bytes == 0) {
        if (*mode == ClipMode::Copy)
            canvas.ResetClip();
        return;
    }
    const MetafileRegion region = Region(record, bytes);
    if (!record.IsShort())
        canvas.ClipToRegion(region, *mode);
}

void cEmfPlayer::FillRegion(Record& record)
{
    record.Skip(BoundsBytes);
    const std::uint32_t bytes = record.UInt32();
    const std::uint32_t brush = record.UInt32();
    const MetafileRegion region = Region(record, bytes);
    if (!record.IsShort())
        canvas.FillRegion(region, BrushOfObject(brush));
}

void cEmfPlayer::FrameRegion(Record& record)
{
    record.Skip(BoundsBytes);
    const std::uint32_t bytes = record.UInt32();
    const std::uint32_t brush = record.UInt32();
    const QPointF thickness = Point(record);
    const MetafileRegion region = Region(record, bytes);
    if (!record.IsShort())
        canvas.FrameRegion(region, BrushOfObject(brush), thickness);
}

void cEmfPlayer::InvertRegion(Record& record)
{
    record.Skip(BoundsBytes);
    const std::uint32_t bytes = record.UInt32();
    const MetafileRegion region = Region(record, bytes);
    if (!record.IsShort())
        canvas.InvertRegion(region);
}

void cEmfPlayer::PaintRegion(Record& record)
{
    record.Skip(BoundsBytes);
    const std::uint32_t bytes = record.UInt32();
    const MetafileRegion region = Region(record, bytes);
    if (!record.IsShort())
        canvas.FillRegion(region, canvas.State().brush);
}

} // namespace ob
