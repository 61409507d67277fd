// SPDX-License-Identifier: GPL-3.0-or-later
// The table of the machine's instructions.
#include "orchard/machine/modInstructions.h"

#include <array>

namespace ob::basic {

namespace {

constexpr auto AllOperations = std::to_array<OperationInfo>({
#define OB_INSTRUCTION_ROW(name, operands) {#name, operands},
    OB_INSTRUCTIONS(OB_INSTRUCTION_ROW)
#undef OB_INSTRUCTION_ROW
});

} // namespace

std::span<const OperationInfo> Operations()
{
    return AllOperations;
}

} // namespace ob::basic
