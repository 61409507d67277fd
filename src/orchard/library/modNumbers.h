// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers: as print shows them, as val reads them, as using lays them out, and in hexadecimal.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "orchard/library/cProgramError.h"

namespace ob::basic {

// Room for any number as print shows it.
using NumberBuffer = std::array<char, 48>;

// A number as print and str$ show it, correctly rounded from the exact value. The text is in the buffer.
std::string_view NumberText(double value, NumberBuffer& buffer);
std::string NumberText(double value);

// The longest number at the front of a text after spaces, with a sign, an exponent after e or d, or hexadecimal after
// &H; 0 for none. A number that is too large is the largest there is.
double Val(std::string_view text);

// The longest hexadecimal number at the front of a text after spaces, with or without &H; 0 for none.
double HexDec(std::string_view text);

// The whole part in capitals; a negative one in 32 bits where it fits, else in 64 bits.
std::string DecHex(double value);

// A number laid out by a template of # and at most one point, rounded half away from zero on the exact value; after
// a % where it does not fit. Any other character in the template is the error WrongTemplate.
std::string Using(std::string_view pattern, double value);

// The number cut toward zero; the nearest one that 64 bits hold.
inline std::int64_t WholePart(double value)
{
    constexpr double limit = 9223372036854775808.0;
    if (value >= -limit && value < limit)
        return static_cast<std::int64_t>(value);
    return value > 0 ? INT64_MAX : value < 0 ? INT64_MIN : 0;
}

// A result that no number can hold is an error: there are no infinite values.
inline double Checked(double result)
{
    if (!std::isfinite(result)) [[unlikely]]
        Fail(ErrorNumber::Overflow);
    return result;
}

// The functions that have no result for some numbers: OutOfRange, DivisionByZero or Overflow for these.
double Power(double base, double exponent);
double Sqr(double value);
double Log(double value);
double Asn(double value);
double Acs(double value);

} // namespace ob::basic
