// SPDX-License-Identifier: GPL-3.0-or-later
// The tool of videos.
#include "imagetools/avi/frmTools.h"

#include "imagetools/avi/frmAVI.h"

namespace ob {

// clang-format off
static constexpr ToolRow rows[] = {
    {"mnuToolAVI", "A&VI Maker", "video", frmAVI::ManualPage, mnuToolAVI_Click, ConstructionTools},
};
// clang-format on

std::span<const ToolRow> AviTools()
{
    return rows;
}

} // namespace ob
