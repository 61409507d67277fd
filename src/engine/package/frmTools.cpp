// SPDX-License-Identifier: GPL-3.0-or-later
// The packaging wizard as a tool.
#include "engine/package/frmTools.h"

#include "engine/package/frmPackage.h"

namespace ob {

// clang-format off
static constexpr ToolRow rows[] = {
    {"mnuPackage", "Packaging &Wizard", "package", frmPackage::ManualPage, mnuPackage_Click, ConstructionTools},
};
// clang-format on

std::span<const ToolRow> PackageTools()
{
    return rows;
}

} // namespace ob
