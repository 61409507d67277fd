// SPDX-License-Identifier: GPL-3.0-or-later
// What commands ask of the main window, whether there is one or not.
#include "shell/state/cMainForm.h"

namespace ob {

void SetStatusText(const QString& text)
{
    if (MainForm != nullptr)
        MainForm->SetStatusPanel(text);
}

void ChooseMenuItem(const QString& name)
{
    if (MainForm != nullptr)
        MainForm->ChooseItem(name);
}

} // namespace ob
