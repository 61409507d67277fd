// SPDX-License-Identifier: GPL-3.0-or-later
// The way that a reader takes through the manual.
#pragma once

#include "shell/help/modManual.h"

#include <cstddef>
#include <vector>

namespace ob {

// A place on the way, and how far its page was scrolled when it was left, in pixels.
struct ManualStop {
    ManualPlace place;
    int scroll = 0;
};

// There is always one stop at which the reader is, once the first was visited; Back and Forward need a place to go to.
class cManualHistory {
public:
    // Goes on to a new stop; what lay ahead is forgotten.
    void Visit(const ManualPlace& place)
    {
        if (!stops.empty())
            stops.resize(current + 1);
        stops.push_back({place, 0});
        current = stops.size() - 1;
    }

    bool IsEmpty() const { return stops.empty(); }
    bool CanGoBack() const { return current > 0; }
    bool CanGoForward() const { return current + 1 < stops.size(); }

    ManualStop& Here() { return stops[current]; }
    const ManualStop& Here() const { return stops[current]; }
    const ManualStop& Back() { return stops[--current]; }
    const ManualStop& Forward() { return stops[++current]; }

private:
    std::vector<ManualStop> stops;
    std::size_t current = 0;
};

} // namespace ob
