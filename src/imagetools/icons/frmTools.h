// SPDX-License-Identifier: GPL-3.0-or-later
// The tool of icons.
#pragma once

#include "shell/state/modTools.h"

#include <span>

namespace ob {

std::span<const ToolRow> IconTools();

} // namespace ob
