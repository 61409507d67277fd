// SPDX-License-Identifier: GPL-3.0-or-later
// The searches for the engine, its runtime, its help and FreeForm.
#pragma once

#include <QString>

namespace ob {

// The files outside the program that it works with.
enum class OutsideFile { Orchard, Freeform, Help, OptionalHelp, Runtime };

// A box titled "Open" with the filter of that file's search. Empty: nothing was chosen, and a message was shown.
QString BrowseFor(OutsideFile file);

// Each asks for a file and stores it in the path of that name in the state; when none is chosen, it shows a message.
void FindOrchard();
void FindFreeform();
void FindHelp();
void FindOptionalHelp();
void FindRuntime();

} // namespace ob
