// SPDX-License-Identifier: GPL-3.0-or-later
// A system without short names, whose processes are folders.
#include "platform/files/modSystemPaths.h"

#include <system_error>

#include <sys/auxv.h>

namespace ob {

namespace fs = std::filesystem;

fs::path ExecutablePath()
{
    std::error_code error;
    fs::path path = fs::read_symlink("/proc/self/exe", error);
    if (!error)
        return path;
    // Without the folder of processes: the path by which the system started the program.
    const auto* started = reinterpret_cast<const char*>(::getauxval(AT_EXECFN));
    path = started == nullptr ? fs::path() : fs::canonical(started, error);
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
