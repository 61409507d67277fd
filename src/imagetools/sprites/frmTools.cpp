// SPDX-License-Identifier: GPL-3.0-or-later
// The tool of sprites.
#include "imagetools/sprites/frmTools.h"

#include "imagetools/sprites/frmMask.h"

namespace ob {

// clang-format off
static constexpr ToolRow rows[] = {
    {"mnuToolMask", "Mas&k Maker", "mask", frmMask::ManualPage, mnuToolMask_Click, ConstructionTools},
};
// clang-format on

std::span<const ToolRow> SpriteTools()
{
    return rows;
}

} // namespace ob
