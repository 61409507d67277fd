// SPDX-License-Identifier: GPL-3.0-or-later
// A block of bytes that starts as zeros and costs memory only where it is touched.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>

namespace ob {

class cBytes {
public:
    // Replaces the block. False, with an empty block, when there is not enough memory.
    bool Allocate(std::size_t byteCount)
    {
        Release();
        block.reset(static_cast<std::uint8_t*>(std::calloc(byteCount == 0 ? 1 : byteCount, 1)));
        if (block)
            count = byteCount;
        return block != nullptr;
    }
    void Release()
    {
        block.reset();
        count = 0;
    }

    std::uint8_t* Data() { return block.get(); }
    const std::uint8_t* Data() const { return block.get(); }
    std::size_t Size() const { return count; }
    std::span<const std::uint8_t> View() const { return {block.get(), count}; }

private:
    struct Free {
        void operator()(std::uint8_t* bytes) const { std::free(bytes); }
    };
    std::unique_ptr<std::uint8_t[], Free> block;
    std::size_t count = 0;
};

} // namespace ob
