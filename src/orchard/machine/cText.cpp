// SPDX-License-Identifier: GPL-3.0-or-later
// A text of a running program: bytes that are shared, cut and added to without a copy where that can be.
#include "orchard/machine/cText.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

namespace ob::basic {

namespace {

constexpr std::size_t LeastCapacity = 40; // with its header, what the allocator gives anyway
// A slice keeps at most so many times its own size in memory.
constexpr std::size_t MostWaste = 16;

constexpr auto AllBytes = [] {
    std::array<char, 256> all = {};
    for (std::size_t byte = 0; byte < all.size(); ++byte)
        all[byte] = static_cast<char>(byte);
    return all;
}();

} // namespace

cText::Buffer* cText::NewBuffer(std::size_t capacity)
{
    if (capacity > std::numeric_limits<std::size_t>::max() / 4)
        throw std::bad_alloc();
    auto* made = static_cast<Buffer*>(std::malloc(sizeof(Buffer) + capacity));
    if (made == nullptr)
        throw std::bad_alloc();
    *made = {1, 0, capacity};
    return made;
}

void cText::Free() noexcept
{
    std::free(buffer);
}

cText::cText(std::string_view copied)
{
    if (copied.empty())
        return;
    buffer = NewBuffer(std::max(copied.size(), LeastCapacity));
    std::memcpy(buffer->Bytes(), copied.data(), copied.size());
    buffer->filled = copied.size();
    bytes = buffer->Bytes();
    size = copied.size();
}

cText cText::Character(std::uint8_t byte) noexcept
{
    return cText(AllBytes.data() + byte, 1, nullptr);
}

cText cText::Slice(std::size_t start, std::size_t count) const
{
    if (count == 0)
        return {};
    if (count == 1)
        return Character(static_cast<std::uint8_t>(bytes[start]));
    if (buffer != nullptr && buffer->capacity / MostWaste > count)
        return cText(std::string_view(bytes + start, count));
    cText slice(bytes + start, count, buffer);
    slice.Share();
    return slice;
}

void cText::Append(std::string_view added)
{
    if (added.empty())
        return;
    const bool endsAtFill = buffer != nullptr && bytes + size == buffer->Bytes() + buffer->filled;
    if (!endsAtFill || buffer->capacity - buffer->filled < added.size()) {
        // Room for as much again, once a text has been added to before.
        const std::size_t needed = size + added.size();
        cText grown;
        grown.buffer = NewBuffer(std::max(endsAtFill ? 2 * needed : needed + needed / 4, LeastCapacity));
        grown.bytes = grown.buffer->Bytes();
        if (size != 0)
            std::memcpy(grown.buffer->Bytes(), bytes, size);
        grown.size = grown.buffer->filled = size;
        // What is added may be a part of this text, which lives until the swap.
        std::memcpy(grown.buffer->Bytes() + size, added.data(), added.size());
        grown.size = grown.buffer->filled = needed;
        Swap(grown);
        return;
    }
    std::memmove(buffer->Bytes() + buffer->filled, added.data(), added.size());
    buffer->filled += added.size();
    size += added.size();
}

} // namespace ob::basic
