// SPDX-License-Identifier: GPL-3.0-or-later
// The tools of colors and fonts.
#include "imagetools/colors/frmTools.h"

#include "imagetools/colors/frmColor.h"
#include "imagetools/colors/frmColorNames.h"
#include "imagetools/colors/modPreviews.h"

namespace ob {

// clang-format off
static constexpr ToolRow rows[] = {
    {"mnuToolRGB", "RGB &Color Preview", "color", frmColor::ManualPage, mnuToolRGB_Click, PreviewTools},
    {"mnuColorDialog", "Color &Dialog", "color-dialog", frmColor::ManualPage, mnuColorDialog_Click, PreviewTools},
    {"mnuColorNames", "Color &Names", "color-names", frmColorNames::ManualPage, mnuColorNames_Click, PreviewTools},
    {"mnuToolFont", "&Font Dialog", "font", "menus-and-keys", mnuToolFont_Click, PreviewTools},
};
// clang-format on

std::span<const ToolRow> ColorTools()
{
    return rows;
}

} // namespace ob
