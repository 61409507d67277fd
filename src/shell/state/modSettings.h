// SPDX-License-Identifier: GPL-3.0-or-later
// The user's settings store: application "OB Bench", section "Settings", a key; every value is a string.
#pragma once

#include <QString>

namespace ob {

// The stored text of a key, exactly as it was written; the fallback when the store has no such key.
QString ReadSetting(const QString& key, const QString& fallback);

// Keeps a text under a key. It is on disk after SyncSettings, the next turn of the event loop, or the program's
// orderly end, whichever comes first. A store that cannot be written is passed over in silence.
void WriteSetting(const QString& key, const QString& value);

void SyncSettings();

// The file that the store lies in.
QString SettingsFile();

// For tests: keeps the store in this file from here on, after writing out the one before. The empty path brings the
// user's own back.
void SetSettingsFile(const QString& path);

} // namespace ob
