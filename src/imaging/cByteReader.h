// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers out of foreign bytes: no read goes beyond their end.
#pragma once

#include "imaging/modByteView.h"

#include <bit>
#include <type_traits>

namespace ob {

// Reads at a distance from the start, where bytes beyond the end count as zeros, or in turn, where a read beyond the
// end gives zeros and nothing is left from then on. Numbers are little-endian where nothing else is said.
class cByteReader {
public:
    explicit cByteReader(ByteView content) : bytes(content) {}

    std::uint8_t Byte(std::size_t offset) const { return offset < bytes.size() ? bytes[offset] : std::uint8_t{0}; }
    std::uint16_t Word(std::size_t offset) const
    {
        return static_cast<std::uint16_t>(Byte(offset) | Byte(offset + 1) << 8);
    }
    std::uint32_t Long(std::size_t offset) const
    {
        return Word(offset) | static_cast<std::uint32_t>(Word(offset + 2)) << 16;
    }
    std::int16_t SignedWord(std::size_t offset) const { return static_cast<std::int16_t>(Word(offset)); }
    std::int32_t SignedLong(std::size_t offset) const { return static_cast<std::int32_t>(Long(offset)); }

    // The next number of that type.
    template <class Number, std::endian Order = std::endian::little>
    Number Next()
    {
        using Bits = std::make_unsigned_t<Number>;
        const ByteView taken = NextBytes(sizeof(Number));
        Bits value = 0;
        for (std::size_t place = 0; place < taken.size(); ++place) {
            const std::size_t shift = 8 * (Order == std::endian::little ? place : sizeof(Number) - 1 - place);
            value = static_cast<Bits>(value | static_cast<Bits>(Bits{taken[place]} << shift));
        }
        return static_cast<Number>(value);
    }

    // The next bytes; none when there are not that many.
    ByteView NextBytes(std::size_t count)
    {
        if (count > Left()) {
            isShort = true;
            position = bytes.size();
            return {};
        }
        const ByteView taken = bytes.subspan(position, count);
        position += count;
        return taken;
    }
    void Skip(std::size_t count) { NextBytes(count); }

    ByteView All() const { return bytes; }
    std::size_t Position() const { return position; }
    std::size_t Left() const { return bytes.size() - position; }

    // Whether a read in turn went beyond the end.
    bool IsShort() const { return isShort; }

private:
    ByteView bytes;
    std::size_t position = 0;
    bool isShort = false;
};

} // namespace ob
