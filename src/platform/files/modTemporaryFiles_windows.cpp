// SPDX-License-Identifier: GPL-3.0-or-later
// Temporary files of a system that lets nobody remove a file that is open; what a killed program left stays.
#include "platform/files/modTemporaryFiles.h"

#include <random>
#include <string>

namespace ob {

std::filesystem::path TemporaryName()
{
    static std::random_device device;
    return ".ob-" + std::to_string(device()) + ".tmp";
}

void RemoveAbandoned(const std::filesystem::path&) {}

void RemoveMarkedOnSignals() {}

void cTemporaryMark::Set(const std::filesystem::path&)
{
    place = 0;
}

void cTemporaryMark::Clear()
{
    place = 0;
}

} // namespace ob
