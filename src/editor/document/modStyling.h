// SPDX-License-Identifier: GPL-3.0-or-later
// How a code window's control is set up: behaviour, margins, colours.
#pragma once

#include "scilexer/modSci.h"
#include "shell/state/modEditorSettings.h"

namespace ob {

// Everything that a new control needs before it is shown: lexer, keywords, colours, indentation, margins, marker.
void SetUpSci(Sci sci, const EditorSettings& settings);

// Font, colours, tab width and line numbers as the settings want them; safe to repeat.
void SetSciColors(Sci sci, const EditorSettings& settings);

// Hands the control the language's words and the user's.
void UpdateKeywords(Sci sci);

} // namespace ob
