// SPDX-License-Identifier: GPL-3.0-or-later
// What an error of a program says.
#pragma once

#include "orchard/language/modProgram.h"

#include <string>
#include <string_view>

namespace ob::basic {

// A piece of the program as a message names it: quoted, short, and without control characters. Empty is the end of the
// line.
std::string Quoted(std::string_view piece);

// Notes that what is at the place was not expected.
void AddError(Program& program, Offset offset, Index length, std::string_view expected);

// The same where the message names something else than the text at the place.
void AddError(Program& program, Offset offset, Index length, std::string found, std::string expected);

// "line 12", for messages that point to another place.
std::string LineName(const Program& program, Offset offset);

} // namespace ob::basic
