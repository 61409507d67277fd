// SPDX-License-Identifier: GPL-3.0-or-later
// A picture of which a part can be chosen with a rubber band.
#include "imagetools/icons/frmPictureArea.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace ob {

namespace {

IconPoint PlaceOf(const QMouseEvent& event)
{
    const QPointF position = event.position();
    return {static_cast<int>(position.x()), static_cast<int>(position.y())};
}

IconPoint DirectionOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {0, 0};
    }
}

} // namespace

frmPictureArea::frmPictureArea(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void frmPictureArea::ShowPicture(const QImage& newPicture)
{
    picture = newPicture;
    band.reset();
    isDrawing = false;
    setFixedSize(picture.size());
    update();
}

IconRegion frmPictureArea::Region() const
{
    return band ? RegionBetween(band->start, band->end, picture.width(), picture.height()) : IconRegion();
}

// The pixels of the band's frame and within it.
QRect frmPictureArea::BandRect() const
{
    const IconRegion region = Region();
    return {region.left, region.top, std::max(1, region.width), std::max(1, region.height)};
}

void frmPictureArea::SetBand(const std::optional<Band>& newBand)
{
    if (band)
        update(BandRect());
    band = newBand;
    if (band) {
        update(BandRect());
        Q_EMIT Followed({std::clamp(band->end.x, 0, width()), std::clamp(band->end.y, 0, height())});
    }
}

void frmPictureArea::Choose()
{
    const IconRegion region = Region();
    if (!region.IsEmpty())
        Q_EMIT Selected(region);
}

void frmPictureArea::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawImage(0, 0, picture);
    if (!band)
        return;
    // Black dashes on white show on every picture.
    const QRect frame = BandRect().adjusted(0, 0, -1, -1);
    painter.setPen(Qt::white);
    painter.drawRect(frame);
    QPen dashes(Qt::black, 1, Qt::CustomDashLine, Qt::FlatCap);
    dashes.setDashPattern({3, 3});
    painter.setPen(dashes);
    painter.drawRect(frame);
}

void frmPictureArea::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton) {
        isDrawing = false;
        Q_EMIT Ended();
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    isDrawing = true;
    SetBand(Band{PlaceOf(*event), PlaceOf(*event)});
}

void frmPictureArea::mouseMoveEvent(QMouseEvent* event)
{
    if (isDrawing)
        SetBand(Band{band->start, PlaceOf(*event)});
}

void frmPictureArea::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isDrawing)
        return;
    isDrawing = false;
    SetBand(Band{band->start, PlaceOf(*event)});
    Choose();
}

bool frmPictureArea::MoveBand(const QKeyEvent& event)
{
    const IconPoint by = DirectionOf(event.key());
    if (by == IconPoint() || isDrawing)
        return false;
    if (!band) {
        SetBand(Band{{0, 0}, {std::min(IconSide, width()), std::min(IconSide, height())}});
        return true;
    }
    const IconRegion region = Region();
    Band moved = {{region.left, region.top}, {region.left + region.width, region.top + region.height}};
    moved.end = {std::clamp(moved.end.x + by.x, 0, width()), std::clamp(moved.end.y + by.y, 0, height())};
    if (!event.modifiers().testFlag(Qt::ShiftModifier)) {
        moved.end = {std::max(moved.end.x, region.width), std::max(moved.end.y, region.height)};
        moved.start = {moved.end.x - region.width, moved.end.y - region.height};
    }
    SetBand(moved);
    return true;
}

bool frmPictureArea::event(QEvent* event)
{
    // Here the key applies to the picture, even if a menu item uses it.
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->matches(QKeySequence::SelectAll)) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void frmPictureArea::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::SelectAll))
        SetBand(Band{{0, 0}, {width(), height()}});
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Choose();
    else if (event->key() == Qt::Key_Escape)
        Q_EMIT Ended();
    else if (!MoveBand(*event))
        QWidget::keyPressEvent(event);
}

} // namespace ob
