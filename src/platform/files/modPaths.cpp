// SPDX-License-Identifier: GPL-3.0-or-later
// The folders of the program, decided here only.
#include "platform/files/modPaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#ifdef Q_OS_WIN
#include <QTemporaryFile>
#include <qt_windows.h>

#include <string>
#endif

namespace ob {

namespace {

// Folders set for a test; empty when there are none.
QString programFolderSet;
QString libraryFolderSet;

QString WithoutTrailingSeparator(const QString& path)
{
    return QDir::toNativeSeparators(QDir::cleanPath(path));
}

#ifdef Q_OS_WIN
const QLatin1String libraryEnding(".dll");

// Only an attempt is reliable: other checks ignore the system's permission lists.
bool CanWriteInto(const QString& folder)
{
    QTemporaryFile probe(folder + QStringLiteral("/obXXXXXX.tmp"));
    return probe.open();
}
#else
const QLatin1String libraryEnding(".so");

bool CanWriteInto(const QString& folder)
{
    return QFileInfo(folder).isWritable();
}
#endif

QString UsersFolder()
{
    const QString folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/orchard-bench");
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

#ifdef Q_OS_WIN
QString SystemForm(const QString& path, DWORD(WINAPI* convert)(LPCWSTR, LPWSTR, DWORD))
{
    const std::wstring given = QDir::toNativeSeparators(path).toStdWString();
    std::wstring form(32768, L'\0');
    const DWORD length = convert(given.c_str(), form.data(), static_cast<DWORD>(form.size()));
    if (length == 0 || length >= form.size())
        return QStringLiteral("error");
    return QString::fromStdWString(form.substr(0, length));
}
#endif

} // namespace

QString ExecutableFolder()
{
    static const QString folder = [] {
        if (QCoreApplication::instance())
            return WithoutTrailingSeparator(QCoreApplication::applicationDirPath());
        const QString executable = QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget();
        return executable.isEmpty() ? QDir::currentPath() : QFileInfo(executable).path();
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
    const QString file = name + libraryEnding;
    if (!libraryFolderSet.isEmpty())
        return Joined(libraryFolderSet, file);
    const QString ofProgram = ProgramFile(file);
    return QFileInfo(ofProgram).isFile() ? ofProgram : Joined(ExecutableFolder(), file);
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
    if (!Exists(path))
        return QStringLiteral("error");
#ifdef Q_OS_WIN
    return SystemForm(path, GetLongPathNameW);
#else
    return path;
#endif
}

QString ShortPathOf(const QString& path)
{
    if (!Exists(path))
        return QStringLiteral("error");
#ifdef Q_OS_WIN
    return SystemForm(path, GetShortPathNameW);
#else
    return path;
#endif
}

QString AbsolutePathOf(const QString& path)
{
    return path.isEmpty() ? path : QDir::toNativeSeparators(QDir::cleanPath(QDir::current().absoluteFilePath(path)));
}

} // namespace ob
