// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's own previews.
#include "imagetools/colors/modPreviews.h"

#include "platform/dialogs/modDialogs.h"
#include "platform/language/modRuntime.h"
#include "shell/state/cMainForm.h"

namespace ob {

// The last choice in this run, black at first.
static ColorRef lastColor = 0;

QString ColorStatus(ColorRef color, NumberForm form)
{
    const auto number = [form](ColorRef part) { return form == NumberForm::Plain ? NumberText(part) : Str(part); };
    return QStringLiteral("R-") + number(color & 0xFF) + QStringLiteral("     G-") + number((color >> 8) & 0xFF) +
           QStringLiteral("     B-") + number((color >> 16) & 0xFF) + QStringLiteral("     Long-") + number(color);
}

void mnuColorDialog_Click()
{
    const auto chosen = ColorBox(QStringLiteral("Color Previewer"), lastColor);
    if (!chosen)
        return;
    lastColor = *chosen;
    SetStatusText(ColorStatus(lastColor, NumberForm::LeadingSpace));
}

void mnuToolFont_Click()
{
    const auto chosen = FontBox({QStringLiteral("MS Sans Serif"), 10, false, false});
    if (chosen && !chosen->name.isEmpty())
        SetStatusText(QStringLiteral("Font:  ") + chosen->name + QStringLiteral("     size:  ") +
                      NumberText(chosen->size));
}

} // namespace ob
