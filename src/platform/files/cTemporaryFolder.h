// SPDX-License-Identifier: GPL-3.0-or-later
// A folder under a temporary name, beside what it is made for.
#pragma once

#include "platform/files/cSystemFile.h"

#include <QString>

#include <filesystem>

namespace ob {

// Goes with everything in it when it is let go. After a kill the next save beside it removes it.
class cTemporaryFolder {
public:
    // Raises as modFiles.h says, in the name of the caller's path.
    cTemporaryFolder(const std::filesystem::path& target, const QString& callersPath);
    cTemporaryFolder(const cTemporaryFolder&) = delete;
    cTemporaryFolder& operator=(const cTemporaryFolder&) = delete;
    ~cTemporaryFolder();

    const std::filesystem::path& Path() const { return path; }

private:
    std::filesystem::path path;
    cSystemFile lock;
};

} // namespace ob
