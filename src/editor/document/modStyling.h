// SPDX-License-Identifier: GPL-3.0-or-later
// The setup of a code window's control: behaviour, margins, colours.
#pragma once

#include "scilexer/modSci.h"
#include "shell/state/modEditorSettings.h"

namespace ob {

// Everything a new control needs before it is shown: lexer, keywords, colours, indentation, margins, marker.
void SetUpSci(Sci sci, const EditorSettings& settings);

// Font, colours, tab width and line numbers from the settings; may be called again at any time.
void SetSciColors(Sci sci, const EditorSettings& settings);

// Passes the language's words and the user's to the control.
void UpdateKeywords(Sci sci);

} // namespace ob
