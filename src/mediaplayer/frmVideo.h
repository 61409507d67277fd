// SPDX-License-Identifier: GPL-3.0-or-later
// The window in which a film is seen.
#pragma once

#include <QImage>
#include <QWidget>

namespace ob {

class frmVideo final : public QWidget {
    Q_OBJECT

public:
    // As large as the film, or as much of the screen as a film may take, beside the window that asked for it.
    frmVideo(const QString& title, QSize filmSize);

    void ShowPicture(const QImage& next);

Q_SIGNALS:
    void Closed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    const QSize filmSize;
    QImage picture;
};

} // namespace ob
