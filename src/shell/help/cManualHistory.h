// SPDX-License-Identifier: GPL-3.0-or-later
// The reader's path through the manual.
#pragma once

#include "shell/help/modManual.h"

#include <cstddef>
#include <vector>

namespace ob {

// A place on the path, and the scroll position of its page when it was left, in pixels.
struct ManualStop {
    ManualPlace place;
    int scroll = 0;
};

// From the first visit on there is always a current stop; Back and Forward need a place to go to.
class cManualHistory {
public:
    // Goes to a new stop; the stops ahead are dropped.
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
