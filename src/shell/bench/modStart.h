// SPDX-License-Identifier: GPL-3.0-or-later
// From process entry until the main window stands ready, and the end of the program.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace ob {

class cMainForm;

// Puts the whole state, whoever owns it, to what it is before anything has been read: no window, no document, no form.
void ResetBench();

// Writes the two libraries beside the program and sets the state's defaults; create makes the main window, not shown.
void StartRoutine(const std::function<cMainForm*()>& create);

// What the main window's Load does between its own steps: the state from the store, the current directory, the user
// applications; then the recent list, and the newest file when that is wanted.
void LoadState();
void OpenAtLoad();

// Opens what came on the command line, or was dropped: forms go to the form builder, all else is code. Names of no
// file are skipped. A dropped form is the last file that is looked at.
enum class FileSource { CommandLine, Drop };
void OpenFiles(const QStringList& paths, FileSource source);

// "Orchard Bench  v1.2.3"
QString MainCaption();

} // namespace ob
