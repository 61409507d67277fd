// SPDX-License-Identifier: GPL-3.0-or-later
// Finding and copying runs of ASCII a block at a time.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#define OB_HAS_SSE2 1
#endif

namespace ob {

// Eight bytes, for any machine.
struct WordBlock {
    static constexpr std::size_t size = 8;

    static WordBlock Load(const char* bytes)
    {
        WordBlock block;
        std::memcpy(&block.word, bytes, size);
        return block;
    }

    void Store(char* bytes) const { std::memcpy(bytes, &word, size); }
    WordBlock operator|(WordBlock other) const { return {word | other.word}; }
    bool IsAscii() const { return High() == 0; }

    // The number of bytes above 7F, and the number of bytes before the first of them.
    std::size_t HighCount() const { return static_cast<std::size_t>(std::popcount(High())); }
    std::size_t AsciiLength() const
    {
        const bool lowFirst = std::endian::native == std::endian::little;
        return static_cast<std::size_t>(lowFirst ? std::countr_zero(High()) : std::countl_zero(High())) / 8;
    }

    std::uint64_t High() const { return word & 0x8080808080808080U; }

    std::uint64_t word;
};

#ifdef OB_HAS_SSE2
// Sixteen bytes.
struct SseBlock {
    static constexpr std::size_t size = 16;

    static SseBlock Load(const char* bytes) { return {_mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes))}; }
    void Store(char* bytes) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(bytes), all); }
    SseBlock operator|(SseBlock other) const { return {_mm_or_si128(all, other.all)}; }
    bool IsAscii() const { return High() == 0; }
    std::size_t AsciiLength() const { return static_cast<std::size_t>(std::countr_zero(High())); }
    unsigned High() const { return static_cast<unsigned>(_mm_movemask_epi8(all)); }

    __m128i all;
};

using AsciiBlock = SseBlock;
#else
using AsciiBlock = WordBlock;
#endif

inline bool IsAscii(char byte)
{
    return static_cast<signed char>(byte) >= 0;
}

// The number of ASCII bytes at the start.
template <typename Block = AsciiBlock>
std::size_t AsciiLength(const char* bytes, std::size_t length)
{
    constexpr std::size_t size = Block::size;
    std::size_t position = 0;
    const auto load = [&](std::size_t index) { return Block::Load(bytes + position + index * size); };
    for (; position + 4 * size <= length; position += 4 * size)
        if (!((load(0) | load(1)) | (load(2) | load(3))).IsAscii())
            break;
    for (; position + size <= length; position += size)
        if (const Block block = load(0); !block.IsAscii())
            return position + block.AsciiLength();
    while (position < length && IsAscii(bytes[position]))
        ++position;
    return position;
}

// Copies ASCII from source to target up to the first other byte and returns the number of bytes copied. May also write
// to the target after them, but never beyond the length.
template <typename Block = AsciiBlock>
std::size_t CopyAscii(char* target, const char* source, std::size_t length)
{
    std::size_t position = 0;
    for (; position + Block::size <= length; position += Block::size) {
        const Block block = Block::Load(source + position);
        block.Store(target + position);
        if (!block.IsAscii())
            return position + block.AsciiLength();
    }
    for (; position < length && IsAscii(source[position]); ++position)
        target[position] = source[position];
    return position;
}

// The number of bytes above 7F.
inline std::size_t HighCount(const char* bytes, std::size_t length)
{
    std::size_t count = 0;
    std::size_t position = 0;
    for (; position + WordBlock::size <= length; position += WordBlock::size)
        count += WordBlock::Load(bytes + position).HighCount();
    for (; position < length; ++position)
        count += IsAscii(bytes[position]) ? 0 : 1;
    return count;
}

} // namespace ob
