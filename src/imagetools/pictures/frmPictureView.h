// SPDX-License-Identifier: GPL-3.0-or-later
// Shows a picture pixel by pixel: each one covers a whole number of the screen's own pixels, whatever its scale.
#pragma once

#include "imaging/cDIBSection.h"

#include <QImage>
#include <QWidget>

namespace ob {

class frmPictureView final : public QWidget {
    Q_OBJECT

public:
    explicit frmPictureView(QWidget* parent = nullptr);

    // Takes a copy, and the size to show it; an empty picture shows nothing.
    void SetPicture(const cDIBSection& picture);

    // Takes columns of a picture of the same size and paints them at once.
    void ShowColumns(const cDIBSection& picture, int left, int count);

    const QImage& Picture() const { return shown; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    double PointsPerPixel() const;

    QImage shown;
};

} // namespace ob
