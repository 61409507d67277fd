// SPDX-License-Identifier: GPL-3.0-or-later
// What the commands for pictures and palettes share.
#pragma once

#include "imaging/cDIBSection.h"
#include "imaging/cPalette.h"
#include "imaging/modFileAccess.h"
#include "obtool/toolOutput.h"

#include <string>

namespace ob {

enum class PaletteFormat { Text, Binary };

// The picture or palette in a file; "-" is standard input. Both throw ToolFailure.
cDIBSection ReadPictureArgument(const std::string& file);
cPalette ReadPaletteArgument(const std::string& file, PaletteFormat format);

// Writes through a temporary file; throws ToolFailure.
FileWriter ToolWriter();

// Provides fonts for pictures with text: the first such text creates an application object without a display, so that
// commands without text need none.
void LetPicturesHaveFonts();

} // namespace ob
