// SPDX-License-Identifier: GPL-3.0-or-later
// Counting UTF-16 units in UTF-8.
#include "scilexer/modTextOffsets.h"

#include <algorithm>

namespace ob {

namespace {

// How many bytes are counted before the result is examined.
constexpr std::intptr_t StepBytes = 4096;

bool IsContinuation(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// The units that begin at this byte: two for a character beyond the basic plane.
int Units(char c)
{
    return (IsContinuation(c) ? 0 : 1) + (static_cast<unsigned char>(c) >= 0xF0 ? 1 : 0);
}

} // namespace

std::intptr_t TextOffsets::Count(std::intptr_t from, std::intptr_t to) const
{
    std::intptr_t units = 0;
    while (from < to) {
        const std::string_view piece = read(from, to);
        if (piece.empty())
            break;
        // With an int as counter, the compiler vectorises the loop.
        for (std::size_t at = 0; at < piece.size(); at += StepBytes) {
            int stepUnits = 0;
            for (const char c : piece.substr(at, StepBytes))
                stepUnits += Units(c);
            units += stepUnits;
        }
        from += static_cast<std::intptr_t>(piece.size());
    }
    return units;
}

std::intptr_t TextOffsets::OffsetOf(std::intptr_t position)
{
    position = std::clamp<std::intptr_t>(position, 0, length());
    // When the last position is far ahead, counting from the start of the text is shorter.
    if (position < knownPosition / 2)
        knownPosition = knownOffset = 0;
    knownOffset += position >= knownPosition ? Count(knownPosition, position) : -Count(position, knownPosition);
    knownPosition = position;
    return knownOffset;
}

std::intptr_t TextOffsets::PositionOf(std::intptr_t offset)
{
    const std::intptr_t end = length();
    if (offset < knownOffset / 2)
        knownPosition = knownOffset = 0;
    // Steps back to a place that cannot be after the offset, then forward over whole pieces.
    while (offset < knownOffset && knownPosition > 0)
        OffsetOf(std::max<std::intptr_t>(0, knownPosition - StepBytes));
    while (knownPosition < end) {
        const std::intptr_t next = std::min(end, knownPosition + StepBytes);
        const std::intptr_t units = Count(knownPosition, next);
        if (knownOffset + units > offset)
            break;
        knownPosition = next;
        knownOffset += units;
    }
    std::intptr_t position = knownPosition;
    std::intptr_t rest = offset - knownOffset;
    while (position < end) {
        for (const char c : read(position, std::min(end, position + StepBytes))) {
            if (rest < Units(c))
                return position;
            rest -= Units(c);
            ++position;
        }
    }
    return position;
}

void TextOffsets::NoteChange(std::intptr_t position)
{
    if (position < knownPosition)
        OffsetOf(position);
}

} // namespace ob
