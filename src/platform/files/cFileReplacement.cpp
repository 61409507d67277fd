// SPDX-License-Identifier: GPL-3.0-or-later
// A file that takes its name only once it is whole.
#include "platform/files/cFileReplacement.h"

#include "platform/files/modFileErrors.h"
#include "platform/files/modNativePath.h"

namespace ob {

namespace fs = std::filesystem;

cFileReplacement::cFileReplacement(const QString& path, Durability fileDurability) : durability(fileDurability)
{
    RequireWholeName(path);
    const fs::path target = LinkTarget(NativePath(path), path);
    std::error_code error;
    const fs::file_status status = fs::status(target, error);
    if (fs::is_directory(status))
        RaiseFileError(ErrorNumber::PathFileAccess, path, std::errc::is_a_directory);
    if (fs::exists(status) && !fs::is_regular_file(status))
        RaiseFileError(ErrorNumber::PathFileAccess, path, std::errc::operation_not_supported);
    if (fs::exists(status))
        RequireWritable(target, path);
    const bool hasFolder = fs::is_directory(FolderOfNative(target), error);
    // A folder that may not be looked into can still be there.
    if (error == std::errc::permission_denied)
        RaiseFileError(error, path);
    if (!hasFolder)
        RaiseFileError(ErrorNumber::PathNotFound, path, std::errc::no_such_file_or_directory);
    file.emplace(target, path);
}

void cFileReplacement::Finish()
{
    file->TakeOver();
    file->Complete(durability);
    file->TakeName(durability);
}

} // namespace ob
