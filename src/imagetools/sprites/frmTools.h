// SPDX-License-Identifier: GPL-3.0-or-later
// The tool of sprites.
#pragma once

#include "shell/state/modTools.h"

#include <span>

namespace ob {

std::span<const ToolRow> SpriteTools();

} // namespace ob
