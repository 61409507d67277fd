// SPDX-License-Identifier: GPL-3.0-or-later
// The line starts, found with the C library's search for a byte.
#include "orchard/language/cLineTable.h"

#include <algorithm>

namespace ob::basic {

cLineTable::cLineTable(std::string_view text) : starts{0}
{
    const bool hasReturns = text.find('\r') != std::string_view::npos;
    const std::string_view ends = hasReturns ? "\r\n" : "\n";
    for (std::size_t at = text.find_first_of(ends); at != std::string_view::npos; at = text.find_first_of(ends, at)) {
        at += text.substr(at, 2) == "\r\n" ? 2 : 1;
        starts.push_back(static_cast<std::uint32_t>(at));
    }
}

LineColumn cLineTable::PlaceOf(std::uint32_t offset) const
{
    const auto after = std::ranges::upper_bound(starts, offset);
    const auto line = static_cast<std::uint32_t>(after - starts.begin());
    return {line, offset - starts[line - 1] + 1};
}

std::uint32_t cLineTable::StartOf(std::uint32_t line) const
{
    return starts[std::min<std::size_t>(line, starts.size()) - 1];
}

} // namespace ob::basic
