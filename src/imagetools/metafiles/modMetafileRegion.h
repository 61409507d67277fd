// SPDX-License-Identifier: GPL-3.0-or-later
// The pixels that a path fills, as a region.
#pragma once

#include <QPainterPath>
#include <QRegion>

namespace ob {

// The pixels within the area that filling the path would paint. Takes time in proportion to the area and the path's
// edges; the toolkit's own region of a polygon copies its boxes with every line of pixels.
QRegion RegionOfPath(const QPainterPath& path, const QRect& area);

} // namespace ob
