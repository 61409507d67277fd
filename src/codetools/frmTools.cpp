// SPDX-License-Identifier: GPL-3.0-or-later
// The tools that write code, and the key codes.
#include "codetools/frmTools.h"

#include "codetools/dlgToolbar.h"
#include "codetools/frmArray.h"
#include "codetools/frmKey.h"
#include "codetools/frmMB.h"
#include "codetools/frmMenuMaker.h"
#include "codetools/frmStylebits.h"
#include "codetools/modAPItextedit.h"

namespace ob {

// clang-format off
static constexpr ToolRow rows[] = {
    {"mnuToolArray", "&Array Maker", "array", frmArray::ManualPage, mnuToolArray_Click, ConstructionTools},
    {"mnuMaker", "Men&u Maker", "menu-maker", frmMenuMaker::ManualPage, mnuMaker_Click, ConstructionTools},
    {"mnuToolMB", "&Message Boxes", "message-box", frmMB::ManualPage, mnuToolMB_Click, ConstructionTools},
    {"mnuToolbar", "&Toolbar Maker", "toolbar-maker", dlgToolbar::ManualPage, mnuToolbar_Click, ConstructionTools},
    {"mnuToolStylebit", "Style&Bits Wizard", "stylebits", frmStylebits::ManualPage, mnuToolStylebit_Click, ConstructionTools},
    {"mnuToolTE", "API &Texteditor", "api-editor", dlgToolbar::ManualPage, mnuToolTE_Click, ConstructionTools},
    {"mnuToolKeyCode", "&Key Code Preview", "key-code", frmKey::ManualPage, mnuToolKeyCode_Click, PreviewTools},
};
// clang-format on

std::span<const ToolRow> CodeTools()
{
    return rows;
}

} // namespace ob
