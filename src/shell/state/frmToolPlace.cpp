// SPDX-License-Identifier: GPL-3.0-or-later
// Size, place and folder of a tool.
#include "shell/state/frmToolPlace.h"

#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/frmFolderBrowser.h"
#include "platform/files/modFiles.h"
#include "shell/state/modPlaces.h"

#include <QEvent>
#include <QGuiApplication>
#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QSplitter>
#include <QStyle>
#include <QVBoxLayout>

#include <utility>

namespace ob {

namespace {

// Stores the place of the window whose child it is whenever that is hidden.
class PlaceKeeper final : public QObject {
public:
    explicit PlaceKeeper(QDialog& tool) : QObject(&tool) { tool.installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // A spontaneous one comes from the desktop: the window is minimized and still open.
        if (event->type() == QEvent::Hide && !event->spontaneous()) {
            const auto* window = static_cast<QWidget*>(watched);
            const bool isLarge = window->isMaximized() || window->isFullScreen();
            RememberPlace(window->objectName(), isLarge ? window->normalGeometry() : window->geometry());
        }
        return QObject::eventFilter(watched, event);
    }
};

// The space for a window without its frame, which has no measures before it is shown.
QRect RoomOn(const QScreen& screen, const QWidget& window)
{
    constexpr int border = 4;
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    return screen.availableGeometry().adjusted(border, title + border, -border, -border);
}

const QScreen& ScreenOf(const QWidget& tool, const std::optional<QRect>& place)
{
    const QScreen* screen = place ? QGuiApplication::screenAt(place->center()) : nullptr;
    if (screen == nullptr)
        screen = tool.parentWidget() != nullptr ? tool.parentWidget()->screen() : tool.screen();
    return *screen;
}

// Puts all that the window shows into an area with scroll bars.
void MakeScrollable(QDialog& tool)
{
    auto* content = new QWidget;
    content->setLayout(tool.layout());
    auto* area = new QScrollArea(&tool);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(content);
    auto* whole = new QVBoxLayout(&tool);
    whole->setContentsMargins({});
    whole->addWidget(area);
}

// A splitter reckons without panes that have not been shown.
void ShowPanes(const QDialog& tool)
{
    for (const QSplitter* splitter : tool.findChildren<QSplitter*>())
        for (int place = 0; place < splitter->count(); ++place)
            if (!splitter->widget(place)->testAttribute(Qt::WA_WState_ExplicitShowHide))
                splitter->widget(place)->show();
}

bool NeedsMoreThan(QSize room, const QDialog& tool)
{
    const QSize least = tool.minimumSizeHint().expandedTo(tool.minimumSize());
    return least.width() > room.width() || least.height() > room.height();
}

} // namespace

void KeepPlace(QDialog& tool)
{
    const std::optional<QRect> place = RememberedPlace(tool.objectName());
    const QRect room = RoomOn(ScreenOf(tool, place), tool);
    tool.ensurePolished();
    ShowPanes(tool);
    if (tool.layout() != nullptr && NeedsMoreThan(room.size(), tool)) {
        tool.setMinimumSize({});
        MakeScrollable(tool);
    }
    if (place)
        tool.setGeometry(PulledOnto(room, {place->topLeft(), place->size().expandedTo(tool.minimumSizeHint())}));
    else if (const QSize wanted = tool.size().expandedTo(tool.minimumSizeHint());
             wanted != wanted.boundedTo(room.size()))
        tool.resize(wanted.boundedTo(room.size()));
    new PlaceKeeper(tool);
}

void StartInLastFolder(const QDialog& tool, FolderBrowser& browser)
{
    const QString name = tool.objectName();
    On(&browser, &FolderBrowser::FolderChanged, &tool, [name, &browser] { RememberFolder(name, browser.Folder()); });
    browser.Start(LastFolder(name));
}

QString ToolFileBox(const QDialog& tool, FileSpec spec)
{
    if (spec.folder.isEmpty())
        spec.folder = LastFolder(tool.objectName());
    const QString chosen = FileBox(spec);
    if (!chosen.isEmpty())
        RememberFolder(tool.objectName(), FolderOf(chosen));
    return chosen;
}

} // namespace ob
