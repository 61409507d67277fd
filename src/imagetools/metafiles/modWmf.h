// SPDX-License-Identifier: GPL-3.0-or-later
// Metafiles of 16-bit records (.wmf).
#pragma once

#include "imagetools/metafiles/modMetafile.h"

namespace ob {

// Whether the bytes start with the header of such a file, or with a preceding header of its size.
bool IsWmf(QByteArrayView bytes);

// Like PlayMetafile. Without the header of its size, the file's first window extent counts as pixels, or, when there is
// none, the bounds of its drawing; a side longer than 1024 pixels is reduced to that.
std::variant<QImage, MetafileError> PlayWmf(QByteArrayView bytes);

} // namespace ob
