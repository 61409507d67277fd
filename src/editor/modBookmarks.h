// SPDX-License-Identifier: GPL-3.0-or-later
// Bookmarks: marker 1 on a line of the control.
#pragma once

#include "editor/modSci.h"

namespace ob {

inline constexpr std::uintptr_t BookmarkMarker = 1;

// Sets or takes away the bookmark of the caret's line.
void ToggleBookmark(Sci sci);

// Goes to the next bookmark behind the caret's line; the line lands at the top of the view. No wrap-around.
void NextBookmark(Sci sci);

// Goes to the bookmark before the caret's line. No wrap-around.
void PreviousBookmark(Sci sci);

void ClearBookmarks(Sci sci);

} // namespace ob
