// SPDX-License-Identifier: GPL-3.0-or-later
// The metafile's device: state, mapping, clipping, paths and their painting.
#include "imagetools/metafiles/cMetafileCanvas.h"

#include "imagetools/metafiles/modMetafileRegion.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace ob {

namespace {

// What all records of a file may cost together, in nanoseconds.
constexpr double AllWork = 8e8;

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

bool cMetafileCanvas::Spend(double nanoseconds)
{
    work -= nanoseconds;
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

MetafileMixing cMetafileCanvas::Mixing() const
{
    return ModeOf(state.rasterOperation) == QPainter::CompositionMode_SourceOver ? MetafileMixing::Replace
                                                                                 : MetafileMixing::Combine;
}

MetafileStroke cMetafileCanvas::StrokeForPixels() const
{
    const QPen pen = PenForPixels();
    MetafileStroke stroke;
    stroke.width = pen.widthF();
    stroke.reach = stroke.width * (pen.joinStyle() == Qt::MiterJoin ? pen.miterLimit() : 1);
    const QList<qreal> dashes = state.pen.dashes;
    const double dashSum = std::accumulate(dashes.begin(), dashes.end(), 0.0);
    stroke.dashLength = dashes.isEmpty() ? 0 : dashSum * 2 / static_cast<double>(dashes.size()) * stroke.width;
    stroke.hasGround = pen.style() != Qt::SolidLine && state.backMode == BackgroundMode::Opaque;
    stroke.mixing = Mixing();
    return stroke;
}

double cMetafileCanvas::CostOf(const QPainterPath& drawn, Parts parts) const
{
    if (image == nullptr)
        return 500 + 20.0 * drawn.elementCount();
    const QRectF seen = drawn.controlPointRect().intersected(QRectF(image->rect()));
    double cost = 0;
    if (parts != Parts::Stroke)
        cost += FillCost(drawn, image->size()) +
                seen.width() * seen.height() * PixelCost(state.brush, state.backMode, Mixing());
    if (parts != Parts::Fill && state.pen.style != Qt::NoPen)
        cost += StrokeCost(drawn, StrokeForPixels(), image->size());
    return cost + ClippedCost(linesOfClip, seen.height() / image->height());
}

// For the pixels of an area, each at that cost.
bool cMetafileCanvas::PayForArea(const QRect& visible, double pixelCost)
{
    const double share = static_cast<double>(visible.height()) / image->height();
    return Spend(2000 + pixelCost * visible.width() * visible.height() + ClippedCost(linesOfClip, share));
}

void cMetafileCanvas::Note(const QRectF& pixels)
{
    extent = extent.isNull() ? pixels : extent.united(pixels);
}

bool cMetafileCanvas::UseClip()
{
    if (isClipUsed)
        return true;
    linesOfClip = state.isClipped ? LinesOfClip(state.clip) : 0;
    if (!Spend(ClipCost(linesOfClip)))
        return false;
    isClipUsed = true;
    if (state.isClipped)
        painter->setClipRegion(state.clip);
    else
        painter->setClipping(false);
    return true;
}

// A path bracket collects what is drawn.
void cMetafileCanvas::Draw(const QPainterPath& drawn, Parts parts)
{
    if (!isPathOpen) {
        Paint(drawn, parts);
        return;
    }
    if (Spend(100 + 30.0 * drawn.elementCount()))
        path.addPath(drawn);
}

void cMetafileCanvas::Paint(const QPainterPath& drawn, Parts parts)
{
    if (drawn.isEmpty() || (painter && !UseClip()) || !Spend(CostOf(drawn, parts)))
        return;
    if (!painter) {
        // A line without height still has a place.
        Note(drawn.controlPointRect().adjusted(0, 0, 1, 1));
        return;
    }
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
    const QPointF pixel = ToPixels(place);
    if (!painter) {
        Note(QRectF(pixel, QSizeF(1, 1)));
        return;
    }
    if (!UseClip() || !Spend(500 + ClippedCost(linesOfClip, 0)))
        return;
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
    if (!painter) {
        Note(pixels);
        return;
    }
    constexpr double pixelCost = 0.5;
    if (!UseClip() || !PayForArea(pixels.toAlignedRect() & image->rect(), pixelCost))
        return;
    QLinearGradient gradient(pixels.topLeft(), direction == Qt::Horizontal ? pixels.topRight() : pixels.bottomLeft());
    gradient.setColorAt(0, QColor(first));
    gradient.setColorAt(1, QColor(last));
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
    if (!painter)
        return;
    constexpr double pixelCost = 2;
    const QRect area = drawn.controlPointRect().toAlignedRect().adjusted(-1, -1, 1, 1) & image->rect();
    if (Spend(FillCost(drawn, image->size()) + pixelCost * area.width() * area.height()))
        CombineClip(RegionOfPath(drawn, area), mode);
}

// --- Clipping. ------------------------------------------------------------------------------------------------------

void cMetafileCanvas::CombineClip(QRegion region, ClipMode mode)
{
    if (image == nullptr)
        return;
    region &= image->rect();
    if (!state.isClipped && mode != ClipMode::Copy)
        state.clip = image->rect();
    if (!Spend(CombiningCost(region.rectCount() + state.clip.rectCount())))
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
    if (!state.isClipped || !Spend(CombiningCost(state.clip.rectCount())))
        return;
    state.clip.translate(pixels.toPoint());
    isClipUsed = false;
}

void cMetafileCanvas::ClipToRegion(const MetafileRegion& region, ClipMode mode)
{
    QRegion pixels;
    for (const QRectF& box : region.boxes) {
        if (!Spend(CombiningCost(pixels.rectCount()) / 3))
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
