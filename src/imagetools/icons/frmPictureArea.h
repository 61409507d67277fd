// SPDX-License-Identifier: GPL-3.0-or-later
// A picture of which a part can be chosen with a rubber band.
#pragma once

#include "imagetools/icons/modIcon.h"

#include <QImage>
#include <QWidget>

#include <optional>

namespace ob {

// The left button draws the band, in any direction; its release chooses. The right button cancels.
//
// With the keys: the arrows move a band of 32 x 32 at first, with Shift they move its lower right corner, Ctrl+A
// selects the whole picture; Enter chooses and Escape cancels.
class frmPictureArea final : public QWidget {
    Q_OBJECT

public:
    explicit frmPictureArea(QWidget* parent = nullptr);

    void ShowPicture(const QImage& newPicture);

    QSize sizeHint() const override { return picture.size(); }

Q_SIGNALS:
    void Selected(const ob::IconRegion& region); // not empty, and within the picture
    void Ended();
    void Followed(QPoint place); // the corner that moves, to be kept visible

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct Band {
        IconPoint start;
        IconPoint end;
    };

    void SetBand(const std::optional<Band>& newBand);
    IconRegion Region() const;
    QRect BandRect() const;
    void Choose();
    bool MoveBand(const QKeyEvent& event);

    QImage picture;
    std::optional<Band> band;
    bool isDrawing = false;
};

} // namespace ob
