// SPDX-License-Identifier: GPL-3.0-or-later
// The application's state: flat, public, one set for the process; and the small routines shared by all tools.
#pragma once

#include "shell/state/modEditorSettings.h"

#include <QString>

#include <array>
#include <cstdint>

namespace ob {

// The screen. Set by the main window.
inline int TwipsPerPixelX = 15;
inline int TwipsPerPixelY = 15;

// Recent files, newest first, and the number of their visible menu items.
inline constexpr int RecentFileSlots = 8;
inline std::array<QString, RecentFileSlots> RecentFiles;
inline int RecentCount = 0;

// The picture shown by the toolbar maker's image dialog, from 1; 0 after Cancel.
inline int ToolImageIndex = 1;

// Confirmations and start-up.
inline bool QuitQuery = true;
inline bool OpenFileOn = false;
inline bool ShowTips = true;
inline bool AddComments = false;

// External paths: the engine, its help, a second help, the FreeForm program, the runtime engine; "no path" for none.
inline QString OBPath;
inline QString OBHelpPath;
inline QString OptionalHelpPath;
inline QString OBFreeformPath;
inline QString OBRuntimePath;

// Appearance and behaviour of code windows.
inline EditorSettings Editor;

// The ten user applications: HotKey is the first, User2 the second and so on; "none" for an empty place.
inline constexpr int UserApplicationCount = 10;
inline std::array<QString, UserApplicationCount> UserApplications;
inline QString& HotKey = UserApplications[0];

// The folder of the last code file opened; "app.path" until there is one.
inline QString LastDir;

// Resets every variable above to its value before the settings are read, and MainForm to null.
void ResetState();

// Usable: not empty, not "no path" in any case, and the name of a file that exists.
bool IsUsablePath(const QString& path);

} // namespace ob
