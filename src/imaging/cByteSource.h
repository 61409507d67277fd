// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes that are read a range at a time: a file whose parts alone are needed, or memory.
#pragma once

#include "imaging/modByteView.h"

#include <algorithm>
#include <vector>

namespace ob {

// A part of a source, which is neither read nor checked until somebody asks for it.
struct ByteRange {
    std::uint64_t offset = 0;
    std::uint64_t size = 0;

    bool IsEmpty() const { return size == 0; }

    // A range within this one; empty when not all of it lies within.
    ByteRange At(std::uint64_t from, std::uint64_t count) const
    {
        return from > size || count > size - from ? ByteRange() : ByteRange{offset + from, count};
    }
    // From there on to the end, at most so many.
    ByteRange From(std::uint64_t start, std::uint64_t most) const
    {
        const std::uint64_t cut = std::min(start, size);
        return {offset + cut, std::min(most, size - cut)};
    }
};

class cByteSource {
public:
    cByteSource() = default;
    cByteSource(const cByteSource&) = delete;
    cByteSource& operator=(const cByteSource&) = delete;
    virtual ~cByteSource() = default;

    virtual std::uint64_t Size() const = 0;

    // Fills the target with the bytes from there on. The caller keeps within the size. Throws when they cannot be had.
    virtual void Read(std::uint64_t offset, std::span<std::uint8_t> target) const = 0;

    // The bytes of a range, which are copied to the buffer only where the source does not have them in memory. Good
    // until the next read and the buffer's next change.
    virtual ByteView Look(const ByteRange& range, std::vector<std::uint8_t>& buffer) const
    {
        buffer.resize(static_cast<std::size_t>(range.size));
        Read(range.offset, buffer);
        return buffer;
    }

    ByteRange All() const { return {0, Size()}; }
    std::vector<std::uint8_t> Bytes(const ByteRange& range) const
    {
        std::vector<std::uint8_t> bytes(static_cast<std::size_t>(range.size));
        Read(range.offset, bytes);
        return bytes;
    }
};

// Memory as a source; it must live as long.
class cMemorySource final : public cByteSource {
public:
    explicit cMemorySource(ByteView content) : bytes(content) {}

    std::uint64_t Size() const override { return bytes.size(); }
    void Read(std::uint64_t offset, std::span<std::uint8_t> target) const override
    {
        const ByteView part = BytesAt(bytes, offset, target.size());
        std::copy(part.begin(), part.end(), target.begin());
    }
    ByteView Look(const ByteRange& range, std::vector<std::uint8_t>&) const override
    {
        return BytesAt(bytes, range.offset, range.size);
    }

private:
    ByteView bytes;
};

} // namespace ob
