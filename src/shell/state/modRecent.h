// SPDX-License-Identifier: GPL-3.0-or-later
// The list of recent files: kept in the store, shown in the File menu.
#pragma once

#include <QString>

namespace ob {

// Reads the eight entries, each in its long form, and takes out entries whose file is gone in one pass.
void FillRecentFiles();

// Puts the entries that name files into the menu. When the first entry is "untitled" its item reads "no files" and
// the result tells that an empty code window is wanted.
enum class RecentMenu { Filled, WantsNewWindow };
RecentMenu ShowRecentFiles();

// Moves the path to the front, or puts it there, and stores the list.
void AddRecentFile(const QString& path);

// Writes the eight entries to the store.
void SaveRecentFiles();

} // namespace ob
