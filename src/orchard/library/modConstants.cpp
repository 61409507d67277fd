// SPDX-License-Identifier: GPL-3.0-or-later
// The table of constants as one text, which the compiler takes in a moment and the search reads where it is.
#include "orchard/library/modConstants.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace ob::basic {

namespace {

// A line each, "NAME value", sorted by name; names are in capitals.
constexpr char lines[] =
#include "orchard/library/constants.inc"
    ;
constexpr std::string_view table(lines, sizeof lines - 1);

constexpr std::size_t longestName = 96;

char Capital(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

// The line around a place in the table, without its end.
std::string_view LineAround(std::size_t place)
{
    const std::size_t before = place == 0 ? std::string_view::npos : table.rfind('\n', place - 1);
    const std::size_t start = before == std::string_view::npos ? 0 : before + 1;
    return table.substr(start, table.find('\n', start) - start);
}

} // namespace

bool FindConstant(std::string_view name, double& value)
{
    if (name.starts_with('_'))
        name.remove_prefix(1);
    std::array<char, longestName> capitals;
    if (name.empty() || name.size() > capitals.size())
        return false;
    std::transform(name.begin(), name.end(), capitals.begin(), Capital);
    const std::string_view sought(capitals.data(), name.size());
    for (std::size_t low = 0, high = table.size(); low < high;) {
        const std::string_view line = LineAround(low + (high - low) / 2);
        const std::size_t space = line.find(' ');
        const int order = sought.compare(line.substr(0, space));
        if (order == 0) {
            std::int64_t number = 0;
            std::from_chars(line.data() + space + 1, line.data() + line.size(), number);
            value = static_cast<double>(number);
            return true;
        }
        if (order < 0)
            high = static_cast<std::size_t>(line.data() - table.data());
        else
            low = static_cast<std::size_t>(line.data() - table.data()) + line.size() + 1;
    }
    return false;
}

std::size_t ConstantCount()
{
    return static_cast<std::size_t>(std::count(table.begin(), table.end(), '\n'));
}

} // namespace ob::basic
