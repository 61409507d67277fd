// SPDX-License-Identifier: GPL-3.0-or-later
// What the drawing steps of a metafile cost.
#include "imagetools/metafiles/modMetafileCost.h"

#include <algorithm>
#include <cmath>

namespace ob {

namespace {

constexpr double PathWork = 500; // of any path
constexpr double PointWork = 30;
constexpr double CurveWork = 10'000;      // a large curve becomes hundreds of lines
constexpr double StrokedPointWork = 2000; // with its corner
constexpr double DashWork = 3000;

// Edges that cross lines of pixels, over so many lines. They are kept in a tree that is a list at its worst.
double CrossingCost(double crossings, double lines)
{
    constexpr double edgeWork = 65;
    constexpr double stepWork = 1.2;
    return crossings * (edgeWork + stepWork * crossings / std::max(lines, 1.0));
}

// The lines of a path on a picture; what is beyond the picture counts only with its last line of pixels.
struct Lines {
    double count = 0;
    double curves = 0;
    double length = 0;
    double height = 0;
    double rows = 0; // lines of pixels between the highest and the lowest place
};

Lines LinesOf(const QPainterPath& path, const QRectF& area)
{
    const auto inside = [&](QPointF place) {
        return QPointF(std::clamp(place.x(), area.left(), area.right()),
                       std::clamp(place.y(), area.top(), area.bottom()));
    };
    Lines lines;
    lines.count = path.elementCount();
    QPointF before;
    double top = area.bottom();
    double bottom = area.top();
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        const QPointF place = inside(element);
        if (!element.isMoveTo()) {
            lines.length += std::abs(place.x() - before.x()) + std::abs(place.y() - before.y());
            lines.height += std::abs(place.y() - before.y());
        }
        lines.curves += element.isCurveTo() ? 1 : 0;
        top = std::min(top, place.y());
        bottom = std::max(bottom, place.y());
        before = place;
    }
    lines.rows = std::max(bottom - top, 1.0);
    return lines;
}

QRectF Everywhere()
{
    constexpr double far = 1e6;
    return {QPointF(-far, -far), QPointF(far, far)};
}

double WideStrokeCost(const Lines& lines, double dashes, const MetafileStroke& stroke, QSize picture)
{
    const double pixels = static_cast<double>(picture.width()) * picture.height();
    const double corner = std::min(4 * stroke.reach, 2.0 * picture.height());
    const double crossings = 2 * lines.height + (lines.count + dashes) * corner;
    const double area = std::min((lines.length + lines.count * stroke.width) * stroke.width, pixels);
    return lines.count * StrokedPointWork + dashes * DashWork +
           CrossingCost(crossings, std::min(lines.rows + corner, 1.0 * picture.height())) +
           area * (stroke.mixing == MetafileMixing::Replace ? 1 : 2);
}

} // namespace

double PixelCost(const MetafileBrush& brush, BackgroundMode background, MetafileMixing mixing)
{
    const double solid = mixing == MetafileMixing::Replace ? 0.25 : 0.8;
    if (brush.style == Qt::NoBrush)
        return 0;
    if (brush.style == Qt::TexturePattern && !brush.texture.isNull())
        return (mixing == MetafileMixing::Replace ? 1 : 2) * (3 + 8.0 / brush.texture.width());
    if (brush.style >= Qt::HorPattern && brush.style <= Qt::DiagCrossPattern)
        return 4 + (background == BackgroundMode::Opaque ? solid : 0);
    return solid;
}

double FillCost(const QPainterPath& path, QSize picture)
{
    const Lines lines = LinesOf(path, QRectF(QPointF(0, 0), QSizeF(picture)));
    return PathWork + PointWork * lines.count + CurveWork / 3 * lines.curves + CrossingCost(lines.height, lines.rows);
}

double StrokeCost(const QPainterPath& path, const MetafileStroke& stroke, QSize picture)
{
    const double beyond = stroke.reach + 1;
    const QRectF seen = QRectF(QPointF(0, 0), QSizeF(picture)).adjusted(-beyond, -beyond, beyond, beyond);
    const bool hasDashes = stroke.dashLength > 0;
    // Dashes are laid from a line's beginning, wherever that is.
    const Lines lines = LinesOf(path, hasDashes ? Everywhere() : seen);
    const double start = PathWork + PointWork * lines.count + CurveWork * lines.curves;
    if (stroke.width > 1) {
        const double dashes = hasDashes ? lines.length / stroke.dashLength + lines.count : 0;
        return start + WideStrokeCost(lines, dashes, stroke, picture) +
               (stroke.hasGround ? WideStrokeCost(lines, 0, stroke, picture) : 0);
    }
    const double pixel = stroke.mixing == MetafileMixing::Replace ? 10 : 200;
    return start + lines.length * pixel * ((hasDashes ? 2 : 1) + (stroke.hasGround ? 1 : 0));
}

double CombiningCost(int boxes)
{
    return 1000 + 150.0 * boxes;
}

double LinesOfClip(const QRegion& clip)
{
    double lines = 0;
    if (clip.rectCount() > 1)
        for (const QRect& box : clip)
            lines += box.height();
    return lines;
}

double ClipCost(double linesOfClip)
{
    return 1000 + 100 * linesOfClip;
}

double ClippedCost(double linesOfClip, double share)
{
    return linesOfClip * (1 + 20 * share);
}

double CharacterCost(double height)
{
    // Large characters are drawn anew each time, very large ones as shapes.
    return 4000 + std::min(16 * height * height, 450'000.0);
}

} // namespace ob
