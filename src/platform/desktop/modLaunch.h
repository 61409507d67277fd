// SPDX-License-Identifier: GPL-3.0-or-later
// Starting a command line: finding the program in it, and running it independently.
#pragma once

#include "platform/desktop/modLaunchSystem.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <functional>
#include <optional>

namespace ob {

// A command line with its program found. The argument text is what follows the program, without the spaces between.
struct ResolvedCommand {
    QString program;
    QString argumentText;
    QStringList arguments;
};

// Finds the program in a command line whose paths are not quoted: the line is cut at each space in turn, and the
// shortest first part that names a file is the program, as written or with ".exe" added when it has no extension. A
// first part in double quotes is the whole program name. Nothing when no first part names a file.
std::optional<ResolvedCommand> ResolveCommand(QStringView commandLine,
                                              const std::function<bool(const QString&)>& fileExists);

// Splits a text into arguments at runs of spaces and tabs. Double quotes hold an argument together and are dropped; ""
// makes an empty argument.
QStringList SplitArguments(QStringView argumentText);

// Starts a command line in the current directory and does not wait for it. A program named without a folder is searched
// for as the system does; on Unix that is its search path and never the current directory. On Unix, an ".exe" that is
// not a native program runs through wine, and the window mode has no effect. Raises FileNotFound when the line names no
// program, InvalidCall when the program cannot be started.
void Launch(const QString& commandLine, WindowMode mode = WindowMode::Normal);

// The same for a setting that names a program, and what is added to it. Where the whole setting names a file, that file
// is the program, whatever spaces are in its path; otherwise the two are one command line.
void LaunchSetting(const QString& setting, const QString& added, WindowMode mode = WindowMode::Normal);

// The same for a program and its arguments.
void Launch(const ProgramCall& call);

} // namespace ob
