// SPDX-License-Identifier: GPL-3.0-or-later
// Appearance and behaviour of code windows: the settings of the preferences, and the system's own text colours.
#pragma once

#include "platform/language/modColorNames.h"

#include <QString>

namespace ob {

struct EditorSettings {
    int FontHeight = 12; // points
    QString FontName = QStringLiteral("Courier New");
    bool FontBold = false;
    int TabSize = 4;     // columns
    int SyntaxColor = 1; // coloring on (1) or off (0)
    bool LineNums = true;
    bool HighlightOn = true;
    bool IndentGuidesOn = true;
    bool AutoIndent = true;
    ColorRef CommentColor = 0;
    ColorRef BranchColor = 0;
    ColorRef KeywordColor = 0;
    ColorRef QuoteColor = 0;
    ColorRef HighlightColor = 0;
    ColorRef NumberColor = 0;
    ColorRef HandleColor = 0;
    ColorRef CommentBackColor = 0;

    // The system's window text and window colours, read once at the start.
    ColorRef EditForeColor = 0;
    ColorRef EditBackColor = 0;
};

} // namespace ob
