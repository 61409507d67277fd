// SPDX-License-Identifier: GPL-3.0-or-later
// Where a film is seen, as the player knows it.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

#include <functional>
#include <memory>

namespace ob {

class cFilmScreen {
public:
    cFilmScreen() = default;
    cFilmScreen(const cFilmScreen&) = delete;
    cFilmScreen& operator=(const cFilmScreen&) = delete;
    virtual ~cFilmScreen() = default;

    virtual void ShowPicture(const QImage& next) = 0;
};

// Opens one as large as the film, or as much of the screen as a film may take, beside the window that asked for it.
// When the user closes it, `closed` is called; it stays until it is let go.
std::unique_ptr<cFilmScreen> OpenFilmScreen(const QString& title, QSize filmSize, std::function<void()> closed);

} // namespace ob
