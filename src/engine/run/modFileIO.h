// SPDX-License-Identifier: GPL-3.0-or-later
// The searches for the engine, its runtime, its help and FreeForm.
#pragma once

#include <QString>

namespace ob {

// The files outside of the program that it works with.
enum class OutsideFile { Orchard, Freeform, Help, OptionalHelp, Runtime };

// A box titled "Open" with the filter of that file's search. Empty: nothing chosen, and the user has been told.
QString BrowseFor(OutsideFile file);

// Each asks for a file and puts it into the path of that name in the state; with none chosen it says so.
void FindOrchard();
void FindFreeform();
void FindHelp();
void FindOptionalHelp();
void FindRuntime();

} // namespace ob
