// SPDX-License-Identifier: GPL-3.0-or-later
// The user's settings store: application "OB Bench", section "Settings", a key; every value is a string.
#pragma once

#include <QString>

namespace ob {

// The stored text of a key, exactly as it was written; the fallback when the store has no such key.
QString ReadSetting(const QString& key, const QString& fallback);

// Stores a text under a key. It is on disk after SyncSettings, the next turn of the event loop, or the program's
// orderly end, whichever comes first.
void WriteSetting(const QString& key, const QString& value);

// The same for what the bench remembers by itself, in sections beside "Settings". The empty text for a missing key.
QString ReadRemembered(const QString& section, const QString& key);
void WriteRemembered(const QString& section, const QString& key, const QString& value);

// False before the bench has stored anything for this user.
bool HasSettings();

// Waits until the disk has all that was stored. There is no box for a store that cannot be written: its reason goes to
// the status bar's first panel at the next turn of the event loop, and the next call tries again.
void SyncSettings();

// The file of the store.
QString SettingsFile();

// For tests: uses this file as the store from now on, after writing the previous one. The empty path restores the
// user's own.
void SetSettingsFile(const QString& path);

} // namespace ob
