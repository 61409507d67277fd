// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the machine's code of a program that was read.
#pragma once

#include "orchard/language/modProgram.h"
#include "orchard/machine/cCodeWriter.h"
#include "orchard/machine/cMachineCode.h"

namespace ob::basic {

// The program must have been read without an error. Throws cTooLarge.
MachineCode GenerateCode(const Program& program);

} // namespace ob::basic
