// SPDX-License-Identifier: GPL-3.0-or-later
// The tools around a run.
#include "engine/run/frmTools.h"

#include "engine/run/dlgShowVar.h"
#include "engine/run/modRun.h"

namespace ob {

// clang-format off
static constexpr ToolRow rows[] = {
    {"mnuToolFreeform", "&FreeForm", "freeform", "running", mnuToolFreeform_Click, OtherTools},
    {"mnuToolShowVar", "Show &Variables", "variables", dlgShowVar::ManualPage, mnuToolShowVar_Click, OtherTools, ToolNeeds::CodeWindow},
};
// clang-format on

std::span<const ToolRow> RunTools()
{
    return rows;
}

} // namespace ob
