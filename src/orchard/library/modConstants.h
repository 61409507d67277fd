// SPDX-License-Identifier: GPL-3.0-or-later
// The constants of the system's interfaces that a program names with a leading _, such as _WS_VISIBLE.
#pragma once

#include <cstddef>
#include <string_view>

namespace ob::basic {

// Finds a constant by its name, with or without the leading _ and in any case; false when there is none. The value has
// the sign of its type; handles that are constants are signed, and bit sets are not.
bool FindConstant(std::string_view name, double& value);

// How many constants there are.
std::size_t ConstantCount();

} // namespace ob::basic
