// SPDX-License-Identifier: GPL-3.0-or-later
// Icons out of files on disk; of a program only the parts that are needed are read.
#pragma once

#include "imagetools/icons/cIconIndex.h"

#include <QString>

#include <optional>

namespace ob {

// The icons of a file. Raises what cFileSource raises, as reading from the index does.
cIconIndex IconsOfFile(const QString& path);

// A file that cannot be read has no icon.
int IconCount(const QString& path);
std::optional<IconImage> ExtractIcon(const QString& path, int index);

} // namespace ob
