// SPDX-License-Identifier: GPL-3.0-or-later
// The folders that the program lives in, and the long and short form of a path.
#pragma once

#include <QString>

namespace ob {

// The folder of the running executable, without a separator at its end.
QString ExecutableFolder();

// The folder of the program's own files: the executable's when it can be written, else "orchard-bench" in the user's
// data folder, which is made on demand. Found out once. Without a separator at its end.
QString ProgramFolder();

// A file or folder of that name in the program's folder; it need not exist.
QString ProgramFile(const QString& name);

// The path of a library that the program loads, the name being without the platform's ending: in the program's folder
// if it is there, else beside the executable (where it may be missing).
QString LibraryFile(const QString& name);

// For tests: other folders from here on. The empty path brings the usual ones back.
void SetProgramFolder(const QString& path);
void SetLibraryFolder(const QString& path);

// The path of an existing file or folder in the form without, or with, the system's short names, relative paths
// staying relative; where a system has no short names, that is the path as given. The word "error" when nothing of
// that name exists.
QString LongPathOf(const QString& path);
QString ShortPathOf(const QString& path);

// The path from the root on, without "." and "..", links as they are; it need not exist. The empty path stays empty.
QString AbsolutePathOf(const QString& path);

} // namespace ob
