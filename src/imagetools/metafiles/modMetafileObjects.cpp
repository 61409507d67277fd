// SPDX-License-Identifier: GPL-3.0-or-later
// The objects with which a metafile draws.
#include "imagetools/metafiles/modMetafileObjects.h"

#include "imagetools/metafiles/cMetafileRecord.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// Zero or infinite scales from a hostile file would break every later calculation.
constexpr double SmallestExtent = 1e-9;

double Ratio(double viewport, double window)
{
    return std::abs(window) < SmallestExtent ? 0 : viewport / window;
}

// Units per millimetre of the modes from LowMetric to Twips.
double UnitsPerMillimetre(MapMode mode)
{
    switch (mode) {
    case MapMode::LowMetric:
        return 10;
    case MapMode::HighMetric:
        return 100;
    case MapMode::LowEnglish:
        return 100 / 25.4;
    case MapMode::HighEnglish:
        return 1000 / 25.4;
    default:
        return 1440 / 25.4;
    }
}

QPointF ScaleOf(const MetafileMapping& mapping, QPointF pixelsPerMillimetre)
{
    if (mapping.mode == MapMode::Text)
        return {1, 1};
    if (mapping.mode < MapMode::Isotropic) {
        const double units = UnitsPerMillimetre(mapping.mode);
        return {pixelsPerMillimetre.x() / units, -pixelsPerMillimetre.y() / units};
    }
    const QPointF scale(Ratio(mapping.viewportExtent.x(), mapping.windowExtent.x()),
                        Ratio(mapping.viewportExtent.y(), mapping.windowExtent.y()));
    if (mapping.mode == MapMode::Anisotropic)
        return scale;
    const double both = std::min(std::abs(scale.x()), std::abs(scale.y()));
    return {std::copysign(both, scale.x()), std::copysign(both, scale.y())};
}

Qt::PenStyle LineStyle(std::uint32_t style)
{
    constexpr Qt::PenStyle styles[] = {Qt::SolidLine,   Qt::DashLine,       Qt::DotLine,
                                       Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen};
    const std::uint32_t line = style & 0xF;
    return line < std::size(styles) ? styles[line] : Qt::SolidLine;
}

// Lengths of dashes and gaps in pixels, as this kind of picture has always had them.
QList<qreal> DashesOf(Qt::PenStyle style)
{
    switch (style) {
    case Qt::DashLine:
        return {18, 6};
    case Qt::DotLine:
        return {3, 3};
    case Qt::DashDotLine:
        return {9, 6, 3, 6};
    case Qt::DashDotDotLine:
        return {9, 3, 3, 3, 3, 3};
    default:
        return {};
    }
}

MetafileFont StockFont(bool isFixed)
{
    MetafileFont font;
    font.height = -13;
    font.pitch = isFixed ? 1 : 2;
    font.face = isFixed ? u"Courier New"_s : u"Arial"_s;
    return font;
}

} // namespace

QRgb ColorOfRecord(std::uint32_t color)
{
    return qRgb(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                static_cast<int>((color >> 16) & 0xFF));
}

QString TextOfUnits(QByteArrayView units)
{
    cMetafileRecord record(units);
    QString text;
    while (record.Left() >= 2)
        text.append(QChar(record.UInt16()));
    return text;
}

MetafilePen PenOfStyle(std::uint32_t style, double width, std::uint32_t color)
{
    MetafilePen pen;
    pen.style = LineStyle(style);
    pen.width = std::abs(width);
    pen.color = ColorOfRecord(color);
    pen.dashes = DashesOf(pen.style);
    const std::uint32_t cap = style & 0xF00;
    pen.cap = cap == 0x100 ? Qt::SquareCap : cap == 0x200 ? Qt::FlatCap : Qt::RoundCap;
    const std::uint32_t join = style & 0xF000;
    pen.join = join == 0x1000 ? Qt::BevelJoin : join == 0x2000 ? Qt::MiterJoin : Qt::RoundJoin;
    return pen;
}

MetafileBrush BrushOfStyle(std::uint32_t style, std::uint32_t color, std::uint32_t hatch)
{
    constexpr Qt::BrushStyle hatches[] = {Qt::HorPattern,   Qt::VerPattern,   Qt::FDiagPattern,
                                          Qt::BDiagPattern, Qt::CrossPattern, Qt::DiagCrossPattern};
    MetafileBrush brush;
    brush.color = ColorOfRecord(color);
    if (style == 1)
        brush.style = Qt::NoBrush;
    else if (style == 2 && hatch < std::size(hatches))
        brush.style = hatches[hatch];
    return brush;
}

MetafileObject StockObject(std::uint32_t number)
{
    constexpr std::uint32_t greys[] = {0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0x000000};
    if (number < std::size(greys))
        return BrushOfStyle(0, greys[number], 0);
    switch (number) {
    case 5:
        return BrushOfStyle(1, 0, 0);
    case 6:
        return PenOfStyle(0, 0, 0xFFFFFF);
    case 7:
        return PenOfStyle(0, 0, 0);
    case 8:
        return PenOfStyle(5, 0, 0);
    case 10:
    case 11:
    case 16:
        return StockFont(true);
    case 12:
    case 13:
    case 14:
    case 17:
        return StockFont(false);
    case 15:
        return MetafileUnused{};
    case 18: // the brush and the pen whose colour is set elsewhere
        return BrushOfStyle(0, 0xFFFFFF, 0);
    case 19:
        return PenOfStyle(0, 0, 0);
    default:
        return {};
    }
}

QTransform MetafileMapping::ToDevice(QPointF pixelsPerMillimetre) const
{
    const QPointF scale = ScaleOf(*this, pixelsPerMillimetre);
    const QTransform page(scale.x(), 0, 0, scale.y(), viewportOrigin.x() - windowOrigin.x() * scale.x(),
                          viewportOrigin.y() - windowOrigin.y() * scale.y());
    return world * page;
}

} // namespace ob
