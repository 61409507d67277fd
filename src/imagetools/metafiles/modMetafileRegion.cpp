// SPDX-License-Identifier: GPL-3.0-or-later
// The pixels that a path fills, as a region.
#include "imagetools/metafiles/modMetafileRegion.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <vector>

namespace ob {

namespace {

constexpr QRgb Outside = 0xFF000000;

// The runs of painted pixels of a line.
std::vector<QRect> RunsOf(const QImage& mask, int y)
{
    std::vector<QRect> runs;
    const auto* line = reinterpret_cast<const QRgb*>(mask.constScanLine(y));
    const auto* const end = line + mask.width();
    const auto isOutside = [](QRgb pixel) { return pixel == Outside; };
    for (const auto* place = std::find_if_not(line, end, isOutside); place != end;) {
        const auto* const last = std::find(place, end, Outside);
        runs.emplace_back(static_cast<int>(place - line), y, static_cast<int>(last - place), 1);
        place = std::find_if_not(last, end, isOutside);
    }
    return runs;
}

bool AreAlike(const QRect& left, const QRect& right)
{
    return left.left() == right.left() && left.right() == right.right();
}

} // namespace

QRegion RegionOfPath(const QPainterPath& path, const QRect& area)
{
    if (area.isEmpty())
        return {};
    QImage mask(area.size(), QImage::Format_RGB32);
    mask.fill(Outside);
    QPainter painter(&mask);
    painter.translate(-area.topLeft());
    painter.fillPath(path, Qt::white);
    painter.end();

    std::vector<QRect> boxes;
    std::size_t band = 0; // the first box of the lines above that are alike
    for (int y = 0; y < mask.height(); ++y) {
        const std::vector<QRect> runs = RunsOf(mask, y);
        const auto above = boxes.begin() + static_cast<std::ptrdiff_t>(band);
        const bool continues = !runs.empty() && above != boxes.end() && above->bottom() == y - 1 &&
                               std::equal(above, boxes.end(), runs.begin(), runs.end(), AreAlike);
        if (continues) {
            std::for_each(above, boxes.end(), [y](QRect& box) { box.setBottom(y); });
            continue;
        }
        band = boxes.size();
        boxes.insert(boxes.end(), runs.begin(), runs.end());
    }
    QRegion region;
    region.setRects(boxes.data(), static_cast<int>(boxes.size()));
    return region.translated(area.topLeft());
}

} // namespace ob
