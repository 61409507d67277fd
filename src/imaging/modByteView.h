// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes that belong to somebody else, and parts of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace ob {

using ByteView = std::span<const std::uint8_t>;

// The bytes from there on, as many as the count says; empty when not all of them are there.
inline ByteView BytesAt(ByteView bytes, std::uint64_t offset, std::uint64_t count)
{
    if (offset > bytes.size() || count > bytes.size() - offset)
        return {};
    return bytes.subspan(static_cast<std::size_t>(offset), static_cast<std::size_t>(count));
}

} // namespace ob
