// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers as texts and back, and the functions that have no result for some numbers.
#include "orchard/library/modNumbers.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace ob::basic {

namespace {

constexpr double wholeLimit = 1e15;
constexpr double smallLimit = 0.0001;
constexpr std::size_t npos = std::string_view::npos;

constexpr std::array<double, 16> powersOfTen = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

int HexDigit(char c)
{
    if (IsDigit(c))
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

char* WithoutTrailingZeros(char* begin, char* end)
{
    if (std::find(begin, end, '.') == end)
        return end;
    while (end[-1] == '0')
        --end;
    return end[-1] == '.' ? end - 1 : end;
}

// Places after the point for the digits that are shown. The doubles nearest to 0.1, 0.01 and 0.001 lie above these, so
// that the comparisons judge the exact value.
int Places(double size)
{
    if (size < 1)
        return size >= 0.1 ? 8 : size >= 0.01 ? 9 : size >= 0.001 ? 10 : 11;
    int places = 8;
    for (std::size_t digits = 1; places > 0 && size >= powersOfTen[digits]; ++digits)
        --places;
    return places;
}

std::string_view ScientificText(double value, NumberBuffer& buffer)
{
    char* const begin = buffer.data();
    char* const end = std::to_chars(begin, begin + buffer.size(), value, std::chars_format::scientific, 8).ptr;
    char* const mark = std::find(begin, end, 'e');
    if (mark == end)
        return {begin, static_cast<std::size_t>(end - begin)};
    char* out = WithoutTrailingZeros(begin, mark);
    int exponent = 0;
    std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, exponent);
    *out++ = 'e';
    out = std::to_chars(out, begin + buffer.size(), exponent).ptr;
    return {begin, static_cast<std::size_t>(out - begin)};
}

// A value with a fraction between 1 and 10^9 has at most 52 bits after the point, so that three digits at a time come
// out exactly in 64 bits; this is several times as fast as the general conversion.
char* FractionText(char* out, double size, int places)
{
    constexpr std::uint64_t one = std::uint64_t{1} << 52;
    constexpr std::array<std::uint32_t, 9> scales = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};
    auto whole = static_cast<std::uint64_t>(size);
    auto rest = static_cast<std::uint64_t>((size - static_cast<double>(whole)) * static_cast<double>(one));
    std::uint64_t digits = 0;
    for (int left = places; left > 0; left -= 3) {
        const std::uint64_t scale = scales[static_cast<std::size_t>(std::min(left, 3))];
        digits = digits * scale + (rest * scale >> 52);
        rest = rest * scale & (one - 1);
    }
    const std::uint64_t last = places > 0 ? digits : whole;
    if (rest > one / 2 || (rest == one / 2 && (last & 1) != 0))
        ++digits;
    const std::uint64_t scale = scales[static_cast<std::size_t>(places)];
    whole += digits / scale;
    digits %= scale;
    out = std::to_chars(out, out + 20, whole).ptr;
    if (digits == 0)
        return out;
    *out = '.';
    for (int place = places; place > 0; --place, digits /= 10)
        out[place] = static_cast<char>('0' + digits % 10);
    return WithoutTrailingZeros(out, out + 1 + places);
}

std::string_view FixedText(double value, double size, NumberBuffer& buffer)
{
    char* const begin = buffer.data();
    char* end = begin;
    if (size >= 1) {
        if (value < 0)
            *end++ = '-';
        end = FractionText(end, size, Places(size));
    } else {
        end = std::to_chars(begin, begin + buffer.size(), value, std::chars_format::fixed, Places(size)).ptr;
        end = WithoutTrailingZeros(begin, end);
    }
    return {begin, static_cast<std::size_t>(end - begin)};
}

bool IsExponentMark(char c)
{
    const char lower = static_cast<char>(c | 0x20);
    return lower == 'e' || lower == 'd';
}

std::size_t SkipDigits(std::string_view text, std::size_t at)
{
    while (at < text.size() && IsDigit(text[at]))
        ++at;
    return at;
}

// The place after an exponent that begins at a place in a text; npos for none.
std::size_t ExponentEnd(std::string_view text, std::size_t at)
{
    if (at >= text.size() || !IsExponentMark(text[at]))
        return npos;
    ++at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-'))
        ++at;
    const std::size_t end = SkipDigits(text, at);
    return end == at ? npos : end;
}

double LargestOrNothing(std::string_view digits, std::string_view exponent)
{
    const std::size_t first = digits.find_first_not_of("0.");
    if (first == npos)
        return 0;
    const std::size_t point = std::min(digits.find('.'), digits.size());
    std::int64_t power = 0;
    if (!exponent.empty()) {
        const std::size_t sign = exponent[0] == '+' ? 1 : 0;
        const auto result = std::from_chars(exponent.data() + sign, exponent.data() + exponent.size(), power);
        if (result.ec == std::errc::result_out_of_range)
            power = exponent[0] == '-' ? INT64_MIN / 2 : INT64_MAX / 2;
    }
    const std::int64_t place = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
    return place > -power ? std::numeric_limits<double>::max() : 0;
}

double Converted(std::string_view number, std::size_t mantissa)
{
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc() && std::isfinite(value))
        return value;
    return LargestOrNothing(number.substr(0, mantissa),
                            number.size() > mantissa ? number.substr(mantissa + 1) : std::string_view());
}

// A number without a sign that begins with a digit or a point.
double Decimal(std::string_view text)
{
    constexpr std::size_t exactDigits = 15;
    std::size_t end = SkipDigits(text, 0);
    if (end <= exactDigits && (end == text.size() || (text[end] != '.' && !IsExponentMark(text[end])))) {
        std::int64_t value = 0;
        std::from_chars(text.data(), text.data() + end, value);
        return static_cast<double>(value);
    }
    if (end < text.size() && text[end] == '.') {
        const std::size_t fraction = SkipDigits(text, end + 1);
        if (fraction == 1)
            return 0;
        end = fraction;
    }
    const std::size_t mantissa = end;
    const std::size_t exponentEnd = ExponentEnd(text, end);
    if (exponentEnd == npos)
        return Converted(text.substr(0, mantissa), mantissa);
    if ((text[mantissa] | 0x20) == 'e')
        return Converted(text.substr(0, exponentEnd), mantissa);
    std::string copy(text.substr(0, exponentEnd));
    copy[mantissa] = 'e';
    return Converted(copy, mantissa);
}

std::size_t HexPrefix(std::string_view text)
{
    return text.size() > 1 && text[0] == '&' && (text[1] | 0x20) == 'h' ? 2 : 0;
}

double Hexadecimal(std::string_view text)
{
    const auto* end = std::find_if(text.begin(), text.end(), [](char c) { return HexDigit(c) < 0; });
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + (end - text.begin()), value, std::chars_format::hex);
    const bool isTooLarge = result.ec == std::errc::result_out_of_range || !std::isfinite(value);
    return isTooLarge ? std::numeric_limits<double>::max() : value;
}

std::uint64_t HexBits(double value)
{
    constexpr double beyondSigned = 9223372036854775808.0;
    if (value >= beyondSigned)
        return static_cast<std::uint64_t>(value);
    const std::int64_t whole = WholePart(value);
    const bool isShort = whole < 0 && whole >= INT32_MIN;
    return isShort ? static_cast<std::uint32_t>(whole) : static_cast<std::uint64_t>(whole);
}

std::string_view AfterSpaces(std::string_view text)
{
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

} // namespace

std::string_view NumberText(double value, NumberBuffer& buffer)
{
    const double size = std::fabs(value);
    if (size < wholeLimit && size == std::trunc(size)) {
        char* const end =
            std::to_chars(buffer.data(), buffer.data() + buffer.size(), static_cast<std::int64_t>(value)).ptr;
        return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
    }
    return size >= smallLimit && size < wholeLimit ? FixedText(value, size, buffer) : ScientificText(value, buffer);
}

std::string NumberText(double value)
{
    NumberBuffer buffer;
    return std::string(NumberText(value, buffer));
}

double Val(std::string_view text)
{
    text = AfterSpaces(text);
    double sign = 1;
    if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
        sign = text[0] == '-' ? -1 : 1;
        text.remove_prefix(1);
    }
    if (const std::size_t prefix = HexPrefix(text))
        return sign * Hexadecimal(text.substr(prefix));
    if (text.empty() || (!IsDigit(text[0]) && text[0] != '.'))
        return 0;
    // A zero has no sign.
    return sign * Decimal(text) + 0.0;
}

double HexDec(std::string_view text)
{
    text = AfterSpaces(text);
    return Hexadecimal(text.substr(HexPrefix(text)));
}

std::string DecHex(double value)
{
    constexpr double largestExact = 1152921504606846976.0;
    int zeros = 0;
    // 53 bits stay whole numbers while the value is above 2^60.
    for (; value >= largestExact * 16 && zeros < 256; ++zeros)
        value /= 16;
    char buffer[16];
    char* const end = std::to_chars(buffer, buffer + sizeof buffer, HexBits(value), 16).ptr;
    std::transform(buffer, end, buffer, [](char c) { return c >= 'a' ? static_cast<char>(c - 32) : c; });
    return std::string(buffer, end).append(static_cast<std::size_t>(zeros), '0');
}

double Power(double base, double exponent)
{
    if (base == 0 && exponent < 0)
        Fail(ErrorNumber::DivisionByZero);
    const double result = std::pow(base, exponent);
    if (std::isnan(result))
        Fail(ErrorNumber::OutOfRange, "a power without a real value");
    return Checked(result);
}

double Sqr(double value)
{
    if (value < 0)
        Fail(ErrorNumber::OutOfRange, "square root of a negative number");
    return std::sqrt(value);
}

double Log(double value)
{
    if (value <= 0)
        Fail(ErrorNumber::OutOfRange, "logarithm of a number that is not positive");
    return std::log(value);
}

double Asn(double value)
{
    if (std::fabs(value) > 1)
        Fail(ErrorNumber::OutOfRange, "arc-sine of a number beyond 1");
    return std::asin(value);
}

double Acs(double value)
{
    if (std::fabs(value) > 1)
        Fail(ErrorNumber::OutOfRange, "arc-cosine of a number beyond 1");
    return std::acos(value);
}

} // namespace ob::basic
