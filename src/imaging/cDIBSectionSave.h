// SPDX-License-Identifier: GPL-3.0-or-later
// Writes pictures as bitmap files of 1, 4, 8 or 24 bits per pixel, reducing the colours first if requested.
#pragma once

#include "imaging/cDIBSection.h"
#include "imaging/cPalette.h"

#include <optional>
#include <string>

namespace ob {

enum class SaveBitDepth { Bits1 = 0, Bits4 = 1, Bits8 = 2, Bits24 = 3 };

enum class SaveReduceMode {
    None = 0,     // each pixel takes the nearest colour of the file's table, in the picture too
    Palette = 1,  // to the given palette, with error diffusion
    Automatic = 2 // 1 bit: error diffusion to black and white; 4: the 16 colours, with it; 8: the best 236, without
};

class cDIBSectionSave {
public:
    // Whether everything was written: false without a picture, without memory, and when the writer says so. The picture
    // takes the colours of the file; at 24 bits it is written unchanged, whatever the mode. The palette, which may be
    // null, is the colour table at 8 bits, and is replaced by the generated one: at 8 bits a half-tone one for null, in
    // the automatic mode the 16 or 236 colours. Raises error 17 when the file cannot be opened, the missing-object
    // error for a null palette in the palette mode, and the subscript error for a palette without a nearest entry; what
    // the writer throws goes through.
    bool WriteFile(const std::string& fileName, cDIBSection& picture, std::optional<cPalette>& palette,
                   SaveBitDepth depth, SaveReduceMode mode, const FileWriter& write) const;

    // The same, but always false, also after a good write.
    bool Save(const std::string& fileName, cDIBSection& picture, std::optional<cPalette>& palette, SaveBitDepth depth,
              SaveReduceMode mode, const FileWriter& write) const;
};

} // namespace ob
