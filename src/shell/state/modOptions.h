// SPDX-License-Identifier: GPL-3.0-or-later
// The settings as one table: key, variable, default; read at the start, written at the end and by the preferences.
#pragma once

namespace ob {

// Reads every setting into the state. A missing key gives its default, a text that is not a number 0; a text that is
// not a boolean, or too large a number, leaves the variable unchanged.
void ReadAllSettings();

// Resets the eight colours of the code windows to their defaults.
void RestoreDefaultColors();

// Writes the recent files and every setting except the main window's place.
void SaveAllSettings();

// The main window's rectangle in twips.
struct WindowPlace {
    float left = 1000;
    float top = 1000;
    float width = 6500;
    float height = 6500;
};
WindowPlace ReadWindowPlace();
void SaveWindowPlace(const WindowPlace& place);

} // namespace ob
