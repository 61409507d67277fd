// SPDX-License-Identifier: GPL-3.0-or-later
// The tool of pictures.
#include "imagetools/pictures/frmTools.h"

#include "imagetools/pictures/frmBitmap.h"

namespace ob {

// clang-format off
static constexpr ToolRow rows[] = {
    {"mnuToolBitmap", "&Bitmap Preview", "bitmap", frmBitmap::ManualPage, mnuToolBitmap_Click, PreviewTools},
};
// clang-format on

std::span<const ToolRow> PictureTools()
{
    return rows;
}

} // namespace ob
