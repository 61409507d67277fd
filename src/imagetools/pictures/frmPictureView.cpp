// SPDX-License-Identifier: GPL-3.0-or-later
// Shows a picture pixel by pixel.
#include "imagetools/pictures/frmPictureView.h"

#include "imagetools/pictures/modPicture.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace ob {

frmPictureView::frmPictureView(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

// The side of a pixel: at scales such as 1.5 a pixel must not cover one and a half of the screen's.
double frmPictureView::PointsPerPixel() const
{
    const double scale = devicePixelRatioF();
    return std::max(1.0, std::floor(scale)) / scale;
}

QSize frmPictureView::sizeHint() const
{
    constexpr QSize most(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    return QSizeF(QSizeF(shown.size()) * PointsPerPixel()).toSize().boundedTo(most);
}

void frmPictureView::SetPicture(const cDIBSection& picture)
{
    shown = ImageOf(picture);
    setFixedSize(sizeHint());
    update();
}

void frmPictureView::ShowColumns(const cDIBSection& picture, int left, int count)
{
    if (picture.Width() != shown.width() || picture.Height() != shown.height())
        return;
    count = std::min(count, shown.width() - left);
    for (int y = 0; y < shown.height(); ++y)
        std::memcpy(shown.scanLine(y) + left * 3, picture.Line(picture.Height() - 1 - y) + left * 3,
                    static_cast<std::size_t>(count) * 3);
    const double side = PointsPerPixel();
    repaint(QRectF(left * side, 0, count * side, height()).toAlignedRect());
}

void frmPictureView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const double side = PointsPerPixel();
    // Only the pixels within the damaged area are drawn, each to its own edges.
    const QRectF damage = event->rect();
    const QRect pixels = QRectF(damage.topLeft() / side, damage.size() / side).toAlignedRect() & shown.rect();
    if (pixels.isEmpty())
        return;
    const QRectF target(QPointF(pixels.topLeft()) * side, QSizeF(pixels.size()) * side);
    painter.drawImage(target, shown, pixels);
}

bool frmPictureView::event(QEvent* event)
{
    // The window may have moved to a screen of another scale.
    if (event->type() == QEvent::ScreenChangeInternal || event->type() == QEvent::Show)
        setFixedSize(sizeHint());
    return QWidget::event(event);
}

} // namespace ob
