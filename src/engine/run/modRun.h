// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that hand code to the engine: run, debug, make token, run token, the bare engine, FreeForm.
#pragma once

#include <QString>

namespace ob {

// Where the copy of a program goes that is handed to the engine, by the window's caption: beside an existing file with
// "BAK" for its last three characters; for an untitled window into the program's folder, under a caption that the
// window keeps from then on; else the caption as it stands. Raises InvalidCall for a file's name of fewer than three
// characters.
struct CopyPlace {
    QString path;
    QString caption; // the window's caption from then on
};
CopyPlace PlaceOfCopy(const QString& caption, const QString& programFolder);

// The engine's command line. Nothing is quoted.
QString EngineCommand(const QString& engine, const QString& switches, const QString& copy);

void mnuRun_Click();
void mnuTKN_Click();
void mnuDebug_Click();
void mnuRunTKN_Click();
void mnuRunOB_Click();
void mnuToolFreeform_Click();

// Starts the runtime engine on a token file, after a search for the engine when its path is not usable.
void RunTokenFile(const QString& path);

} // namespace ob
