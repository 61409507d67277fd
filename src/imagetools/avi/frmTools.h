// SPDX-License-Identifier: GPL-3.0-or-later
// The tool of videos.
#pragma once

#include "shell/state/modTools.h"

#include <span>

namespace ob {

std::span<const ToolRow> AviTools();

} // namespace ob
