// SPDX-License-Identifier: GPL-3.0-or-later
// The Window menu.
#include "shell/bench/frmMainWindows.h"

#include "shell/bench/frmMain.h"
#include "shell/bench/modArrange.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr char ListMark[] = "windowListEntry";

int TitleHeight(const QMdiArea& area)
{
    return area.style()->pixelMetric(QStyle::PM_TitleBarHeight) + 4;
}

void PlaceWindows(const QList<QMdiSubWindow*>& windows, const QList<QRect>& places)
{
    for (qsizetype i = 0; i < windows.size(); ++i)
        windows[i]->setGeometry(places[i]);
}

void Arrange(Arrangement arrangement)
{
    frmMain* frame = frmMain::Instance();
    if (frame == nullptr)
        return;
    QMdiArea& area = frame->Area();
    QMdiSubWindow* active = area.currentSubWindow();
    QList<QMdiSubWindow*> open;
    QList<QMdiSubWindow*> icons;
    for (QMdiSubWindow* window : area.subWindowList())
        (window->isMinimized() ? icons : open).append(window);

    if (arrangement != Arrangement::Icons) {
        for (QMdiSubWindow* window : open)
            window->showNormal();
        PlaceWindows(open, ArrangedPlaces(arrangement, area.viewport()->size(), static_cast<int>(open.size()),
                                          TitleHeight(area)));
    }
    if (!icons.isEmpty())
        PlaceWindows(icons, IconPlaces(area.viewport()->size(), static_cast<int>(icons.size()), icons.first()->size()));
    if (active != nullptr)
        area.setActiveSubWindow(active);
}

void FillWindowList(QMenu& menu, QMdiArea& area)
{
    for (QAction* action : menu.actions())
        if (action->property(ListMark).toBool())
            delete action;
    const QList<QMdiSubWindow*> windows = area.subWindowList();
    if (windows.isEmpty())
        return;
    menu.addSeparator()->setProperty(ListMark, true);
    for (qsizetype i = 0; i < windows.size(); ++i) {
        QMdiSubWindow* window = windows[i];
        QString caption = window->windowTitle();
        caption.replace(QLatin1Char('&'), QLatin1String("&&"));
        const QString number = i < 9 ? u"&%1 "_s.arg(i + 1) : u"%1 "_s.arg(i + 1);
        QAction* action = menu.addAction(number + caption);
        action->setProperty(ListMark, true);
        action->setCheckable(true);
        action->setChecked(window == area.currentSubWindow());
        QObject::connect(action, &QAction::triggered, window, [window, &area] {
            if (window->isMinimized())
                window->showNormal();
            area.setActiveSubWindow(window);
        });
    }
}

} // namespace

void mnuWindowCascade_Click()
{
    Arrange(Arrangement::Cascade);
}

void mnuWindowTileHorizontal_Click()
{
    Arrange(Arrangement::TileHorizontal);
}

void mnuWindowTileVertical_Click()
{
    Arrange(Arrangement::TileVertical);
}

void mnuWindowArrangeIcons_Click()
{
    Arrange(Arrangement::Icons);
}

void KeepWindowList(frmMain& frame)
{
    QMenu* menu = frame.Item(u"mnuWindow"_s)->menu();
    QObject::connect(menu, &QMenu::aboutToShow, menu, [menu, &frame] { FillWindowList(*menu, frame.Area()); });
}

} // namespace ob
