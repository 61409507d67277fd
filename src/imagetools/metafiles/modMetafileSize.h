// SPDX-License-Identifier: GPL-3.0-or-later
// The picture that a metafile is drawn on.
#pragma once

#include <QImage>
#include <QSizeF>

namespace ob {

// A white picture (RGB32) of that size in pixels, each side being at least 1; beyond 16 million points, or 16,000 a
// side, it is smaller in the same proportions. Null when memory is insufficient.
QImage EmptyMetafilePicture(QSizeF size);

} // namespace ob
