// SPDX-License-Identifier: GPL-3.0-or-later
// Copies between the imaging library's pictures and the toolkit's images.
#pragma once

#include "imaging/cDIBSection.h"

#include <QImage>

namespace ob {

// An empty one gives an empty one. Transparent parts of an image are laid on white.
QImage ImageOf(const cDIBSection& picture);
cDIBSection CreateFromPicture(const QImage& image);

} // namespace ob
