// SPDX-License-Identifier: GPL-3.0-or-later
// The system's errors as the runtime's, with the system's text as the reason.
#pragma once

#include "platform/language/cRuntimeError.h"

#include <QString>

#include <filesystem>
#include <system_error>

namespace ob {

// All raise in the name of the path that the caller gave.
[[noreturn]] void RaiseFileError(ErrorNumber number, const QString& path, std::errc reason);
[[noreturn]] void RaiseFileError(std::error_code error, const QString& path);

// The error of making a file: where its folder is there, a file that is "missing" says that the folder takes none.
[[noreturn]] void RaiseCreationError(std::error_code error, const std::filesystem::path& made, const QString& path);

// The folder of a path, "." for a bare name.
std::filesystem::path FolderOfNative(const std::filesystem::path& path);

// Raises PathFileAccess for a file that is write-protected.
void RequireWritable(const std::filesystem::path& file, const QString& path);

} // namespace ob
