// SPDX-License-Identifier: GPL-3.0-or-later
// Where child windows go when they are cascaded, tiled or lined up: arithmetic over rectangles.
#pragma once

#include <QList>
#include <QRect>
#include <QSize>

namespace ob {

enum class Arrangement { Cascade = 0, TileHorizontal = 1, TileVertical = 2, Icons = 3 };

// The places of so many windows in an area, in their order. A cascade steps by the height of a title bar and starts
// anew when it would leave the area; horizontal tiles lie one above the other, vertical ones side by side, and from
// four on in a grid of near-equal columns or rows. Icons line up at the bottom in rows, size of one given.
QList<QRect> ArrangedPlaces(Arrangement arrangement, QSize area, int count, int titleHeight);
QList<QRect> IconPlaces(QSize area, int count, QSize icon);

// Where a main window with this stored rectangle (in pixels, of any values) comes up: the rectangle itself when enough
// of its upper edge to take hold of lies on one of the screens, else the same size in the first screen's corner. No
// side is below a least size, nor beyond what all screens together span.
struct StoredPlace {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};
QRect ReachablePlace(const StoredPlace& stored, const QList<QRect>& screens);

} // namespace ob
