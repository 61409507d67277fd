// SPDX-License-Identifier: GPL-3.0-or-later
// Paths in the form of the standard library.
#pragma once

#include <QString>

#include <filesystem>

namespace ob {

// A name on the disk may have bytes that are not characters of the system. As text it is another name, in which U+FFFD
// has the place of those bytes, and another file may have that one. Such a file is neither read nor written.
bool IsLostName(const QString& path);

// "... cannot be used: ...", for the user.
QString LostNameText(const QString& path);

// Raises PathFileAccess, with the path as its file, for a path that is empty, has a NUL or is lost.
void RequireWholeName(const QString& path);

std::filesystem::path NativePath(const QString& path);
QString TextOfPath(const std::filesystem::path& path);

// The final target of a link, whether or not it exists; a path that is not a link is its own target. Circular links
// raise PathFileAccess with the caller's path.
std::filesystem::path LinkTarget(std::filesystem::path path, const QString& callersPath);

} // namespace ob
