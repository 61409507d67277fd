// SPDX-License-Identifier: GPL-3.0-or-later
// Reads a program: all of it in one pass, with all its errors.
#pragma once

#include "orchard/language/modProgram.h"

#include <string>
#include <string_view>

namespace ob::basic {

// Gives the value of a constant of the system's interfaces, named with its `_`; false when there is none of that name.
using ConstantLookup = bool (*)(std::string_view name, double& value);

// The program is right when it has no errors. A text ends at its first NUL; texts of 2 GB and more are an error.
// Without a lookup every constant is taken for 0.
Program ReadProgram(std::string text, ConstantLookup findConstant);

// Reads an expression with the names of a routine of a program, as `eval` needs it. The result has one statement, a
// Print with the expression as its only operand; its slots and indices are those of the outer program: of the routine's
// variables, and of `routines`, `arrays`, `structs` and `handles`. A variable that the routine does not have is the
// Number 0 or an empty Text, an Item or Handle of an unknown name has NoIndex for its `a`. `numbers` and texts are the
// result's own.
Program ReadExpression(std::string text, const Program& outer, Index routine, ConstantLookup findConstant);

} // namespace ob::basic
