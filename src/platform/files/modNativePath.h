// SPDX-License-Identifier: GPL-3.0-or-later
// Paths as the standard library has them.
#pragma once

#include <QString>

#include <filesystem>

namespace ob {

std::filesystem::path NativePath(const QString& path);

// Where a link finally leads, whether or not something is there; a path that is no link leads to itself. Links that
// lead to each other raise PathFileAccess, in the name of the caller's path.
std::filesystem::path LinkTarget(std::filesystem::path path, const QString& callersPath);

} // namespace ob
