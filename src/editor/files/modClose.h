// SPDX-License-Identifier: GPL-3.0-or-later
// What a code window asks before it closes.
#pragma once

namespace ob {

class cDocument;

enum class CloseEnd { Closes, Stays };

// Disables the code commands, asks whether to save unsaved work, and saves. The window stays open only when a requested
// save was not made. Throws RuntimeError when the file cannot be written.
CloseEnd QueryUnload(cDocument& document);

} // namespace ob
