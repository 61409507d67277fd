// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers and bytes put one after another, little-endian.
#pragma once

#include "imaging/modByteView.h"

#include <utility>
#include <vector>

namespace ob {

class cByteWriter {
public:
    cByteWriter& Byte(std::uint8_t value)
    {
        bytes.push_back(value);
        return *this;
    }
    // The lowest 16 bits; of negative numbers too.
    cByteWriter& Word(std::uint32_t value) { return Number(value, 2); }
    cByteWriter& Long(std::uint32_t value) { return Number(value, 4); }
    cByteWriter& Long64(std::uint64_t value) { return Number(value, 8); }
    cByteWriter& SignedWord(std::int16_t value) { return Word(static_cast<std::uint32_t>(value)); }
    cByteWriter& SignedLong(std::int32_t value) { return Long(static_cast<std::uint32_t>(value)); }
    cByteWriter& Zeros(std::size_t count)
    {
        bytes.resize(bytes.size() + count);
        return *this;
    }
    cByteWriter& Bytes(ByteView values)
    {
        bytes.insert(bytes.end(), values.begin(), values.end());
        return *this;
    }

    // Puts a number over four bytes that are there already.
    void LongAt(std::size_t offset, std::uint32_t value)
    {
        for (std::size_t place = 0; place < 4; ++place)
            bytes.at(offset + place) = static_cast<std::uint8_t>(value >> (8 * place));
    }

    void Reserve(std::size_t count) { bytes.reserve(count); }
    std::size_t Size() const { return bytes.size(); }
    ByteView View() const { return bytes; }
    std::vector<std::uint8_t> Take() { return std::exchange(bytes, {}); }

private:
    cByteWriter& Number(std::uint64_t value, int count)
    {
        for (int place = 0; place < count; ++place)
            bytes.push_back(static_cast<std::uint8_t>(value >> (8 * place)));
        return *this;
    }

    std::vector<std::uint8_t> bytes;
};

} // namespace ob
