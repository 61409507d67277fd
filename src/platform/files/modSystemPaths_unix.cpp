// SPDX-License-Identifier: GPL-3.0-or-later
// A system without short names, whose processes are folders.
#include "platform/files/modSystemPaths.h"

#include <system_error>

namespace ob {

namespace fs = std::filesystem;

fs::path ExecutablePath()
{
    std::error_code error;
    fs::path path = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::path() : path;
}

fs::path WithLongNames(const fs::path& path)
{
    return path;
}

fs::path WithShortNames(const fs::path& path)
{
    return path;
}

} // namespace ob
