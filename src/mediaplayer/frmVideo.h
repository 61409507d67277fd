// SPDX-License-Identifier: GPL-3.0-or-later
// The window that shows a film.
#pragma once

#include "mediaplayer/cFilmScreen.h"

#include <QWidget>

namespace ob {

class frmVideo final : public QWidget, public cFilmScreen {
    Q_OBJECT

public:
    frmVideo(const QString& title, QSize filmSize, std::function<void()> closed);

    void ShowPicture(const QImage& next) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    const QSize filmSize;
    const std::function<void()> closed;
    QImage picture;
};

} // namespace ob
