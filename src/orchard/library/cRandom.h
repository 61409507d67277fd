// SPDX-License-Identifier: GPL-3.0-or-later
// The random numbers of rnd: a counter whose bits are mixed, fast and without a pattern that a game would show.
#pragma once

#include <bit>
#include <cstdint>

namespace ob::basic {

class cRandom {
public:
    explicit cRandom(std::uint64_t seed) { Start(seed); }

    // randomize: one seed gives one sequence.
    void Seed(double seed) { Start(std::bit_cast<std::uint64_t>(seed + 0.0)); }

    // From 0 up to 1, without 1, in steps of 2^-53.
    double Next()
    {
        constexpr double step = 1.0 / 9007199254740992.0;
        return static_cast<double>(Bits() >> 11) * step;
    }

private:
    void Start(std::uint64_t seed)
    {
        state = seed;
        Bits();
    }

    // A counter in large odd steps, mixed until each bit depends on each.
    std::uint64_t Bits()
    {
        state += 0x9E3779B97F4A7C15u;
        std::uint64_t mixed = state;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
        return mixed ^ (mixed >> 31);
    }

    std::uint64_t state = 0;
};

} // namespace ob::basic
