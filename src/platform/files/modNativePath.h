// SPDX-License-Identifier: GPL-3.0-or-later
// Paths in the form of the standard library.
#pragma once

#include <QString>

#include <filesystem>

namespace ob {

std::filesystem::path NativePath(const QString& path);
QString TextOfPath(const std::filesystem::path& path);

// The final target of a link, whether or not it exists; a path that is not a link is its own target. Circular links
// raise PathFileAccess with the caller's path.
std::filesystem::path LinkTarget(std::filesystem::path path, const QString& callersPath);

} // namespace ob
