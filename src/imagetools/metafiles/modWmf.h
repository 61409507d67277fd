// SPDX-License-Identifier: GPL-3.0-or-later
// Metafiles of 16-bit records (.wmf).
#pragma once

#include "imagetools/metafiles/modMetafile.h"

namespace ob {

// Whether the bytes begin with the header of such a file, or with the one that tells its size before it.
bool IsWmf(QByteArrayView bytes);

// As PlayMetafile. Without the header of its size, the file's first window extent counts as pixels, or, when there is
// none, the room that its drawing takes; a longer side than 1024 pixels is made that long.
std::variant<QImage, MetafileError> PlayWmf(QByteArrayView bytes);

} // namespace ob
