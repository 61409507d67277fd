// SPDX-License-Identifier: GPL-3.0-or-later
// A program's arrays as text, for people.
#pragma once

#include "orchard/language/modProgram.h"

#include <string>

namespace ob::basic {

// A line for each statement: its number, its line in the text, its kind, its operands (operators in front of theirs)
// and where it leads; then the routines with their variables, and the other tables. The program has no errors.
std::string DumpProgram(const Program& program);

} // namespace ob::basic
