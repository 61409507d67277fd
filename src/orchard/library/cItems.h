// SPDX-License-Identifier: GPL-3.0-or-later
// The items of a line that input reads, split at commas.
#pragma once

#include <cstddef>
#include <string_view>

namespace ob::basic {

// An item in a line, and how many bytes it takes with the comma after it; all of the line for the last one.
struct Item {
    std::string_view text;
    std::size_t length = 0;
    bool isLast = true;
};

// The item at the front of a line. Quotes keep the commas between them and are dropped, with what follows them up to
// the comma; a quote that is not closed goes to the end. Spaces around a bare item go.
Item FrontItem(std::string_view line);

// Takes the items of a line one after the other. An empty line has one, which is empty.
class cItems {
public:
    explicit cItems(std::string_view line) : rest(line) {}

    bool IsEmpty() const { return isUsedUp; }

    // The next item; nothing may be taken when none is left.
    std::string_view Take()
    {
        const Item item = FrontItem(rest);
        rest.remove_prefix(item.length);
        isUsedUp = item.isLast;
        return item.text;
    }

private:
    std::string_view rest;
    bool isUsedUp = false;
};

} // namespace ob::basic
