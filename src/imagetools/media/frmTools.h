// SPDX-License-Identifier: GPL-3.0-or-later
// The tools of sounds, songs and films.
#pragma once

#include "shell/state/modTools.h"

#include <span>

namespace ob {

std::span<const ToolRow> MediaTools();

} // namespace ob
