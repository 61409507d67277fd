// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of files for windows: decoded off the window's thread, with a cancel.
#pragma once

#include "imaging/cDIBSection.h"

#include <QString>

#include <optional>

namespace ob {

// "Reading ship.bmp..."
QString ReadingText(const QString& path);

// The picture of a file; nothing when the user has cancelled the reading. Raises what LoadPicture raises.
std::optional<cDIBSection> ReadPicture(const QString& path);

} // namespace ob
