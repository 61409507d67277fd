// SPDX-License-Identifier: GPL-3.0-or-later
// Which system the program is built for. A question about it is ordinary code, so the compiler reads both answers.
#pragma once

#include <filesystem>

namespace ob {

enum class System { Unix, Windows };

inline constexpr System ThisSystem =
    std::filesystem::path::preferred_separator == '\\' ? System::Windows : System::Unix;

} // namespace ob
