// SPDX-License-Identifier: GPL-3.0-or-later
// The choice of a program on a system with a registry: modAssociation_unix.cpp, modAssociation_windows.cpp.
#pragma once

#include <string>

namespace ob {

enum class RegistryEnd { Written, Refused, NoRegistry };

// Makes the program (a full path) the one that opens *.bas and *.obf, with its icon.
RegistryEnd AssociateInRegistry(const std::u16string& program);

} // namespace ob
