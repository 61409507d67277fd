// SPDX-License-Identifier: GPL-3.0-or-later
// A folder under a temporary name.
#include "platform/files/cTemporaryFolder.h"

#include "platform/files/modFileErrors.h"
#include "platform/files/modTemporaryFiles.h"

namespace ob {

namespace fs = std::filesystem;

cTemporaryFolder::cTemporaryFolder(const fs::path& target, const QString& callersPath)
{
    constexpr int maximumTries = 100;
    const fs::path folder = FolderOfNative(target);
    RemoveAbandoned(folder);
    std::error_code error;
    for (int count = 0; count < maximumTries; ++count) {
        path = folder / TemporaryName();
        const bool isMade = fs::create_directory(path, error);
        if (error)
            break;
        if (isMade && !lock.Hold(path))
            return;
    }
    RaiseCreationError(error ? error : std::make_error_code(std::errc::file_exists), path, callersPath);
}

cTemporaryFolder::~cTemporaryFolder()
{
    std::error_code ignored;
    fs::remove_all(path, ignored);
}

} // namespace ob
