// SPDX-License-Identifier: GPL-3.0-or-later
// Starting a command line: finding the program in it, and running it on its own.
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <functional>
#include <optional>

namespace ob {

enum class WindowMode { Normal, Minimized };

// A command line taken apart. The argument text is what stands behind the program, without the blanks between.
struct ResolvedCommand {
    QString program;
    QString argumentText;
    QStringList arguments;
};

// Finds the program in a command line whose paths are not quoted: the line is cut at each blank in turn, and the
// shortest front part that names a file is the program, as written or with ".exe" added when it has no ending of its
// own. A front part in double quotes is the program as a whole. Nothing when no front part names a file.
std::optional<ResolvedCommand> ResolveCommand(QStringView commandLine,
                                              const std::function<bool(const QString&)>& fileExists);

// Parts a text into arguments at runs of blanks and tabs. Double quotes hold a part together and are dropped; ""
// makes an empty argument.
QStringList PartArguments(QStringView argumentText);

// Starts a command line in the current directory and forgets it. A program named without a folder is also looked for
// as the system does. On a system other than Windows, an ".exe" that is no native program runs through wine, and the
// window mode is a wish that goes unheard. Raises FileNotFound when the line names no program, InvalidCall when the
// program cannot be started.
void Launch(const QString& commandLine, WindowMode mode = WindowMode::Normal);

} // namespace ob
