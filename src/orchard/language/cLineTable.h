// SPDX-License-Identifier: GPL-3.0-or-later
// From a place in a text to its line and column.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace ob::basic {

struct LineColumn {
    std::uint32_t line;   // from 1
    std::uint32_t column; // in bytes, from 1
};

// The starts of a text's lines, which end in CR LF, LF or CR. A continued line is several lines here.
class cLineTable {
public:
    cLineTable() = default;
    explicit cLineTable(std::string_view text);

    LineColumn PlaceOf(std::uint32_t offset) const;
    // Where the line starts, from 1; a line past the last one starts where the last one does.
    std::uint32_t StartOf(std::uint32_t line) const;
    std::size_t Count() const { return starts.size(); }

private:
    std::vector<std::uint32_t> starts;
};

} // namespace ob::basic
