// SPDX-License-Identifier: GPL-3.0-or-later
// The tools that write code, and the key codes.
#pragma once

#include "shell/state/modTools.h"

#include <span>

namespace ob {

std::span<const ToolRow> CodeTools();

} // namespace ob
