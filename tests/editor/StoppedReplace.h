// SPDX-License-Identifier: GPL-3.0-or-later
// A watch over Replace All that ends it by itself.
#pragma once

#include "editor/modFind.h"

#include <cstdint>
#include <memory>

namespace ob {

// Stops after that many rounds, as Escape does.
class StopAfter final : public cReplaceWatch {
public:
    explicit StopAfter(std::int64_t roundLimit) : limit(roundLimit) {}
    RoundEnd Round(std::int64_t replacements) override
    {
        return replacements >= limit ? RoundEnd::Stop : RoundEnd::GoOn;
    }

private:
    std::int64_t limit;
};

inline MakeReplaceWatch StoppedAfter(std::int64_t rounds)
{
    return [rounds] { return std::make_unique<StopAfter>(rounds); };
}

} // namespace ob
