// SPDX-License-Identifier: GPL-3.0-or-later
// The interface through which the player shows a film.
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

// Opens a screen as large as the film, or as much of the display as a film may take, next to the window that requested
// it. When the user closes it, `closed` is called; the object stays until it is released.
std::unique_ptr<cFilmScreen> OpenFilmScreen(const QString& title, QSize filmSize, std::function<void()> closed);

} // namespace ob
