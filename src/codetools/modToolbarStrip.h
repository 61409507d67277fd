// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the toolbar maker's buttons, side by side in one bitmap.
#pragma once

#include <QImage>
#include <QList>
#include <QString>

namespace ob {

constexpr int ToolbarPictureSide = 16;

// A picture file scaled to the size of a button. Transparent parts of an icon become the grey of a button, which the
// toolbar makes transparent; of an icon with several images, the nearest in size is used. Raises FileNotFound,
// PathFileAccess, DeviceIoError, InvalidPicture.
QImage ToolbarPicture(const QString& path);

// The pictures from left to right, each at its size; empty for none.
QImage ToolbarStrip(const QList<QImage>& pictures);

} // namespace ob
