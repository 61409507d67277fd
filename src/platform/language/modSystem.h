// SPDX-License-Identifier: GPL-3.0-or-later
// Which system the program is built for. Tests of it are ordinary code, so that the compiler checks both branches.
#pragma once

#include <filesystem>

namespace ob {

enum class System { Unix, Windows };

inline constexpr System ThisSystem =
    std::filesystem::path::preferred_separator == '\\' ? System::Windows : System::Unix;

} // namespace ob
