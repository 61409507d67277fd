// SPDX-License-Identifier: GPL-3.0-or-later
// The places of arranged child windows.
#include "shell/bench/modArrange.h"

#include "shell/state/modPlaces.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace ob {

namespace {

QList<QRect> Cascade(QSize area, int count, int step)
{
    // Three quarters of the area, so that at least four steps fit before the row restarts.
    const QSize size(std::max(1, area.width() * 3 / 4), std::max(1, area.height() * 3 / 4));
    const int room = std::min(area.width() - size.width(), area.height() - size.height());
    const int steps = std::max(1, room / std::max(1, step) + 1);
    QList<QRect> places;
    for (int i = 0; i < count; ++i) {
        const int offset = (i % steps) * step;
        places.append(QRect(QPoint(offset, offset), size));
    }
    return places;
}

// Start and end of one of the nearly equal parts of a length; `part` counts from 0.
std::pair<int, int> Part(int length, int parts, int part)
{
    return {length * part / parts, length * (part + 1) / parts};
}

// Columns of tiles; the last ones take the windows left over by the division.
QList<QRect> Columns(QSize area, int count)
{
    int columns = 1;
    while ((columns + 1) * (columns + 1) <= count)
        ++columns;
    QList<QRect> places;
    for (int column = 0; column < columns; ++column) {
        const int rows = count / columns + (column >= columns - count % columns ? 1 : 0);
        const auto [left, right] = Part(area.width(), columns, column);
        for (int row = 0; row < rows; ++row) {
            const auto [top, bottom] = Part(area.height(), rows, row);
            places.append(QRect(left, top, right - left, bottom - top));
        }
    }
    return places;
}

qint64 AreaOf(const QRect& place)
{
    return place.isEmpty() ? 0 : qint64{place.width()} * place.height();
}

} // namespace

QList<QRect> ArrangedPlaces(Arrangement arrangement, QSize area, int count, int titleHeight)
{
    if (count <= 0)
        return {};
    if (arrangement == Arrangement::Cascade)
        return Cascade(area, count, titleHeight);
    if (arrangement == Arrangement::TileHorizontal)
        return Columns(area, count);
    QList<QRect> places = Columns(area.transposed(), count);
    for (QRect& place : places)
        place = QRect(place.y(), place.x(), place.height(), place.width());
    return places;
}

QList<QRect> IconPlaces(QSize area, int count, QSize icon)
{
    const int perRow = std::max(1, area.width() / std::max(1, icon.width()));
    QList<QRect> places;
    for (int i = 0; i < count; ++i) {
        const int row = i / perRow + 1;
        places.append(QRect(QPoint((i % perRow) * icon.width(), area.height() - row * icon.height()), icon));
    }
    return places;
}

QRect PlaceOnScreens(const StoredPlace& stored, const QList<QRect>& screens)
{
    constexpr QSize least(200, 150);
    QRect span;
    for (const QRect& screen : screens)
        span = span.united(screen);
    const auto whole = [](double value, int lowest, int highest) {
        return value >= lowest ? static_cast<int>(std::min<double>(value, std::max(lowest, highest)) + 0.5) : lowest;
    };
    const QSize size(whole(stored.width, least.width(), span.width()),
                     whole(stored.height, least.height(), span.height()));
    const auto coordinate = [](double value) { return static_cast<int>(std::round(std::clamp(value, -1e6, 1e6))); };
    const QRect place(QPoint(coordinate(stored.left), coordinate(stored.top)), size);
    if (screens.isEmpty())
        return place;
    const auto shared = [&place](const QRect& screen) { return AreaOf(place.intersected(screen)); };
    const qint64 seen = std::accumulate(screens.begin(), screens.end(), qint64{0},
                                        [&](qint64 sum, const QRect& screen) { return sum + shared(screen); });
    if (seen == AreaOf(place))
        return place;
    const auto fullest = std::max_element(screens.begin(), screens.end(), [&](const QRect& one, const QRect& other) {
        return shared(one) < shared(other);
    });
    return PulledOnto(*fullest, place);
}

} // namespace ob
