// SPDX-License-Identifier: GPL-3.0-or-later
// How the language's runtime treats numbers and texts: conversions, rounding, trimming, case.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QLatin1String>
#include <QString>
#include <QStringView>

#include <concepts>
#include <cstdint>
#include <optional>

namespace ob {

// The number at the start of a text; 0 when there is none. Spaces, tabs and line feeds are ignored everywhere. Sign,
// decimal digits, one point and an exponent (e or d, either case) are read up to the first other character; an exponent
// mark without digits ends the number. "&H1F" and "&O17" are read as whole numbers of 16 bits, or of 32 when they do
// not fit, the highest bit being the sign ("&HFFFF" is -1); a "&" after them makes it 32 bits ("&HFFFF&" is 65535).
// Raises Overflow for a number beyond a double, or beyond 32 bits after a prefix.
double Val(QStringView text);
double Val(QByteArrayView text);

// A number as text, with a leading space in place of the sign when it is not negative: " 5", "-5", " .5". At most 15
// significant digits for a double, 7 for a float; "1E+15" and "3.33333333333333E-02" when as many digits do not
// suffice to write it without an exponent.
QString Str(double number);
QString Str(float number);
template <std::integral Whole>
QString Str(Whole number)
{
    const QString digits = QString::number(number);
    return number < Whole{0} ? digits : u' ' + digits;
}

// A number as it is concatenated to a text: as Str, but without the leading space and with a zero before the point
// ("0.5").
QString NumberText(double number);
QString NumberText(float number);
template <std::integral Whole>
QString NumberText(Whole number)
{
    return QString::number(number);
}

// The nearest whole number, halves to the even neighbour: 0.5 -> 0, 1.5 -> 2, -2.5 -> -2. Raises Overflow for values
// outside the result's type, and for NaN.
std::int64_t RoundHalfEven(double number);
std::int16_t ToInt16(double number);
std::int32_t ToInt32(double number);

// The number that the whole text consists of, ignoring spaces and tabs around it; prefixes and exponents as for Val.
// Nothing when the text is anything else, is empty, or is a number beyond a double.
std::optional<double> ParseNumber(QStringView text);
// The same for a stored setting: a text that is not a number counts as 0. "12.5" gives 12.5, "12x" gives 0.
double NumberOf(QStringView text);

// "True" and "False" in any case, and any number: 0 is false, others are true. Nothing for other texts.
std::optional<bool> BooleanOf(QStringView text);
// "True" or "False".
QString BooleanText(bool value);

// The text without the spaces (character 32 only; tabs and line ends stay) at both ends, the left or the right one. The
// byte versions return a part of their argument and own nothing.
QString TrimSpaces(QStringView text);
QString LTrimSpaces(QStringView text);
QString RTrimSpaces(QStringView text);
QByteArrayView TrimSpaces(QByteArrayView text);
QByteArrayView LTrimSpaces(QByteArrayView text);
QByteArrayView RTrimSpaces(QByteArrayView text);

// Case conversion of A to Z only; every other character stays the same.
constexpr char LowerAscii(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A')) : character;
}
constexpr char16_t LowerAscii(char16_t character)
{
    return character >= u'A' && character <= u'Z' ? static_cast<char16_t>(character + (u'a' - u'A')) : character;
}
QString LowerAscii(QStringView text);
QByteArray LowerAscii(QByteArrayView text);
bool EqualsIgnoreCase(QStringView left, QStringView right);
bool EqualsIgnoreCase(QStringView left, QLatin1String right);
bool EqualsIgnoreCase(QByteArrayView left, QByteArrayView right);

} // namespace ob
