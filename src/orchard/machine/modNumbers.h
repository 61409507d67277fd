// SPDX-License-Identifier: GPL-3.0-or-later
// What operators do with numbers beyond plain arithmetic.
#pragma once

#include <cmath>
#include <cstdint>

namespace ob::basic {

// The 64 bits of a whole number in two's complement; a fraction is cut, and what is beyond wraps round.
inline std::uint64_t ToBits(double number)
{
    constexpr double limit = 0x1p63;
    if (number >= -limit && number < limit) [[likely]]
        return static_cast<std::uint64_t>(static_cast<std::int64_t>(number));
    const double within = std::fmod(std::trunc(number), 2 * limit);
    return within < 0 ? ~static_cast<std::uint64_t>(-within) + 1 : static_cast<std::uint64_t>(within);
}

inline double FromBits(std::uint64_t bits)
{
    return static_cast<double>(static_cast<std::int64_t>(bits));
}

// Truth turned round for 0 and 1; the bits of any other number.
inline double NotOf(double number)
{
    if (number == 0)
        return 1;
    return number == 1 ? 0 : FromBits(~ToBits(number));
}

// The remainder of the division cut toward zero, with the dividend's sign; the divisor is not 0.
inline double Remainder(double dividend, double divisor)
{
    constexpr double exact = 0x1p53;
    if (std::abs(dividend) < exact && std::abs(divisor) < exact) {
        const auto left = static_cast<std::int64_t>(dividend);
        const auto right = static_cast<std::int64_t>(divisor);
        if (static_cast<double>(left) == dividend && static_cast<double>(right) == divisor)
            return static_cast<double>(left % right);
    }
    return std::fmod(dividend, divisor);
}

} // namespace ob::basic
