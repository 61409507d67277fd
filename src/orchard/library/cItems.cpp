// SPDX-License-Identifier: GPL-3.0-or-later
// Splitting a line of input.
#include "orchard/library/cItems.h"

#include <algorithm>

#include "orchard/library/modTexts.h"

namespace ob::basic {

Item FrontItem(std::string_view line)
{
    const std::size_t start = std::min(line.find_first_not_of(' '), line.size());
    const bool isQuoted = start < line.size() && line[start] == '"';
    const std::size_t quote = isQuoted ? line.find('"', start + 1) : 0;
    const std::size_t comma =
        isQuoted && quote == std::string_view::npos ? quote : line.find(',', isQuoted ? quote : start);
    Item item;
    item.isLast = comma == std::string_view::npos;
    item.length = item.isLast ? line.size() : comma + 1;
    if (isQuoted)
        item.text = line.substr(start + 1, std::min(quote, line.size()) - start - 1);
    else
        item.text = Trim(line.substr(0, comma));
    return item;
}

} // namespace ob::basic
