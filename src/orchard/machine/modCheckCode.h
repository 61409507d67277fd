// SPDX-License-Identifier: GPL-3.0-or-later
// Whether the machine can run a program without harm, whatever wrote it.
#pragma once

#include "orchard/machine/cMachine.h"
#include "orchard/machine/cMachineCode.h"

#include <optional>
#include <span>
#include <string>

namespace ob::basic {

// Why the program must not be run: an operand, jump, routine or place beyond what the program has. Nothing when the
// machine can run it with that library. Each instruction is looked at once.
std::optional<std::string> CheckMachineCode(const MachineCode& code, std::span<const LibraryRow> library);

} // namespace ob::basic
