// SPDX-License-Identifier: GPL-3.0-or-later
// The tools of the editor.
#include "editor/frmTools.h"

#include "editor/frmSnip.h"
#include "editor/modSnippets.h"

namespace ob {

// clang-format off
static constexpr ToolRow rows[] = {
    {"mnuToolSnipBench", "Snipp&et Bench", "snippet-bench", frmSnip::ManualPage, mnuToolSnipBench_Click, ConstructionTools},
    {"mnuToolSnippet", "&Snippet Library", "snippet-library", frmSnip::ManualPage, mnuToolSnippet_Click, ConstructionTools},
};
// clang-format on

std::span<const ToolRow> EditorTools()
{
    return rows;
}

} // namespace ob
