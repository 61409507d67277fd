// SPDX-License-Identifier: GPL-3.0-or-later
// From process entry until the main window is ready, and the end of the program.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace ob {

class cMainForm;

// Resets the whole state of all owners to what it is before anything has been read: no window, no document, no form.
void ResetBench();

// Writes the two libraries beside the program and sets the state's defaults; create makes the main window without
// showing it.
void StartRoutine(const std::function<cMainForm*()>& create);

// What the main window's Load does between its own steps: the state from the store, the current directory, the user
// applications; then the recent list, and the newest file if the settings say so.
void LoadState();
void OpenAtLoad();

// Opens the files of the command line or a drop: forms in the form builder, all others as code. Names without a file
// are skipped. Files after a dropped form are ignored.
enum class FileSource { CommandLine, Drop };
void OpenFiles(const QStringList& paths, FileSource source);

// "Orchard Bench  v1.2.3"
QString MainCaption();

} // namespace ob
