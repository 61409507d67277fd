// SPDX-License-Identifier: GPL-3.0-or-later
// Conversion between byte positions and UTF-16 offsets in one large UTF-8 text that changes.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>

namespace ob {

// Counts from the last requested position, so that requests near each other are cheap in any text.
class TextOffsets {
public:
    // Returns the bytes from a position on that are contiguous in memory, up to `to`; at least one when from < to.
    using Reader = std::function<std::string_view(std::intptr_t from, std::intptr_t to)>;
    using Length = std::function<std::intptr_t()>;

    TextOffsets(Reader textReader, Length textLength) : read(std::move(textReader)), length(std::move(textLength)) {}

    // The UTF-16 units before a byte position; positions outside the text are clamped to it.
    std::intptr_t OffsetOf(std::intptr_t position);

    // The byte position preceded by that many UTF-16 units; offsets outside the text are clamped to it.
    std::intptr_t PositionOf(std::intptr_t offset);

    // Must be called before the bytes from `position` on change.
    void NoteChange(std::intptr_t position);

private:
    std::intptr_t Count(std::intptr_t from, std::intptr_t to) const;

    Reader read;
    Length length;
    std::intptr_t knownPosition = 0;
    std::intptr_t knownOffset = 0;
};

} // namespace ob
