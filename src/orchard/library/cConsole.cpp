// SPDX-License-Identifier: GPL-3.0-or-later
// A console without a window.
#include "orchard/library/cConsole.h"

namespace ob::basic {

void cConsole::Locate(double, double) {}

void cConsole::SetTitle(std::string_view) {}

void cConsole::SetSize(double, double) {}

std::string_view cConsole::Ask(std::string_view prompt)
{
    Text(prompt);
    return Line();
}

void cConsole::StartReading()
{
    Flush();
    ResetColumn();
}

} // namespace ob::basic
