// SPDX-License-Identifier: GPL-3.0-or-later
// The window that shows a film: black, with the picture in its proper aspect ratio.
#include "mediaplayer/frmVideo.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr double LargestPart = 0.75; // of the display
constexpr QSize SmallestWindow(160, 120);

} // namespace

frmVideo::frmVideo(const QString& title, QSize size, std::function<void()> whenClosed)
    : filmSize(size), closed(std::move(whenClosed))
{
    setObjectName(u"frmVideo"_s);
    setWindowTitle(title);
    setAccessibleName(title);
    setAttribute(Qt::WA_OpaquePaintEvent);
    // The window must not take the keyboard from the window with the buttons, nor keep the program alive.
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    setMinimumSize(SmallestWindow / 2);
    const QWidget* asking = QApplication::activeWindow();
    const QScreen* screen = asking != nullptr ? asking->screen() : QApplication::primaryScreen();
    QSize shown = filmSize;
    const QSize largest = screen != nullptr ? screen->availableSize() * LargestPart : filmSize;
    if (shown.width() > largest.width() || shown.height() > largest.height())
        shown.scale(largest, Qt::KeepAspectRatio);
    resize(shown.expandedTo(SmallestWindow));
    if (asking != nullptr) {
        create();
        windowHandle()->setTransientParent(asking->window()->windowHandle());
    }
}

void frmVideo::ShowPicture(const QImage& next)
{
    picture = next;
    update();
}

void frmVideo::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (picture.isNull())
        return;
    QRect place(QPoint(0, 0), filmSize.scaled(size(), Qt::KeepAspectRatio));
    place.moveCenter(rect().center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform, place.size() != picture.size());
    painter.drawImage(place, picture);
}

void frmVideo::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Cancel))
        close();
    else
        QWidget::keyPressEvent(event);
}

void frmVideo::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    closed();
}

std::unique_ptr<cFilmScreen> OpenFilmScreen(const QString& title, QSize filmSize, std::function<void()> closed)
{
    auto window = std::make_unique<frmVideo>(title, filmSize, std::move(closed));
    window->show();
    return window;
}

} // namespace ob
