// SPDX-License-Identifier: GPL-3.0-or-later
// The form builder as a tool.
#include "guibuilder/frmTools.h"

#include "guibuilder/modGuiCommands.h"

namespace ob {

// clang-format off
static constexpr ToolRow rows[] = {
    {"mnuGui", "&Gui Builder", "gui-builder", "form-builder", NewGuiForm, OtherTools},
};
// clang-format on

std::span<const ToolRow> GuiTools()
{
    return rows;
}

} // namespace ob
