// SPDX-License-Identifier: GPL-3.0-or-later
// The metafile's device: state, mapping, clipping, paths and their painting.
#include "imagetools/metafiles/cMetafileCanvas.h"

#include <algorithm>
#include <cmath>

namespace ob {

namespace {

// Points that all records of a file together may paint: a few seconds of work.
constexpr double AllWork = 2e9;

// Beyond this the toolkit's own arithmetic loses precision; no picture is that large.
constexpr double FarAway = 32'000;

constexpr std::size_t MostSavedStates = 1024;

double Near(double coordinate)
{
    return std::isfinite(coordinate) ? std::clamp(coordinate, -FarAway, FarAway) : 0;
}

QPainter::CompositionMode ModeOf(int rasterOperation)
{
    constexpr QPainter::CompositionMode modes[] = {
        QPainter::CompositionMode_SourceOver, // black, like the pen and brush then
        QPainter::RasterOp_NotSourceAndNotDestination,
        QPainter::RasterOp_NotSourceAndDestination,
        QPainter::RasterOp_NotSource,
        QPainter::RasterOp_SourceAndNotDestination,
        QPainter::RasterOp_NotDestination,
        QPainter::RasterOp_SourceXorDestination,
        QPainter::RasterOp_NotSourceOrNotDestination,
        QPainter::RasterOp_SourceAndDestination,
        QPainter::RasterOp_NotSourceXorDestination,
        QPainter::CompositionMode_Destination,
        QPainter::RasterOp_NotSourceOrDestination,
        QPainter::CompositionMode_SourceOver,
        QPainter::RasterOp_SourceOrNotDestination,
        QPainter::RasterOp_SourceOrDestination,
        QPainter::CompositionMode_SourceOver, // white
    };
    return rasterOperation >= 1 && rasterOperation <= 16 ? modes[rasterOperation - 1]
                                                         : QPainter::CompositionMode_SourceOver;
}

// The colour of a pen or brush under the operation.
QRgb ColorUnder(int rasterOperation, QRgb color)
{
    return rasterOperation == 1 ? qRgb(0, 0, 0) : rasterOperation == 16 ? qRgb(255, 255, 255) : color;
}

double ScaleOf(const QTransform& transform)
{
    return std::sqrt(std::abs(transform.determinant()));
}

} // namespace

cMetafileCanvas::cMetafileCanvas(QImage* picture, LastPixels lastPixelsOfBoxes)
    : image(picture), lastPixels(lastPixelsOfBoxes), work(AllWork)
{
    if (image != nullptr)
        painter.emplace(image);
}

void cMetafileCanvas::SetDevice(const QTransform& deviceToPicture, QPointF devicePixelsPerMillimetre)
{
    toPicture = deviceToPicture;
    pixelsPerMillimetre = devicePixelsPerMillimetre;
    SetMapping(state.mapping);
}

void cMetafileCanvas::SetMapping(const MetafileMapping& mapping)
{
    state.mapping = mapping;
    toPixels = mapping.ToDevice(pixelsPerMillimetre) * toPicture;
}

void cMetafileCanvas::SetMapMode(int mode)
{
    MetafileMapping mapping = state.mapping;
    if (mode < static_cast<int>(MapMode::Text) || mode > static_cast<int>(MapMode::Anisotropic))
        return;
    mapping.mode = static_cast<MapMode>(mode);
    SetMapping(mapping);
}

void cMetafileCanvas::SetOrigin(QPointF MetafileMapping::*origin, QPointF value)
{
    MetafileMapping mapping = state.mapping;
    mapping.*origin = value;
    SetMapping(mapping);
}

void cMetafileCanvas::MoveOrigin(QPointF MetafileMapping::*origin, QPointF distance)
{
    SetOrigin(origin, state.mapping.*origin + distance);
}

void cMetafileCanvas::SetExtent(QPointF MetafileMapping::*side, QPointF value)
{
    if (state.mapping.mode < MapMode::Isotropic || value.x() == 0 || value.y() == 0)
        return;
    MetafileMapping mapping = state.mapping;
    mapping.*side = value;
    SetMapping(mapping);
}

void cMetafileCanvas::ScaleExtent(QPointF MetafileMapping::*side, const MetafileScale& scale)
{
    if (scale.xDivisor == 0 || scale.yDivisor == 0)
        return;
    const QPointF old = state.mapping.*side;
    SetExtent(side, {old.x() * scale.x / scale.xDivisor, old.y() * scale.y / scale.yDivisor});
}

void cMetafileCanvas::SaveState()
{
    if (saved.size() < MostSavedStates && Spend(1000))
        saved.push_back(state);
}

void cMetafileCanvas::RestoreState(int which)
{
    const auto count = static_cast<std::int64_t>(saved.size());
    const std::int64_t place = which < 0 ? count + which : std::int64_t{which} - 1;
    if (place < 0 || place >= count)
        return;
    state = saved[static_cast<std::size_t>(place)];
    saved.resize(static_cast<std::size_t>(place));
    isClipUsed = false;
    SetMapping(state.mapping);
}

void cMetafileCanvas::Select(const MetafileObject& object)
{
    if (const auto* pen = std::get_if<MetafilePen>(&object))
        state.pen = *pen;
    else if (const auto* brush = std::get_if<MetafileBrush>(&object))
        state.brush = *brush;
    else if (const auto* font = std::get_if<MetafileFont>(&object))
        state.font = *font;
}

bool cMetafileCanvas::Spend(double points)
{
    work -= points;
    return work > 0;
}

// --- Places. --------------------------------------------------------------------------------------------------------

QPointF cMetafileCanvas::ToPixels(QPointF place) const
{
    const QPointF mapped = toPixels.map(place);
    return {Near(mapped.x()), Near(mapped.y())};
}

// The pixels from the first to the last corner, the latter excluded. Nothing when the box is rotated.
std::optional<QRectF> cMetafileCanvas::PixelBox(const QRectF& box) const
{
    if (toPixels.type() > QTransform::TxScale)
        return std::nullopt;
    const QPointF first = ToPixels(box.topLeft());
    const QPointF last = ToPixels(box.bottomRight());
    const QRectF pixels(QPointF(std::round(first.x()), std::round(first.y())),
                        QPointF(std::round(last.x()), std::round(last.y())));
    return pixels.normalized();
}

// The pixels of a box, or of its bounding box when it is rotated.
QRect cMetafileCanvas::PixelArea(const QRectF& box) const
{
    if (const auto pixels = PixelBox(box))
        return pixels->toRect();
    const QPointF corners[] = {ToPixels(box.topLeft()), ToPixels(box.topRight()), ToPixels(box.bottomRight()),
                               ToPixels(box.bottomLeft())};
    return QPolygonF(QList<QPointF>(std::begin(corners), std::end(corners))).boundingRect().toAlignedRect();
}

// --- Painting. ------------------------------------------------------------------------------------------------------

double cMetafileCanvas::CostOf(const QPainterPath& drawn, Parts parts) const
{
    const double count = drawn.elementCount();
    double length = 0;
    double height = 0;
    QPointF before;
    for (int i = 0; i < drawn.elementCount(); ++i) {
        const QPointF place = drawn.elementAt(i);
        if (!drawn.elementAt(i).isMoveTo()) {
            length += std::abs(place.x() - before.x()) + std::abs(place.y() - before.y());
            height += std::abs(place.y() - before.y());
        }
        before = place;
    }
    const QRectF box = drawn.controlPointRect();
    // Crossing edges have to be sorted: each against all others on the same line of pixels.
    const double sorting = 10 * count * height / std::max(box.height(), 1.0);
    double cost = 500 + 20 * count + 10 * length;
    if (parts != Parts::Stroke && image != nullptr) {
        const QRectF seen = box.intersected(QRectF(image->rect()));
        cost += seen.width() * seen.height() + sorting;
    }
    if (parts != Parts::Fill && state.pen.style != Qt::NoPen) {
        const double width = std::clamp(state.pen.width * ScaleOf(toPixels), 1.0, FarAway);
        cost += 4 * length * width + (width > 1 ? 4 * sorting : 0);
    }
    return cost + (state.isClipped ? 20.0 * state.clip.rectCount() : 0);
}

void cMetafileCanvas::Note(const QRectF& pixels)
{
    extent = extent.isNull() ? pixels : extent.united(pixels);
}

void cMetafileCanvas::UseClip()
{
    if (isClipUsed)
        return;
    isClipUsed = true;
    if (state.isClipped)
        painter->setClipRegion(state.clip);
    else
        painter->setClipping(false);
}

// A path bracket collects what is drawn.
void cMetafileCanvas::Draw(const QPainterPath& drawn, Parts parts)
{
    if (!isPathOpen) {
        Paint(drawn, parts);
        return;
    }
    if (Spend(100 + 20.0 * drawn.elementCount()))
        path.addPath(drawn);
}

void cMetafileCanvas::Paint(const QPainterPath& drawn, Parts parts)
{
    if (drawn.isEmpty() || !Spend(CostOf(drawn, parts)))
        return;
    if (!painter) {
        // A line without height still has a place.
        Note(drawn.controlPointRect().adjusted(0, 0, 1, 1));
        return;
    }
    UseClip();
    painter->setCompositionMode(ModeOf(state.rasterOperation));
    if (parts != Parts::Stroke) {
        QPainterPath filled = drawn;
        filled.setFillRule(state.fillRule);
        PaintBrush(*painter, filled, state.brush);
    }
    if (parts == Parts::Fill || state.pen.style == Qt::NoPen)
        return;
    QPen pen = PenForPixels();
    painter->setBrush(Qt::NoBrush);
    if (pen.style() != Qt::SolidLine && state.backMode == BackgroundMode::Opaque) {
        QPen under = pen;
        under.setStyle(Qt::SolidLine);
        under.setColor(ColorUnder(state.rasterOperation, state.backColor));
        painter->strokePath(drawn, under);
    }
    painter->strokePath(drawn, pen);
}

QPen cMetafileCanvas::PenForPixels() const
{
    QPen pen(QColor(ColorUnder(state.rasterOperation, state.pen.color)));
    const double width = state.pen.isCosmetic ? state.pen.width : state.pen.width * ScaleOf(toPixels);
    const bool isThin = !(width > 1.5);
    pen.setWidthF(isThin ? 1 : std::min(width, FarAway));
    pen.setCapStyle(isThin ? Qt::FlatCap : state.pen.cap);
    pen.setJoinStyle(state.pen.join);
    pen.setMiterLimit(std::clamp(state.miterLimit, 1.0, 100.0));
    if (!state.pen.dashes.isEmpty())
        pen.setDashPattern(state.pen.dashes);
    return pen;
}

void cMetafileCanvas::PaintBrush(QPainter& target, const QPainterPath& drawn, const MetafileBrush& brush) const
{
    if (brush.style == Qt::NoBrush)
        return;
    const bool isHatch = brush.style >= Qt::HorPattern && brush.style <= Qt::DiagCrossPattern;
    if (isHatch && state.backMode == BackgroundMode::Opaque)
        target.fillPath(drawn, QColor(ColorUnder(state.rasterOperation, state.backColor)));
    target.setBrushOrigin(state.brushOrigin);
    target.fillPath(drawn, brush.style == Qt::TexturePattern && !brush.texture.isNull()
                               ? QBrush(brush.texture)
                               : QBrush(QColor(ColorUnder(state.rasterOperation, brush.color)),
                                        brush.style == Qt::TexturePattern ? Qt::SolidPattern : brush.style));
}

void cMetafileCanvas::SetPixel(QPointF place, QRgb color)
{
    if (!Spend(50))
        return;
    const QPointF pixel = ToPixels(place);
    if (!painter) {
        Note(QRectF(pixel, QSizeF(1, 1)));
        return;
    }
    UseClip();
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter->fillRect(
        QRect(QPoint(static_cast<int>(std::floor(pixel.x())), static_cast<int>(std::floor(pixel.y()))), QSize(1, 1)),
        QColor(color));
}

void cMetafileCanvas::GradientBox(QRectF box, QRgb first, QRgb last, Qt::Orientation direction)
{
    QRectF pixels = PixelArea(box);
    const bool isForward = direction == Qt::Horizontal ? ToPixels(box.topLeft()).x() <= ToPixels(box.bottomRight()).x()
                                                       : ToPixels(box.topLeft()).y() <= ToPixels(box.bottomRight()).y();
    if (!isForward)
        std::swap(first, last);
    QPainterPath area;
    area.addRect(pixels);
    if (!Spend(2 * CostOf(area, Parts::Fill)))
        return;
    if (!painter) {
        Note(pixels);
        return;
    }
    QLinearGradient gradient(pixels.topLeft(), direction == Qt::Horizontal ? pixels.topRight() : pixels.bottomLeft());
    gradient.setColorAt(0, QColor(first));
    gradient.setColorAt(1, QColor(last));
    UseClip();
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter->fillRect(pixels, gradient);
}

// --- Path brackets. -------------------------------------------------------------------------------------------------

void cMetafileCanvas::BeginPath()
{
    path = {};
    isPathOpen = true;
}

void cMetafileCanvas::CloseFigure()
{
    if (isPathOpen)
        path.closeSubpath();
}

void cMetafileCanvas::AbortPath()
{
    BeginPath();
    isPathOpen = false;
}

void cMetafileCanvas::DrawPath(PathUse use)
{
    isPathOpen = false;
    QPainterPath drawn;
    drawn.swap(path);
    if (use != PathUse::Stroke) {
        QPainterPath closed = drawn;
        closed.closeSubpath();
        Paint(closed, Parts::Fill);
    }
    if (use != PathUse::Fill)
        Paint(drawn, Parts::Stroke);
}

void cMetafileCanvas::ClipToPath(ClipMode mode)
{
    isPathOpen = false;
    QPainterPath drawn;
    drawn.swap(path);
    drawn.setFillRule(state.fillRule);
    // A region may hold a box for every crossing of every line.
    if (!painter || !Spend(25 * CostOf(drawn, Parts::Stroke)))
        return;
    CombineClip(QRegion(drawn.toFillPolygon().toPolygon(), state.fillRule), mode);
}

// --- Clipping. ------------------------------------------------------------------------------------------------------

void cMetafileCanvas::CombineClip(QRegion region, ClipMode mode)
{
    if (image == nullptr)
        return;
    region &= image->rect();
    if (!state.isClipped && mode != ClipMode::Copy)
        state.clip = image->rect();
    if (!Spend(1000 + 50.0 * (region.rectCount() + state.clip.rectCount())))
        return;
    switch (mode) {
    case ClipMode::And:
        state.clip &= region;
        break;
    case ClipMode::Or:
        state.clip |= region;
        break;
    case ClipMode::Xor:
        state.clip ^= region;
        break;
    case ClipMode::Difference:
        state.clip -= region;
        break;
    case ClipMode::Copy:
        state.clip = region;
        break;
    }
    state.isClipped = true;
    isClipUsed = false;
}

void cMetafileCanvas::IntersectClip(QRectF box)
{
    CombineClip(PixelArea(box), ClipMode::And);
}

void cMetafileCanvas::ExcludeClip(QRectF box)
{
    CombineClip(PixelArea(box), ClipMode::Difference);
}

void cMetafileCanvas::OffsetClip(QPointF distance)
{
    const QPointF pixels = ToPixels(distance) - ToPixels({0, 0});
    if (!state.isClipped || !Spend(100 + 5.0 * state.clip.rectCount()))
        return;
    state.clip.translate(pixels.toPoint());
    isClipUsed = false;
}

void cMetafileCanvas::ClipToRegion(const MetafileRegion& region, ClipMode mode)
{
    QRegion pixels;
    for (const QRectF& box : region.boxes) {
        if (!Spend(100 + 10.0 * pixels.rectCount()))
            return;
        const QRectF mapped = toPicture.mapRect(box);
        pixels |= QRectF(QPointF(Near(mapped.left()), Near(mapped.top())),
                         QPointF(Near(mapped.right()), Near(mapped.bottom())))
                      .toRect();
    }
    CombineClip(pixels, mode);
}

void cMetafileCanvas::ResetClip()
{
    state.isClipped = false;
    state.clip = {};
    isClipUsed = false;
}

} // namespace ob
