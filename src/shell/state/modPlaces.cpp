// SPDX-License-Identifier: GPL-3.0-or-later
// The places of windows, and the folders of tools.
#include "shell/state/modPlaces.h"

#include "shell/state/modSettings.h"

#include <QStringList>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

const QString Windows = u"Windows"_s;
const QString Folders = u"Folders"_s;

} // namespace

QRect PulledOnto(const QRect& room, const QRect& window)
{
    const QSize size = window.size().boundedTo(room.size());
    const int left = std::clamp(window.left(), room.left(), room.left() + room.width() - size.width());
    const int top = std::clamp(window.top(), room.top(), room.top() + room.height() - size.height());
    return {QPoint(left, top), size};
}

std::optional<QRect> RememberedPlace(const QString& window)
{
    const QStringList words = ReadRemembered(Windows, window).split(u' ');
    std::array<int, 4> numbers = {};
    if (words.size() != static_cast<qsizetype>(numbers.size()))
        return std::nullopt;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        // Far beyond every screen; sums of such numbers do not overflow.
        constexpr int most = 1 << 20;
        bool isNumber = false;
        numbers[i] = words[static_cast<qsizetype>(i)].toInt(&isNumber);
        if (!isNumber || std::abs(numbers[i]) > most)
            return std::nullopt;
    }
    const QRect place(numbers[0], numbers[1], numbers[2], numbers[3]);
    return place.isEmpty() ? std::nullopt : std::optional(place);
}

void RememberPlace(const QString& window, const QRect& place)
{
    WriteRemembered(Windows, window,
                    u"%1 %2 %3 %4"_s.arg(place.left()).arg(place.top()).arg(place.width()).arg(place.height()));
}

QString LastFolder(const QString& tool)
{
    return ReadRemembered(Folders, tool);
}

void RememberFolder(const QString& tool, const QString& folder)
{
    WriteRemembered(Folders, tool, folder);
}

} // namespace ob
