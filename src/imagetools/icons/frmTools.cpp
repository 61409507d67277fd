// SPDX-License-Identifier: GPL-3.0-or-later
// The tool of icons.
#include "imagetools/icons/frmTools.h"

#include "imagetools/icons/frmIcon.h"

namespace ob {

// clang-format off
static constexpr ToolRow rows[] = {
    {"mnuToolIcon", "&Icon Editor", "icon-editor", frmIcon::ManualPage, mnuToolIcon_Click, OtherTools},
};
// clang-format on

std::span<const ToolRow> IconTools()
{
    return rows;
}

} // namespace ob
