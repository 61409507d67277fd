// SPDX-License-Identifier: GPL-3.0-or-later
// Where the main window opens, and what is remembered of it.
#include "shell/bench/frmMain.h"
#include "shell/bench/modArrange.h"
#include "shell/state/Module1.h"
#include "shell/state/modOptions.h"
#include "shell/state/modPlaces.h"
#include "shell/state/modSettings.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

const QString Section = u"Bench"_s;
const QString MaximizedKey = u"Maximized"_s;
const QString Yes = u"True"_s;

float ToTwips(int pixels, int perPixel)
{
    return static_cast<float>(pixels * perPixel);
}

StoredPlace PixelsOf(const WindowPlace& twips)
{
    const auto pixels = [](float value, int perPixel) { return static_cast<double>(value) / perPixel; };
    return {pixels(twips.left, TwipsPerPixelX), pixels(twips.top, TwipsPerPixelY), pixels(twips.width, TwipsPerPixelX),
            pixels(twips.height, TwipsPerPixelY)};
}

// The space on each screen for a window whose frame has no measures yet: its place is that of its frame, its size that
// of what is inside.
QList<QRect> Rooms(const QWidget& window)
{
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    QList<QRect> rooms;
    for (const QScreen* screen : QApplication::screens())
        rooms.append(screen->availableGeometry().adjusted(0, 0, 0, -title));
    return rooms;
}

} // namespace

StartState frmMain::PlaceWindow(std::optional<QSize> size)
{
    const QList<QRect> rooms = Rooms(*this);
    const QRect stored = PlaceOnScreens(PixelsOf(ReadWindowPlace()), rooms);
    move(stored.topLeft());
    resize(size.value_or(stored.size()));
    if (size)
        return StartState::Normal;
    const bool isFirst = !HasSettings();
    if (!isFirst && ReadRemembered(Section, MaximizedKey) != Yes)
        return StartState::Normal;
    normalPlace = stored;
    if (const auto normal = RememberedPlace(objectName()); !isFirst && normal) {
        normalPlaceOf = PlaceOf::Inside;
        normalPlace = PlaceOnScreens({static_cast<double>(normal->x()), static_cast<double>(normal->y()),
                                      static_cast<double>(normal->width()), static_cast<double>(normal->height())},
                                     rooms);
    }
    // Where nothing maximizes windows, this is what the user sees. A window that is smaller than what it is about to
    // show would grow before it is on the screen, and be maximized no more.
    const auto hasCorner = [this](const QRect& room) { return room.contains(normalPlace->topLeft()); };
    const auto room = std::find_if(rooms.begin(), rooms.end(), hasCorner);
    const QRect screen = room == rooms.end() ? rooms.value(0) : *room;
    setGeometry(PulledOnto(screen, QRect(screen.topLeft(), FirstSize)));
    return StartState::Maximized;
}

void frmMain::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange || isMaximized() || isMinimized() || !normalPlace)
        return;
    if (normalPlaceOf == PlaceOf::Inside) {
        setGeometry(*normalPlace);
    } else {
        move(normalPlace->topLeft());
        resize(normalPlace->size());
    }
    normalPlace.reset();
}

void frmMain::StorePlace()
{
    if (isMinimized())
        return;
    SaveWindowPlace({ToTwips(x(), TwipsPerPixelX), ToTwips(y(), TwipsPerPixelY), ToTwips(width(), TwipsPerPixelX),
                     ToTwips(height(), TwipsPerPixelY)});
    WriteRemembered(Section, MaximizedKey, isMaximized() ? Yes : u"False"_s);
    // The stored rectangle is the maximized one.
    if (isMaximized())
        RememberPlace(objectName(), normalPlace.value_or(normalGeometry()));
}

} // namespace ob
