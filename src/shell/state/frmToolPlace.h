// SPDX-License-Identifier: GPL-3.0-or-later
// Size and place of a tool's window, and the folder that the tool works in, kept from one use to the next.
#pragma once

#include "platform/dialogs/modDialogs.h"

#include <QDialog>

namespace ob {

class FolderBrowser;

// Called before a window is shown for the first time. Gives it the size and place that it had when it was last closed,
// pulled whole onto a screen; one that was never open keeps its size as far as the screen has room. A window that needs
// more than that, as with a very large font, gets scroll bars. What it has when it is closed is stored under its name.
void KeepPlace(QDialog& tool);

// Starts the browser in the folder that this tool last showed, and remembers each one it shows.
void StartInLastFolder(const QDialog& tool, FolderBrowser& browser);

// A file box that starts in the folder of the tool's last choice, unless the record names one, and remembers the
// choice.
QString ToolFileBox(const QDialog& tool, FileSpec spec);

} // namespace ob
