// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's own previews.
#include "shell/modPreviews.h"

#include "platform/modDialogs.h"
#include "platform/modRuntime.h"

namespace ob {

// What was chosen last in this run, black at first.
static ColorRef lastColor = 0;

QString ColorStatus(ColorRef color)
{
    return QStringLiteral("R-") + Str(color & 0xFF) + QStringLiteral("     G-") + Str((color >> 8) & 0xFF) +
           QStringLiteral("     B-") + Str((color >> 16) & 0xFF) + QStringLiteral("     Long-") + Str(color);
}

void mnuColorDialog_Click()
{
    const auto chosen = ColorBox(QStringLiteral("Color Previewer"), lastColor);
    if (!chosen)
        return;
    lastColor = *chosen;
    SetStatusText(ColorStatus(lastColor));
}

void mnuToolFont_Click()
{
    const auto chosen = FontBox({QStringLiteral("MS Sans Serif"), 10, false, false});
    if (chosen)
        SetStatusText(QStringLiteral("Font:  ") + chosen->name + QStringLiteral("     size:  ") +
                      QString::number(chosen->size));
}

} // namespace ob
