// SPDX-License-Identifier: GPL-3.0-or-later
// The bitmaps that bmpbuttons show.
#pragma once

#include <QImage>
#include <QString>

namespace ob {

// The picture in a bitmap file; a relative path counts from the current folder. Raises FileNotFound, and InvalidPicture
// for a file without a bitmap.
QImage LoadBitmap(const QString& path);

} // namespace ob
