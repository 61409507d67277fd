// SPDX-License-Identifier: GPL-3.0-or-later
// The list of recent files: kept in the store, shown in the File menu.
#pragma once

#include <QString>

namespace ob {

// Reads the eight entries, each in its long form, and removes entries whose file is missing in one pass.
void FillRecentFiles();

// Shows the entries that name files in the menu. When the first entry is "untitled" its item reads "no files" and the
// result requests an empty code window.
enum class RecentMenu { Filled, WantsNewWindow };
RecentMenu ShowRecentFiles();

// Moves or adds the path to the front and stores the list.
void AddRecentFile(const QString& path);

// Writes the eight entries to the store.
void SaveRecentFiles();

} // namespace ob
