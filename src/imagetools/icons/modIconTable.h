// SPDX-License-Identifier: GPL-3.0-or-later
// The icons of a program, as listed in its resources, before any image is read.
#pragma once

#include "imaging/modFileAccess.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace ob {

// The numbers of the resource types.
constexpr std::uint16_t ImageResource = 3;
constexpr std::uint16_t GroupResource = 14;

struct IconTable {
    // The directory of each icon, in the order of the program; empty where it is beyond the end of the file.
    std::vector<ByteView> groups;

    // The images by number; of several with one number the first counts.
    std::vector<std::pair<std::uint16_t, ByteView>> images;

    void SortImages() { std::ranges::stable_sort(images, {}, &std::pair<std::uint16_t, ByteView>::first); }

    // Requires sorted images; empty when there is none of that number.
    ByteView Image(std::uint16_t number) const
    {
        const auto found = std::ranges::lower_bound(images, number, {}, &std::pair<std::uint16_t, ByteView>::first);
        return found != images.end() && found->first == number ? found->second : ByteView();
    }
};

// The bytes from that place, as many as size; empty when not all of them exist.
inline ByteView BytesAt(ByteView file, std::uint64_t offset, std::uint64_t size)
{
    if (offset > file.size() || size > file.size() - offset)
        return {};
    return file.subspan(static_cast<std::size_t>(offset), static_cast<std::size_t>(size));
}

} // namespace ob
