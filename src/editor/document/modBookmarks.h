// SPDX-License-Identifier: GPL-3.0-or-later
// Bookmarks: marker 1 on a line of the control.
#pragma once

#include "scilexer/modSci.h"

#include <vector>

namespace ob {

inline constexpr std::uintptr_t BookmarkMarker = 1;

// Sets or removes the bookmark of the caret's line.
void ToggleBookmark(Sci sci);

// Goes to the next bookmark after the caret's line, which moves to the top of the view. No wrap-around.
void NextBookmark(Sci sci);

// Goes to the bookmark before the caret's line. No wrap-around.
void PreviousBookmark(Sci sci);

void ClearBookmarks(Sci sci);

// The bookmarked lines from first to last, and their restoration after the text has been replaced as a whole, which
// moves all bookmarks to one line.
std::vector<std::intptr_t> BookmarkedLines(Sci sci, std::intptr_t first, std::intptr_t last);
void SetBookmarks(Sci sci, std::intptr_t first, std::intptr_t last, const std::vector<std::intptr_t>& lines);

} // namespace ob
