// SPDX-License-Identifier: GPL-3.0-or-later
// using: a number by a template.
#include <algorithm>
#include <charconv>

#include "orchard/library/modNumbers.h"

namespace ob::basic {

namespace {

// No double has more digits than these on either side of its point.
constexpr std::size_t mostWhole = 310;
constexpr std::size_t mostPlaces = 1074;

struct Template {
    bool hasPoint = false;
    std::size_t places = 0;
};

Template ReadTemplate(std::string_view pattern)
{
    Template found;
    for (const char c : pattern) {
        if (c == '.' && !found.hasPoint)
            found.hasPoint = true;
        else if (c != '#')
            Fail(ErrorNumber::WrongTemplate, pattern);
        else if (found.hasPoint)
            ++found.places;
    }
    return found;
}

// Adds one to the last digit of a decimal text.
void CountUp(std::string& digits)
{
    for (std::size_t at = digits.size(); at-- > 0;) {
        if (digits[at] == '.')
            continue;
        if (digits[at] != '9') {
            ++digits[at];
            return;
        }
        digits[at] = '0';
    }
    digits.insert(digits.begin(), '1');
}

std::string ExactText(double size, std::size_t places)
{
    char buffer[mostWhole + mostPlaces + 3];
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, size, std::chars_format::fixed, static_cast<int>(places));
    return {buffer, result.ptr};
}

// Digits with a number of places after the point. The library rounds a tie to even: a tie has no more than one binary
// place beyond the decimal ones, so it is found without writing out the value.
std::string RoundedText(double size, std::size_t places)
{
    const std::size_t exact = std::min(places, mostPlaces);
    const double scaled = std::ldexp(size, static_cast<int>(exact) + 1);
    const bool maybeTie = scaled == std::trunc(scaled);
    std::string digits = ExactText(size, maybeTie ? exact + 1 : exact);
    if (maybeTie) {
        const bool isUp = digits.back() >= '5';
        digits.resize(digits.size() - (exact == 0 ? 2 : 1));
        if (isUp)
            CountUp(digits);
    }
    return digits.append(places - exact, '0');
}

} // namespace

std::string Using(std::string_view pattern, double value)
{
    const Template layout = ReadTemplate(pattern);
    std::string text = RoundedText(std::fabs(value), layout.places);
    if (value < 0 && text.find_first_not_of("0.") != std::string::npos)
        text.insert(text.begin(), '-');
    if (layout.hasPoint && layout.places == 0)
        text += '.';
    if (text.size() == pattern.size() + 1 && layout.places > 0) {
        const std::size_t zero = text[0] == '-' ? 1 : 0;
        if (text[zero] == '0' && text[zero + 1] == '.')
            text.erase(zero, 1);
    }
    if (text.size() > pattern.size())
        return text.insert(0, 1, '%');
    return text.insert(0, pattern.size() - text.size(), ' ');
}

} // namespace ob::basic
