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

// The picture or palette of a file, "-" being standard input. Throw ToolFailure.
cDIBSection ReadPictureArgument(const std::string& file);
cPalette ReadPaletteArgument(const std::string& file, PaletteFormat format);

// Writes by way of a temporary file; throws ToolFailure.
FileWriter ToolWriter();

// Lets pictures that hold text have fonts: the first such text makes an application object without a display, which
// costs the commands without text nothing.
void LetPicturesHaveFonts();

} // namespace ob
