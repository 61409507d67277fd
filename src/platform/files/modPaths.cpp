// SPDX-License-Identifier: GPL-3.0-or-later
// The folders of the program, decided here only.
#include "platform/files/modPaths.h"

#include "platform/files/modNativePath.h"
#include "platform/files/modSystemPaths.h"
#include "platform/language/modSystem.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// Folders set for a test; empty when there are none.
QString programFolderSet;
QString libraryFolderSet;

QString WithoutTrailingSeparator(const QString& path)
{
    return QDir::toNativeSeparators(QDir::cleanPath(path));
}

bool CanWriteInto(const QString& folder)
{
    if (ThisSystem != System::Windows)
        return QFileInfo(folder).isWritable();
    // Only an attempt is reliable: other checks ignore the system's permission lists.
    QTemporaryFile probe(folder + u"/obXXXXXX.tmp"_s);
    return probe.open();
}

QString UsersFolder()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/orchard-bench"_s;
    QDir().mkpath(folder);
    return WithoutTrailingSeparator(folder);
}

QString UsualProgramFolder()
{
    const QString folder = ExecutableFolder();
    return CanWriteInto(folder) ? folder : UsersFolder();
}

QString Joined(const QString& folder, const QString& name)
{
    return folder.endsWith(QDir::separator()) ? folder + name : folder + QDir::separator() + name;
}

bool Exists(const QString& path)
{
    return !path.isEmpty() && !path.contains(QChar::Null) && QFileInfo::exists(path);
}

QString SystemForm(const QString& path, std::filesystem::path (*convert)(const std::filesystem::path&))
{
    const QString error = u"error"_s;
    if (!Exists(path))
        return error;
    // A system without short names gives the path back as it is written.
    if (ThisSystem != System::Windows)
        return path;
    const std::filesystem::path form = convert(NativePath(path));
    return form.empty() ? error : TextOfPath(form);
}

} // namespace

QString ExecutableFolder()
{
    static const QString folder = [] {
        const QString executable = TextOfPath(ExecutablePath());
        return executable.isEmpty() ? QDir::rootPath() : WithoutTrailingSeparator(QFileInfo(executable).path());
    }();
    return folder;
}

QString ProgramFolder()
{
    if (!programFolderSet.isEmpty())
        return programFolderSet;
    static const QString folder = UsualProgramFolder();
    return folder;
}

QString ProgramFile(const QString& name)
{
    return Joined(ProgramFolder(), name);
}

QString LibraryFile(const QString& name)
{
    const QString file = name + (ThisSystem == System::Windows ? u".dll"_s : u".so"_s);
    return Joined(libraryFolderSet.isEmpty() ? ExecutableFolder() : libraryFolderSet, file);
}

void SetProgramFolder(const QString& path)
{
    programFolderSet = path.isEmpty() ? path : WithoutTrailingSeparator(path);
}

void SetLibraryFolder(const QString& path)
{
    libraryFolderSet = path.isEmpty() ? path : WithoutTrailingSeparator(path);
}

QString LongPathOf(const QString& path)
{
    return SystemForm(path, WithLongNames);
}

QString ShortPathOf(const QString& path)
{
    return SystemForm(path, WithShortNames);
}

QString AbsolutePathOf(const QString& path)
{
    return path.isEmpty() ? path : QDir::toNativeSeparators(QDir::cleanPath(QDir::current().absoluteFilePath(path)));
}

} // namespace ob
