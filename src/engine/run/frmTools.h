// SPDX-License-Identifier: GPL-3.0-or-later
// The tools around a run.
#pragma once

#include "shell/state/modTools.h"

#include <span>

namespace ob {

std::span<const ToolRow> RunTools();

} // namespace ob
