// SPDX-License-Identifier: GPL-3.0-or-later
// Where a system keeps the choice of a program in a registry: modAssociation_unix.cpp, modAssociation_windows.cpp.
#pragma once

#include <string>

namespace ob {

enum class RegistryEnd { Written, Refused, NoRegistry };

// Makes the program, as a full path, the one that opens *.bas and *.obf, with its icon.
RegistryEnd AssociateInRegistry(const std::u16string& program);

} // namespace ob
