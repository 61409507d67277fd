// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's own previews.
#include "imagetools/colors/modPreviews.h"

#include "platform/dialogs/modDialogs.h"
#include "platform/language/modRuntime.h"
#include "shell/state/cMainForm.h"

using namespace Qt::StringLiterals;

namespace ob {

// The last choice in this run, black at first.
static ColorRef lastColor = 0;

QString ColorStatus(ColorRef color, NumberForm form)
{
    const auto number = [form](ColorRef part) { return form == NumberForm::Plain ? NumberText(part) : Str(part); };
    return u"R-"_s + number(color & 0xFF) + u"     G-"_s + number((color >> 8) & 0xFF) + u"     B-"_s +
           number((color >> 16) & 0xFF) + u"     Long-"_s + number(color);
}

void mnuColorDialog_Click()
{
    const auto chosen = ColorBox(u"Color Previewer"_s, lastColor);
    if (!chosen)
        return;
    lastColor = *chosen;
    SetStatusText(ColorStatus(lastColor, NumberForm::LeadingSpace));
}

void mnuToolFont_Click()
{
    const auto chosen = FontBox({u"MS Sans Serif"_s, 10, false, false});
    if (chosen && !chosen->name.isEmpty())
        SetStatusText(u"Font:  "_s + chosen->name + u"     size:  "_s + NumberText(chosen->size));
}

} // namespace ob
