// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers from texts and texts from numbers, as the language's runtime does it. Nothing here depends on the user's
// locale.
#include "platform/language/modRuntime.h"

#include "platform/language/cRuntimeError.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

enum class Range { Within, Beyond };

// A number read from the start of a text, and the number of characters read.
struct ReadNumber {
    double value = 0;
    std::size_t length = 0;
    Range range = Range::Within;
};

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

// The digits of one base after a prefix; the digits start at the position.
ReadNumber ReadPrefixed(std::string_view text, std::size_t position, int base)
{
    const char* first = text.data() + position;
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(first, text.data() + text.size(), number, base);
    ReadNumber result;
    if (end == first)
        return result;
    result.length = static_cast<std::size_t>(end - text.data());
    if (error != std::errc() || number > 0xFFFFFFFFU) {
        result.range = Range::Beyond;
        return result;
    }
    const bool isMarkedLong = result.length < text.size() && text[result.length] == '&';
    if (isMarkedLong)
        ++result.length;
    if (number <= 0xFFFF && !isMarkedLong)
        result.value = static_cast<std::int16_t>(static_cast<std::uint16_t>(number));
    else
        result.value = static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
    return result;
}

// Whether a number outside the range of a double is too large, not too small. The text is a mantissa and an exponent
// mark with its digits, if any, at exponentAt.
bool IsTooLarge(std::string_view text, std::size_t exponentAt)
{
    const std::string_view mantissa = text.substr(0, exponentAt);
    const std::size_t firstDigit = mantissa.find_first_of("123456789");
    if (firstDigit == std::string_view::npos)
        return false;
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const auto magnitude = static_cast<double>(point) - static_cast<double>(firstDigit);
    double exponent = 0;
    for (std::size_t index = exponentAt; index < text.size(); ++index) {
        if (IsDigit(text[index]))
            exponent = exponent * 10 + (text[index] - '0');
    }
    if (text.find('-', exponentAt) != std::string_view::npos)
        exponent = -exponent;
    return magnitude + exponent > 0;
}

// The end of the exponent at the position; the position itself when there is none.
std::size_t EndOfExponent(std::string_view text, std::size_t position)
{
    if (position == text.size() || (LowerAscii(text[position]) != 'e' && LowerAscii(text[position]) != 'd'))
        return position;
    std::size_t end = position + 1;
    if (end < text.size() && (text[end] == '+' || text[end] == '-'))
        ++end;
    const std::size_t firstDigit = end;
    while (end < text.size() && IsDigit(text[end]))
        ++end;
    return end == firstDigit ? position : end;
}

ReadNumber ReadDecimal(std::string_view text)
{
    std::size_t position = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
    const std::size_t mantissaAt = position;
    std::size_t digitCount = 0;
    bool hasPoint = false;
    for (; position < text.size(); ++position) {
        if (IsDigit(text[position]))
            ++digitCount;
        else if (text[position] == '.' && !hasPoint)
            hasPoint = true;
        else
            break;
    }
    ReadNumber result;
    if (digitCount == 0)
        return result;
    const std::size_t exponentAt = position - mantissaAt;
    result.length = EndOfExponent(text, position);
    std::string number(text.substr(mantissaAt, result.length - mantissaAt));
    if (exponentAt < number.size())
        number[exponentAt] = 'e';
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), result.value);
    if (error == std::errc::result_out_of_range) {
        result.value = 0;
        result.range = IsTooLarge(number, exponentAt) ? Range::Beyond : Range::Within;
    }
    if (text[0] == '-')
        result.value = -result.value;
    return result;
}

ReadNumber ReadAny(std::string_view text)
{
    if (text.size() >= 2 && text[0] == '&') {
        if (LowerAscii(text[1]) == 'h')
            return ReadPrefixed(text, 2, 16);
        if (LowerAscii(text[1]) == 'o')
            return ReadPrefixed(text, 2, 8);
        return {};
    }
    return ReadDecimal(text);
}

double ValOfAscii(std::string text)
{
    std::erase_if(text, [](char character) { return character == ' ' || character == '\t' || character == '\n'; });
    const ReadNumber read = ReadAny(text);
    if (read.range == Range::Beyond)
        throw RuntimeErrorOf(ErrorNumber::Overflow);
    return read.value;
}

// The text with every non-ASCII character replaced by one that cannot be part of a number.
std::string AsciiOf(QStringView text)
{
    std::string ascii;
    ascii.reserve(static_cast<std::size_t>(text.size()));
    for (const QChar character : text)
        ascii += character.unicode() < 0x80 ? static_cast<char>(character.unicode()) : '?';
    return ascii;
}

// Significant digits without trailing zeros; the first one counts for 10 to the exponent.
struct Digits {
    std::string digits;
    int exponent;
};

template <class Number>
Digits DigitsOf(Number number, int precision)
{
    char text[40];
    const auto [end, error] =
        std::to_chars(text, text + sizeof text, number, std::chars_format::scientific, precision - 1);
    const std::string_view written(text, static_cast<std::size_t>(end - text));
    const std::size_t mark = written.find('e');
    Digits result{std::string(written.substr(0, mark)), 0};
    std::erase(result.digits, '.');
    result.digits.erase(result.digits.find_last_not_of('0') + 1);
    const std::size_t exponentAt = mark + (written[mark + 1] == '+' ? 2 : 1);
    std::from_chars(written.data() + exponentAt, written.data() + written.size(), result.exponent);
    return result;
}

// A positive number in fixed form where that takes no more digits than the precision, otherwise with an exponent.
std::string FormOf(const Digits& number, int precision)
{
    const std::string& digits = number.digits;
    const int count = static_cast<int>(digits.size());
    if (number.exponent >= 0 && number.exponent < precision) {
        if (count <= number.exponent + 1)
            return digits + std::string(static_cast<std::size_t>(number.exponent + 1 - count), '0');
        const auto whole = static_cast<std::size_t>(number.exponent + 1);
        return digits.substr(0, whole) + '.' + digits.substr(whole);
    }
    if (number.exponent < 0 && count - number.exponent - 1 <= precision)
        return '.' + std::string(static_cast<std::size_t>(-number.exponent - 1), '0') + digits;
    const std::string mantissa = count == 1 ? digits : digits.substr(0, 1) + '.' + digits.substr(1);
    const std::string power = std::to_string(std::abs(number.exponent));
    return mantissa + (number.exponent < 0 ? "E-" : "E+") + (power.size() < 2 ? "0" : "") + power;
}

enum class Form { Spaced, Joined };

template <class Number>
QString TextOf(Number number, int precision, Form form)
{
    std::string text;
    bool isNegative = number < 0;
    if (std::isnan(number)) {
        text = "1.#IND";
        isNegative = true;
    } else if (std::isinf(number)) {
        text = "1.#INF";
    } else if (number == 0) {
        text = "0";
    } else {
        text = FormOf(DigitsOf(std::abs(number), precision), precision);
        if (form == Form::Joined && text[0] == '.')
            text.insert(0, "0");
    }
    if (isNegative)
        text.insert(0, "-");
    else if (form == Form::Spaced)
        text.insert(0, " ");
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

constexpr int doubleDigits = 15;
constexpr int floatDigits = 7;

// The rounded value as a double; infinities and NaN stay what they are.
double NearestWhole(double number)
{
    const double below = std::floor(number);
    const double rest = number - below;
    if (rest != 0.5)
        return rest < 0.5 ? below : below + 1;
    return std::fmod(below, 2) == 0 ? below : below + 1;
}

template <class Whole>
Whole RoundedWithin(double number)
{
    const double whole = NearestWhole(number);
    // The bound above the largest value is a power of two and so exact; "not within" also catches NaN.
    const double bound = std::ldexp(1.0, std::numeric_limits<Whole>::digits);
    if (!(whole >= -bound && whole < bound))
        throw RuntimeErrorOf(ErrorNumber::Overflow);
    return static_cast<Whole>(whole);
}

bool IsSpace(char character)
{
    return character == ' ';
}

bool IsSpace(QChar character)
{
    return character == u' ';
}

template <class View>
View WithoutLeading(View text)
{
    qsizetype count = 0;
    while (count < text.size() && IsSpace(text[count]))
        ++count;
    return text.sliced(count);
}

template <class View>
View WithoutTrailing(View text)
{
    qsizetype count = text.size();
    while (count > 0 && IsSpace(text[count - 1]))
        --count;
    return text.first(count);
}

} // namespace

double Val(QStringView text)
{
    return ValOfAscii(AsciiOf(text));
}

double Val(QByteArrayView text)
{
    return ValOfAscii(std::string(text.data(), static_cast<std::size_t>(text.size())));
}

QString Str(double number)
{
    return TextOf(number, doubleDigits, Form::Spaced);
}

QString Str(float number)
{
    return TextOf(number, floatDigits, Form::Spaced);
}

QString NumberText(double number)
{
    return TextOf(number, doubleDigits, Form::Joined);
}

QString NumberText(float number)
{
    return TextOf(number, floatDigits, Form::Joined);
}

std::int64_t RoundHalfEven(double number)
{
    return RoundedWithin<std::int64_t>(number);
}

std::int16_t ToInt16(double number)
{
    return RoundedWithin<std::int16_t>(number);
}

std::int32_t ToInt32(double number)
{
    return RoundedWithin<std::int32_t>(number);
}

std::optional<double> ParseNumber(QStringView text)
{
    const std::string ascii = AsciiOf(text);
    const std::size_t first = ascii.find_first_not_of(" \t");
    if (first == std::string::npos)
        return std::nullopt;
    const std::string_view number(ascii.data() + first, ascii.find_last_not_of(" \t") + 1 - first);
    const ReadNumber read = ReadAny(number);
    if (read.range == Range::Beyond || read.length != number.size())
        return std::nullopt;
    return read.value;
}

double NumberOf(QStringView text)
{
    return ParseNumber(text).value_or(0);
}

std::optional<bool> BooleanOf(QStringView text)
{
    if (EqualsIgnoreCase(text, QLatin1String("True")))
        return true;
    if (EqualsIgnoreCase(text, QLatin1String("False")))
        return false;
    const std::optional<double> number = ParseNumber(text);
    if (!number)
        return std::nullopt;
    return *number != 0;
}

QString BooleanText(bool value)
{
    return value ? u"True"_s : u"False"_s;
}

QString TrimSpaces(QStringView text)
{
    return WithoutLeading(WithoutTrailing(text)).toString();
}

QString LTrimSpaces(QStringView text)
{
    return WithoutLeading(text).toString();
}

QString RTrimSpaces(QStringView text)
{
    return WithoutTrailing(text).toString();
}

QByteArrayView TrimSpaces(QByteArrayView text)
{
    return WithoutLeading(WithoutTrailing(text));
}

QByteArrayView LTrimSpaces(QByteArrayView text)
{
    return WithoutLeading(text);
}

QByteArrayView RTrimSpaces(QByteArrayView text)
{
    return WithoutTrailing(text);
}

QString LowerAscii(QStringView text)
{
    QString result = text.toString();
    for (QChar& character : result)
        character = QChar(LowerAscii(character.unicode()));
    return result;
}

QByteArray LowerAscii(QByteArrayView text)
{
    QByteArray result = text.toByteArray();
    for (char& character : result)
        character = LowerAscii(character);
    return result;
}

bool EqualsIgnoreCase(QStringView left, QStringView right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](QChar one, QChar other) { return LowerAscii(one.unicode()) == LowerAscii(other.unicode()); });
}

bool EqualsIgnoreCase(QStringView left, QLatin1String right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](QChar one, char other) {
        return LowerAscii(one.unicode()) == LowerAscii(char16_t{static_cast<unsigned char>(other)});
    });
}

bool EqualsIgnoreCase(QByteArrayView left, QByteArrayView right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) { return LowerAscii(one) == LowerAscii(other); });
}

} // namespace ob
