// SPDX-License-Identifier: GPL-3.0-or-later
// Paths in the form of the standard library.
#include "platform/files/modNativePath.h"

#include "platform/language/cRuntimeError.h"

#include <QDir>
#include <QFile>

#include <system_error>

namespace ob {

namespace fs = std::filesystem;

#ifdef Q_OS_WIN
fs::path NativePath(const QString& path)
{
    return fs::path(QDir::toNativeSeparators(path).toStdWString());
}
#else
fs::path NativePath(const QString& path)
{
    return fs::path(QFile::encodeName(path).toStdString());
}
#endif

fs::path LinkTarget(fs::path path, const QString& callersPath)
{
    constexpr int maximumHops = 40;
    for (int hop = 0; hop < maximumHops; ++hop) {
        std::error_code error;
        if (!fs::is_symlink(fs::symlink_status(path, error)))
            return path;
        const fs::path target = fs::read_symlink(path, error);
        if (error)
            return path;
        // An absolute target replaces the folder before it.
        path = path.parent_path() / target;
    }
    RuntimeError error = RuntimeErrorOf(ErrorNumber::PathFileAccess);
    error.source = callersPath;
    throw error;
}

} // namespace ob
