// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that start other programs or open pages, help files and the embedded libraries.
#pragma once

#include <QString>

namespace ob {

void mnuExplorer_Click();
void mnuNotepad_Click();
void mnuWordpad_Click();
void mnuPaint_Click();
void mnuSoundRec_Click();
void mnuCalculator_Click();

void mnuOBHome_Click();
void mnuOBGroup_Click();
void mnuOBForum_Click();
void mnuOBNews_Click();
void mnuOBLinks_Click();

// The help file of the language, which is asked for when it is not there.
enum class HelpEnd { Shown, NoFile };
HelpEnd OpenLanguageHelp();

void mnuHelpOption_Click();

// The libraries beside the program, each in a new code window.
void mnuWrapper_Click();
void mnuToolPrinter_Click();

// The address of a page by its menu item's name ("mnuOBHome"), from the embedded list; empty for an unknown one.
QString PageAddress(const QString& item);

} // namespace ob
