// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures reduced to the size at which they are shown.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

namespace ob {

struct PreviewRequest {
    QString path;
    QSize box;         // the space for it, in the units of the screen's layout
    double pixels = 1; // of the screen per such unit
};

// A picture that could not be read has no size and no image.
struct Preview {
    QString path;
    QSize size; // of the picture itself, in its pixels
    QImage image;

    bool IsEmpty() const { return image.isNull(); }
};

// The picture's size, or, when it does not fit, the largest size of the same proportions that does; each side at least
// 1.
QSize FittedSize(QSize picture, QSize box);

// Reads the picture, directly at a smaller size where its format allows that. Transparent parts are laid on white.
// Raises nothing; may be called on any thread.
Preview LoadPreview(const PreviewRequest& request);

} // namespace ob
