// SPDX-License-Identifier: GPL-3.0-or-later
// Bookmarks.
#include "editor/document/modBookmarks.h"

namespace ob {

namespace {

std::intptr_t CaretLine(Sci sci)
{
    return SendSci(sci, SCI_LINEFROMPOSITION, static_cast<std::uintptr_t>(SendSci(sci, SCI_GETCURRENTPOS)));
}

// Line numbers are signed 16-bit numbers here.
std::int16_t FindMark(Sci sci, unsigned message, std::intptr_t from)
{
    return static_cast<std::int16_t>(SendSci(sci, message, static_cast<std::uintptr_t>(from), -1));
}

void GoToLine(Sci sci, std::intptr_t line)
{
    SendSci(sci, SCI_GOTOLINE, static_cast<std::uintptr_t>(line));
}

} // namespace

void ToggleBookmark(Sci sci)
{
    const auto line = static_cast<std::uintptr_t>(CaretLine(sci));
    if (SendSci(sci, SCI_MARKERGET, line) == 0)
        SendSci(sci, SCI_MARKERADD, line, static_cast<std::intptr_t>(BookmarkMarker));
    else
        SendSci(sci, SCI_MARKERDELETE, line, -1);
}

void NextBookmark(Sci sci)
{
    const std::int16_t line = FindMark(sci, SCI_MARKERNEXT, CaretLine(sci) + 1);
    if (line == -1)
        return;
    // Coming from far below, the view scrolls up to the line, which then is at the top.
    GoToLine(sci, 65000);
    GoToLine(sci, line);
}

void PreviousBookmark(Sci sci)
{
    const std::int16_t line = FindMark(sci, SCI_MARKERPREVIOUS, CaretLine(sci) - 1);
    if (line != -1)
        GoToLine(sci, line);
}

void ClearBookmarks(Sci sci)
{
    SendSci(sci, SCI_MARKERDELETEALL, static_cast<std::uintptr_t>(-1));
}

std::vector<std::intptr_t> BookmarkedLines(Sci sci, std::intptr_t first, std::intptr_t last)
{
    std::vector<std::intptr_t> lines;
    const auto next = [sci](std::intptr_t from) {
        return SendSci(sci, SCI_MARKERNEXT, static_cast<std::uintptr_t>(from), 1 << BookmarkMarker);
    };
    for (std::intptr_t line = next(first); line >= 0 && line <= last; line = next(line + 1))
        lines.push_back(line);
    return lines;
}

void SetBookmarks(Sci sci, std::intptr_t first, std::intptr_t last, const std::vector<std::intptr_t>& lines)
{
    for (const std::intptr_t line : BookmarkedLines(sci, first, last))
        SendSci(sci, SCI_MARKERDELETE, static_cast<std::uintptr_t>(line), -1);
    for (const std::intptr_t line : lines)
        SendSci(sci, SCI_MARKERADD, static_cast<std::uintptr_t>(line), static_cast<std::intptr_t>(BookmarkMarker));
}

} // namespace ob
