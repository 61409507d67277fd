// SPDX-License-Identifier: GPL-3.0-or-later
// What only the system knows about paths; a half for each system, without the toolkit.
#pragma once

#include <filesystem>

namespace ob {

// The file of the running program; empty where the system does not say.
std::filesystem::path ExecutablePath();

// The path of an existing file or folder without, and with, the system's short names; the path itself where the system
// has none. Empty when the system has no answer.
std::filesystem::path WithLongNames(const std::filesystem::path& path);
std::filesystem::path WithShortNames(const std::filesystem::path& path);

} // namespace ob
