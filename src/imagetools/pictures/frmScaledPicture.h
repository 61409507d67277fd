// SPDX-License-Identifier: GPL-3.0-or-later
// Shows a whole picture, scaled down smoothly to the available space and never enlarged.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>

namespace ob {

class frmScaledPicture final : public QWidget {
    Q_OBJECT

public:
    explicit frmScaledPicture(QWidget* parent = nullptr);

    // The null image shows nothing.
    void SetPicture(const QImage& newPicture);
    const QImage& Picture() const { return picture; }

    QSize sizeHint() const override { return {320, 240}; }
    QSize minimumSizeHint() const override { return {80, 60}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage picture;
    QPixmap scaled; // for the size and the screen on which it was last painted
};

} // namespace ob
