// SPDX-License-Identifier: GPL-3.0-or-later
// The packaging wizard as a tool.
#pragma once

#include "shell/state/modTools.h"

#include <span>

namespace ob {

std::span<const ToolRow> PackageTools();

} // namespace ob
