// SPDX-License-Identifier: GPL-3.0-or-later
// The icons that a program holds, as its resources name them, before any image is looked at.
#pragma once

#include "imaging/cByteSource.h"

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
    std::vector<ByteRange> groups;

    // The images by number; of several with one number the first counts.
    std::vector<std::pair<std::uint16_t, ByteRange>> images;

    void SortImages()
    {
        constexpr auto number = &std::pair<std::uint16_t, ByteRange>::first;
        // Linkers write them in order.
        if (!std::ranges::is_sorted(images, {}, number))
            std::ranges::stable_sort(images, {}, number);
    }

    // Requires sorted images; empty when there is none of that number.
    ByteRange Image(std::uint16_t number) const
    {
        const auto found = std::ranges::lower_bound(images, number, {}, &std::pair<std::uint16_t, ByteRange>::first);
        return found != images.end() && found->first == number ? found->second : ByteRange();
    }
};

} // namespace ob
