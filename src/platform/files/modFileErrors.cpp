// SPDX-License-Identifier: GPL-3.0-or-later
// The system's errors as the runtime's.
#include "platform/files/modFileErrors.h"

#include "platform/files/cSystemFile.h"

#include <QDir>

namespace ob {

namespace {

ErrorNumber NumberOf(std::error_code error)
{
    switch (TroubleOf(error)) {
    case FileTrouble::Full:
        return ErrorNumber::DiskFull;
    case FileTrouble::Missing:
        return ErrorNumber::PathNotFound;
    case FileTrouble::Closed:
    case FileTrouble::Exists:
        return ErrorNumber::PathFileAccess;
    case FileTrouble::InUse:
        return ErrorNumber::PermissionDenied;
    case FileTrouble::Other:
        break;
    }
    return ErrorNumber::DeviceIoError;
}

QString ReasonOf(std::error_code error)
{
    return QString::fromLocal8Bit(error.message());
}

[[noreturn]] void Raise(ErrorNumber number, const QString& path, std::error_code reason)
{
    throw RuntimeErrorOf(number, QDir::toNativeSeparators(path), ReasonOf(reason));
}

} // namespace

void RaiseFileError(ErrorNumber number, const QString& path, std::errc reason)
{
    Raise(number, path, std::make_error_code(reason));
}

void RaiseFileError(std::error_code error, const QString& path)
{
    Raise(NumberOf(error), path, error);
}

void RaiseCreationError(std::error_code error, const std::filesystem::path& made, const QString& path)
{
    std::error_code ignored;
    const bool hasFolder = std::filesystem::is_directory(FolderOfNative(made), ignored);
    if (hasFolder && TroubleOf(error) == FileTrouble::Missing)
        Raise(ErrorNumber::PathFileAccess, path, error);
    RaiseFileError(error, path);
}

void RequireWritable(const std::filesystem::path& file, const QString& path)
{
    if (const std::error_code error = WriteTrouble(file))
        Raise(ErrorNumber::PathFileAccess, path, error);
}

std::filesystem::path FolderOfNative(const std::filesystem::path& path)
{
    return path.has_parent_path() ? path.parent_path() : std::filesystem::path(".");
}

} // namespace ob
