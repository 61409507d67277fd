// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's own previews: a colour and a font, shown in the status bar.
#pragma once

#include "platform/language/modColorNames.h"

namespace ob {

// "R- 1     G- 2     B- 3     Long- 197121", or without the spaces before the numbers.
enum class NumberForm { LeadingSpace, Plain };
QString ColorStatus(ColorRef color, NumberForm form);

void mnuColorDialog_Click();
void mnuToolFont_Click();

} // namespace ob
