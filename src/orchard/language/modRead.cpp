// SPDX-License-Identifier: GPL-3.0-or-later
// Reading: the parser, then the resolver.
#include "orchard/language/modRead.h"

#include "orchard/language/cParser.h"
#include "orchard/language/cResolver.h"
#include "orchard/language/modReadErrors.h"

#include <limits>

namespace ob::basic {

Program ReadProgram(std::string text, ConstantLookup findConstant)
{
    constexpr auto largest = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());
    const bool isTooLarge = text.size() > largest;
    if (isTooLarge)
        text.clear();
    text.resize(std::min(text.size(), text.find('\0')));
    Program program;
    program.source = std::make_unique<const std::string>(std::move(text));
    program.lines = cLineTable(*program.source);
    Parsed parsed;
    cParser(program, parsed, findConstant).Run();
    cResolver(program, parsed).Run();
    if (isTooLarge)
        AddError(program, 0, 0, "a program of 2 GB or more", "one below 2 GB");
    return program;
}

} // namespace ob::basic
