// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that pass code to the engine: run, debug, make token, run token, the bare engine, FreeForm.
#pragma once

#include <QString>

namespace ob {

// The path for the copy of a program that is passed to the engine, by the window's caption: next to an existing file
// with "BAK" for its last three characters; for an untitled window in the program's folder, under a caption that the
// window keeps from then on; otherwise the caption itself. Raises InvalidCall for a file name of fewer than three
// characters.
struct CopyPlace {
    QString path;
    QString caption; // the window's caption from then on
};
CopyPlace PlaceOfCopy(const QString& caption, const QString& programFolder);

// What follows the engine's path on its command line. Nothing is quoted.
QString EngineArguments(const QString& switches, const QString& copy);

void mnuRun_Click();
void mnuTKN_Click();
void mnuDebug_Click();
void mnuRunTKN_Click();
void mnuRunOB_Click();
void mnuToolFreeform_Click();

// Starts the runtime engine with a token file, after a search for the engine when its path is not usable.
void RunTokenFile(const QString& path);

} // namespace ob
