// SPDX-License-Identifier: GPL-3.0-or-later
// The places of child windows that are cascaded, tiled or lined up: arithmetic on rectangles.
#pragma once

#include <QList>
#include <QRect>
#include <QSize>

namespace ob {

enum class Arrangement { Cascade = 0, TileHorizontal = 1, TileVertical = 2, Icons = 3 };

// The places of that many windows in an area, in their order. A cascade steps by the height of a title bar and restarts
// when it would leave the area; horizontal tiles are one above the other, vertical ones side by side, and four or more
// form a grid of nearly equal columns or rows. Icons of the given size line up at the bottom in rows.
QList<QRect> ArrangedPlaces(Arrangement arrangement, QSize area, int count, int titleHeight);
QList<QRect> IconPlaces(QSize area, int count, QSize icon);

// The place of a main window with this stored rectangle (in pixels, with any values): the rectangle itself when all of
// it is on the screens, otherwise pulled whole onto the one that has most of it, or the first. No side is below a
// minimum size.
struct StoredPlace {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};
QRect PlaceOnScreens(const StoredPlace& stored, const QList<QRect>& screens);

} // namespace ob
