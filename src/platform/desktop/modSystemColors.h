// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop's own colours by the system's numbers.
#pragma once

#include <cstdint>

namespace ob {

enum class SystemColor { Window = 5, WindowText = 8, ButtonFace = 15 };

// Red in the low byte. Needs the application object.
std::uint32_t GetSysColor(SystemColor color);

} // namespace ob
