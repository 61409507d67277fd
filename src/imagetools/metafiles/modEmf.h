// SPDX-License-Identifier: GPL-3.0-or-later
// Metafiles of 32-bit records (.emf).
#pragma once

#include "imagetools/metafiles/modMetafile.h"

namespace ob {

// Whether the bytes start with the header of such a file.
bool IsEmf(QByteArrayView bytes);

// Like PlayMetafile. The size is that of the header's frame, or, when that is empty, of its bounds. Records of the
// later kind within comments are skipped as all comments are; files with both kinds are drawn by the older records.
std::variant<QImage, MetafileError> PlayEmf(QByteArrayView bytes);

} // namespace ob
