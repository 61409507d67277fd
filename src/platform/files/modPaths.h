// SPDX-License-Identifier: GPL-3.0-or-later
// The program's folders, and the long and short form of a path.
#pragma once

#include <QString>

namespace ob {

// The folder of the running executable, without a separator at its end; the disk's root where the system does not say.
QString ExecutableFolder();

// The folder of the program's own files: the executable's when it is writable, otherwise "orchard-bench" in the user's
// data folder, created on demand. Determined once. Without a separator at its end.
QString ProgramFolder();

// The path of a file or folder with that name in the program's folder; it need not exist.
QString ProgramFile(const QString& name);

// The path of a library that the program loads, named without the platform's extension: beside the executable and
// nowhere else, as code from a folder that others may write to would run as the program. It may be missing.
QString LibraryFile(const QString& name);

// For tests: other folders from now on. The empty path restores the usual ones.
void SetProgramFolder(const QString& path);
void SetLibraryFolder(const QString& path);

// The path of an existing file or folder without, or with, the system's short names; relative paths stay relative. On a
// system without short names, the path as given. The word "error" when nothing with that name exists.
QString LongPathOf(const QString& path);
QString ShortPathOf(const QString& path);

// The absolute path, without "." and "..", links unresolved; it need not exist. The empty path stays empty.
QString AbsolutePathOf(const QString& path);

} // namespace ob
