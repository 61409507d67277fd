// SPDX-License-Identifier: GPL-3.0-or-later
// The tools of colors and fonts.
#pragma once

#include "shell/state/modTools.h"

#include <span>

namespace ob {

std::span<const ToolRow> ColorTools();

} // namespace ob
