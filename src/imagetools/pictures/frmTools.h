// SPDX-License-Identifier: GPL-3.0-or-later
// The tool of pictures.
#pragma once

#include "shell/state/modTools.h"

#include <span>

namespace ob {

std::span<const ToolRow> PictureTools();

} // namespace ob
