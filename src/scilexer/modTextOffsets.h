// SPDX-License-Identifier: GPL-3.0-or-later
// Positions in bytes and in UTF-16 units in one large UTF-8 text that changes.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>

namespace ob {

// Counts from the place of the last question on, so that questions near each other cost little in any text.
class TextOffsets {
public:
    // Gives the bytes from a position on that lie in one piece of memory, up to `to`; at least one when from < to.
    using Reader = std::function<std::string_view(std::intptr_t from, std::intptr_t to)>;
    using Length = std::function<std::intptr_t()>;

    TextOffsets(Reader textReader, Length textLength) : read(std::move(textReader)), length(std::move(textLength)) {}

    // The UTF-16 units before a byte position; positions outside the text count as its ends.
    std::intptr_t OffsetOf(std::intptr_t position);

    // The byte position before which so many UTF-16 units lie; offsets outside the text count as its ends.
    std::intptr_t PositionOf(std::intptr_t offset);

    // To be told before the bytes from `position` on change.
    void NoteChange(std::intptr_t position);

private:
    std::intptr_t Count(std::intptr_t from, std::intptr_t to) const;

    Reader read;
    Length length;
    std::intptr_t knownPosition = 0;
    std::intptr_t knownOffset = 0;
};

} // namespace ob
