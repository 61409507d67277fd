// SPDX-License-Identifier: GPL-3.0-or-later
// What a code window asks before it closes.
#pragma once

namespace ob {

class cDocument;

enum class CloseEnd { Closes, Stays };

// Switches the code commands off, asks whether to save unsaved work, and saves. The window stays only when a save
// that was asked for did not come about. Throws RuntimeError when the file cannot be written.
CloseEnd QueryUnload(cDocument& document);

} // namespace ob
