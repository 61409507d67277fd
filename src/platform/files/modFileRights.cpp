// SPDX-License-Identifier: GPL-3.0-or-later
// A copy that nobody may read who may not read the original.
#include "platform/files/modFileRights.h"

#include "platform/files/cSystemFile.h"
#include "platform/files/modNativePath.h"

namespace ob {

namespace fs = std::filesystem;

PrivateCopy PrepareCopy(const QString& original, const QString& copy)
{
    const fs::path from = NativePath(original);
    const fs::path to = NativePath(copy);
    std::error_code error;
    const fs::file_status status = fs::status(from, error);
    const bool isForAll = (status.permissions() & fs::perms::others_read) != fs::perms::none;
    if (error || !fs::is_regular_file(status) || isForAll || from == to)
        return PrivateCopy::NotNeeded;
    cSystemFile file;
    if (!file.Open(to, Opening::New, Rights::Private)) {
        file.TakeOver(from);
        return PrivateCopy::Made;
    }
    LimitRights(to, from);
    return PrivateCopy::Limited;
}

} // namespace ob
