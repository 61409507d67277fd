// SPDX-License-Identifier: GPL-3.0-or-later
// The served runtime's habits with numbers and texts: conversions, rounding, trimming, case.
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

// The number at the start of a text; 0 when there is none. Blanks, tabs and line feeds count nowhere. Sign, decimal
// digits, one point and an exponent (e or d, either case) are read up to the first other character; an exponent mark
// without digits ends the number. "&H1F" and "&O17" are read as whole numbers of 16 bits, or of 32 when they do not
// fit, the highest bit being the sign ("&HFFFF" is -1); a "&" behind them makes 32 bits of it ("&HFFFF&" is 65535).
// Raises Overflow for a number beyond a double, or beyond 32 bits behind a prefix.
double Val(QStringView text);
double Val(QByteArrayView text);

// A number as text with a leading blank in the sign's place when it is not negative: " 5", "-5", " .5". At most 15
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

// A number as it joins a text: as Str, but without the leading blank and with a zero before the point ("0.5").
QString NumberText(double number);
QString NumberText(float number);
template <std::integral Whole>
QString NumberText(Whole number)
{
    return QString::number(number);
}

// The nearest whole number, halves to the even neighbour: 0.5 -> 0, 1.5 -> 2, -2.5 -> -2. Raises Overflow for what
// is beyond the result's type, and for what is no number.
std::int64_t RoundHalfEven(double number);
std::int16_t ToInt16(double number);
std::int32_t ToInt32(double number);

// The number that a whole text is, blanks and tabs around it aside; prefixes and exponents as for Val. Nothing when
// the text is anything else, is empty, or is a number beyond a double.
std::optional<double> ParseNumber(QStringView text);
// The same for a stored setting: a text that is no number counts as 0. "12.5" gives 12.5, "12x" gives 0.
double NumberOf(QStringView text);

// "True" and "False" in any case, and any number: 0 is false, others are true. Nothing for other texts.
std::optional<bool> BooleanOf(QStringView text);
// "True" or "False".
QString BooleanText(bool value);

// The text without the blanks (character 32 only; tabs and line ends stay) at both ends, the left or the right one.
// The byte versions give a part of their argument and own nothing.
QString TrimBlanks(QStringView text);
QString LTrimBlanks(QStringView text);
QString RTrimBlanks(QStringView text);
QByteArrayView TrimBlanks(QByteArrayView text);
QByteArrayView LTrimBlanks(QByteArrayView text);
QByteArrayView RTrimBlanks(QByteArrayView text);

// Case folding of the letters A to Z alone; every other character is its own.
constexpr char LowerAscii(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}
constexpr char16_t LowerAscii(char16_t letter)
{
    return letter >= u'A' && letter <= u'Z' ? static_cast<char16_t>(letter + (u'a' - u'A')) : letter;
}
QString LowerAscii(QStringView text);
QByteArray LowerAscii(QByteArrayView text);
bool EqualsIgnoreCase(QStringView left, QStringView right);
bool EqualsIgnoreCase(QStringView left, QLatin1String right);
bool EqualsIgnoreCase(QByteArrayView left, QByteArrayView right);

} // namespace ob
