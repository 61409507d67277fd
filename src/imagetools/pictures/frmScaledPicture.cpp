// SPDX-License-Identifier: GPL-3.0-or-later
// Shows a whole picture.
#include "imagetools/pictures/frmScaledPicture.h"

#include <QPainter>

namespace ob {

frmScaledPicture::frmScaledPicture(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void frmScaledPicture::SetPicture(const QImage& newPicture)
{
    picture = newPicture;
    scaled = {};
    update();
}

void frmScaledPicture::paintEvent(QPaintEvent*)
{
    if (picture.isNull())
        return;
    const double points = devicePixelRatioF();
    const QSize room = (QSizeF(size()) * points).toSize();
    QSize wanted = picture.size();
    if (wanted.width() > room.width() || wanted.height() > room.height())
        wanted = wanted.scaled(room, Qt::KeepAspectRatio).expandedTo({1, 1});
    if (scaled.size() != wanted || scaled.devicePixelRatio() != points) {
        scaled = QPixmap::fromImage(picture.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        scaled.setDevicePixelRatio(points);
    }
    QRectF target(QPointF(), scaled.deviceIndependentSize());
    target.moveCenter(QRectF(rect()).center());
    QPainter(this).drawPixmap(target.topLeft(), scaled);
}

} // namespace ob
