// SPDX-License-Identifier: GPL-3.0-or-later
// The tools of all rooms.
#pragma once

#include "shell/state/modTools.h"

#include <QString>

#include <vector>

namespace ob {

// Room by room, in each room's order.
const std::vector<ToolRow>& Tools();

// Null for an unknown name.
const ToolRow* FindTool(const QString& name);

} // namespace ob
