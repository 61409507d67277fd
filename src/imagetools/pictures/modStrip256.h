// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures as bitmap files of 256 colours, in the half-tone palette, in which systems make button images transparent.
#pragma once

#include "imaging/cDIBSection.h"

#include <QString>

namespace ob {

// Writes the picture as an 8-bit bitmap file, each pixel in the nearest colour of the half-tone palette. A file of that
// name is replaced, or unchanged after an error. Raises InvalidPicture for a picture without pixels, and what
// ReplaceFile of modFiles.h raises; std::bad_alloc when memory is insufficient.
void SaveAs256(const cDIBSection& picture, const QString& path);

// Replaces a picture file of any kind by such a bitmap file, under the same name. Raises what LoadPicture and SaveAs256
// raise.
void ConvertTo256(const QString& path);

} // namespace ob
