// SPDX-License-Identifier: GPL-3.0-or-later
// The metafile's device: pictures and patterns, with every way to combine them with the target.
#include "imagetools/metafiles/cMetafileCanvas.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace ob {

namespace {

constexpr std::uint32_t SourceCopy = 0x00CC0020;

// In nanoseconds.
constexpr double StretchedPixelCost = 14;
constexpr double SmoothPixelCost = 26;
constexpr double CombinedPixelCost = 10;

// The table of a raster operation: bit 4p + 2s + d is its result for one bit of pattern, source and destination.
std::uint8_t TableOf(std::uint32_t operation)
{
    return static_cast<std::uint8_t>(operation >> 16);
}

bool NeedsPattern(std::uint8_t table)
{
    return (table >> 4) != (table & 0xF);
}

bool NeedsSource(std::uint8_t table)
{
    return ((table >> 2) & 0x33) != (table & 0x33);
}

// For each of the table's bits either all ones or none.
using TableMasks = std::array<std::uint32_t, 8>;

TableMasks MasksOf(std::uint8_t table)
{
    TableMasks masks = {};
    for (unsigned bit = 0; bit < 8; ++bit)
        masks[bit] = (table >> bit & 1) != 0 ? 0xFFFFFFFF : 0;
    return masks;
}

// The bits of the first where the choice has ones, else those of the second.
constexpr std::uint32_t Choose(std::uint32_t choice, std::uint32_t first, std::uint32_t second)
{
    return second ^ (choice & (first ^ second));
}

void CombineLine(const TableMasks& masks, const QRgb* pattern, const QRgb* source, QRgb* line, int width)
{
    for (int x = 0; x < width; ++x) {
        const std::uint32_t d = line[x];
        const std::uint32_t with = Choose(source[x], Choose(d, masks[7], masks[6]), Choose(d, masks[5], masks[4]));
        const std::uint32_t without = Choose(source[x], Choose(d, masks[3], masks[2]), Choose(d, masks[1], masks[0]));
        line[x] = Choose(pattern[x], with, without) | 0xFF000000;
    }
}

} // namespace

// Combines brush, source and target, pixel by pixel; the source has the area's size, or is empty.
void cMetafileCanvas::CombineArea(const QRect& area, const QImage& source, std::uint32_t operation)
{
    const std::uint8_t table = TableOf(operation);
    QImage result = image->copy(area);
    QImage pattern;
    if (NeedsPattern(table)) {
        pattern = QImage(area.size(), QImage::Format_RGB32);
        pattern.fill(state.backColor);
        QPainter brush(&pattern);
        brush.translate(-area.topLeft());
        QPainterPath all;
        all.addRect(area);
        PaintBrush(brush, all, state.brush);
    }
    const TableMasks masks = MasksOf(table);
    for (int y = 0; y < area.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
        // Where the operation does not ask for one, any line will do.
        const auto lineOf = [&](const QImage& each) {
            return each.isNull() ? line : reinterpret_cast<const QRgb*>(each.constScanLine(y));
        };
        CombineLine(masks, lineOf(pattern), lineOf(source), line, area.width());
    }
    painter->setCompositionMode(QPainter::CompositionMode_Source);
    painter->drawImage(area.topLeft(), result);
}

void cMetafileCanvas::PatternBlt(QRectF box, std::uint32_t operation)
{
    constexpr std::uint32_t patternCopy = 0x00F00021;
    const QRect area = PixelArea(box);
    if (!painter) {
        Note(area);
        return;
    }
    const QRect visible = area & image->rect();
    const std::uint8_t table = TableOf(operation);
    if (visible.isEmpty() || NeedsSource(table))
        return;
    const double brushCost = PixelCost(state.brush, state.backMode, MetafileMixing::Replace);
    if (!UseClip() || !PayForArea(visible, operation == patternCopy ? brushCost : brushCost + CombinedPixelCost))
        return;
    if (operation != patternCopy) {
        CombineArea(visible, {}, operation);
        return;
    }
    QPainterPath all;
    all.addRect(visible);
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    const int before = state.rasterOperation;
    state.rasterOperation = 13;
    PaintBrush(*painter, all, state.brush);
    state.rasterOperation = before;
}

// The visible part of the picture in its size on the target.
QImage cMetafileCanvas::StretchedSource(const MetafileBlt& blt, const QRect& area, const QRect& visible) const
{
    const QPointF first = ToPixels(blt.target.topLeft());
    const QPointF last = ToPixels(blt.target.bottomRight());
    const bool isMirrored = (last.x() < first.x()) != (blt.source.width() < 0);
    const bool isUpsideDown = (last.y() < first.y()) != (blt.source.height() < 0);
    QImage stretched(visible.size(), QImage::Format_RGB32);
    stretched.fill(state.backColor);
    QPainter copier(&stretched);
    copier.setRenderHint(QPainter::SmoothPixmapTransform, state.isSmoothStretch);
    copier.translate(area.left() - visible.left(), area.top() - visible.top());
    if (isMirrored || isUpsideDown) {
        copier.translate(isMirrored ? area.width() : 0, isUpsideDown ? area.height() : 0);
        copier.scale(isMirrored ? -1 : 1, isUpsideDown ? -1 : 1);
    }
    copier.drawImage(QRectF(QPointF(0, 0), QSizeF(area.size())), blt.image, blt.source.normalized());
    return stretched;
}

void cMetafileCanvas::TurnedBlt(const MetafileBlt& blt)
{
    painter->save();
    painter->setTransform(toPixels);
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter->setOpacity(blt.opacity);
    painter->drawImage(blt.target, blt.image, blt.source);
    painter->restore();
}

void cMetafileCanvas::Blt(const MetafileBlt& blt)
{
    const QRect area = PixelArea(blt.target);
    if (!painter) {
        Note(area);
        return;
    }
    const QRect visible = area & image->rect();
    const double pixelCost = state.isSmoothStretch ? SmoothPixelCost : StretchedPixelCost;
    if (visible.isEmpty() || blt.image.isNull() || blt.source.isEmpty() || !UseClip() ||
        !PayForArea(visible, blt.operation == SourceCopy ? pixelCost : pixelCost + CombinedPixelCost))
        return;
    if (toPixels.type() > QTransform::TxScale) {
        TurnedBlt(blt);
        return;
    }
    if (blt.operation == SourceCopy && (blt.opacity < 1 || blt.image.hasAlphaChannel())) {
        painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter->setOpacity(blt.opacity);
        painter->drawImage(QRectF(area), blt.image, blt.source.normalized());
        painter->setOpacity(1);
        return;
    }
    const QImage stretched = StretchedSource(blt, area, visible);
    if (blt.operation != SourceCopy) {
        CombineArea(visible, stretched, blt.operation);
        return;
    }
    painter->setCompositionMode(QPainter::CompositionMode_Source);
    painter->drawImage(visible.topLeft(), stretched);
}

} // namespace ob
