// SPDX-License-Identifier: GPL-3.0-or-later
// word$ in a loop: remembers where it got to in a text, so that its words one after the other take linear time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ob::basic {

class cWordFinder {
public:
    // What Word gives. The caller keeps the bytes of a text as they are, or calls Forget.
    std::string_view Find(std::string_view text, double number, std::string_view delimiter);
    void Forget() { last = 0; }

private:
    std::string_view known;
    std::string splitter;
    std::int64_t last = 0; // the number of the word that was found last; 0 for none
    std::size_t place = 0; // where it begins
};

} // namespace ob::basic
