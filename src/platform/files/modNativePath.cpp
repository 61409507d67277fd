// SPDX-License-Identifier: GPL-3.0-or-later
// Paths in the form of the standard library.
#include "platform/files/modNativePath.h"

#include "platform/files/modFileErrors.h"
#include "platform/language/modSystem.h"

#include <QDir>
#include <QFile>

#include <system_error>

using namespace Qt::StringLiterals;

namespace ob {

namespace fs = std::filesystem;

static const QString LostNameReason = u"the name has bytes that are not characters of this system"_s;

bool IsLostName(const QString& path)
{
    return path.contains(QChar::ReplacementCharacter);
}

QString LostNameText(const QString& path)
{
    return u"%1 cannot be used: %2."_s.arg(path, LostNameReason);
}

void RequireWholeName(const QString& path)
{
    if (path.isEmpty() || path.contains(QChar::Null))
        RaiseFileError(ErrorNumber::PathFileAccess, path, std::errc::invalid_argument);
    if (IsLostName(path))
        throw RuntimeErrorOf(ErrorNumber::PathFileAccess, path, LostNameReason);
}

fs::path NativePath(const QString& path)
{
    if (ThisSystem == System::Windows)
        return QDir::toNativeSeparators(path).toStdU16String();
    return QFile::encodeName(path).toStdString();
}

QString TextOfPath(const fs::path& path)
{
    if constexpr (std::is_same_v<fs::path::value_type, char>)
        return QFile::decodeName(QByteArray::fromStdString(path.native()));
    else
        return QString::fromStdU16String(path.u16string());
}

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
    RaiseFileError(ErrorNumber::PathFileAccess, callersPath, std::errc::too_many_symbolic_link_levels);
}

} // namespace ob
