// SPDX-License-Identifier: GPL-3.0-or-later
// The calendar and the formats of dates and times.
#include "orchard/library/modDates.h"

#include <array>
#include <optional>

#include "orchard/library/modNumbers.h"
#include "orchard/library/modTexts.h"

namespace ob::basic {

namespace {

constexpr int firstYear = 1901;
constexpr int lastYear = 9999;
constexpr std::array<std::string_view, 12> monthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

struct Day {
    int year = 0;
    int month = 0;
    int day = 0;
};

bool Is(std::string_view argument, std::string_view format)
{
    return CompareIgnoringCase(argument, format) == 0;
}

bool IsLeap(int year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int DaysOfMonth(int year, int month)
{
    constexpr std::array<int, 12> days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeap(year) ? 29 : days[static_cast<std::size_t>(month - 1)];
}

// Days from 1 January of the year 1 to that of another year.
constexpr std::int64_t DaysBeforeYear(int year)
{
    const std::int64_t before = year - 1;
    return before * 365 + before / 4 - before / 100 + before / 400;
}

Day DayOf(std::int64_t days)
{
    const std::int64_t sinceYearOne = days + DaysBeforeYear(firstYear);
    Day found;
    found.year = static_cast<int>(sinceYearOne * 400 / 146097) + 1;
    while (DaysBeforeYear(found.year) > sinceYearOne)
        --found.year;
    while (DaysBeforeYear(found.year + 1) <= sinceYearOne)
        ++found.year;
    int left = static_cast<int>(sinceYearOne - DaysBeforeYear(found.year));
    found.month = 1;
    while (left >= DaysOfMonth(found.year, found.month))
        left -= DaysOfMonth(found.year, found.month++);
    found.day = left + 1;
    return found;
}

std::string Digits(int value, std::size_t width)
{
    std::string text = std::to_string(value);
    return text.size() < width ? text.insert(0, width - text.size(), '0') : text;
}

std::string MonthDayYear(const Day& day)
{
    return Digits(day.month, 2) + '/' + Digits(day.day, 2) + '/' + Digits(day.year, 4);
}

// One to four digits at a place; the place moves past them.
std::optional<int> ReadNumber(std::string_view text, std::size_t& at)
{
    const std::size_t start = at;
    int value = 0;
    for (; at < text.size() && at < start + 4 && text[at] >= '0' && text[at] <= '9'; ++at)
        value = value * 10 + (text[at] - '0');
    return at == start ? std::nullopt : std::optional(value);
}

// The parts of "11/21/2026" or "2026/11/21", of which the year has four digits.
std::optional<Day> ReadDate(std::string_view text)
{
    std::array<int, 3> parts = {};
    std::array<std::size_t, 3> widths = {};
    std::size_t at = 0;
    for (std::size_t part = 0; part < parts.size(); ++part) {
        if (part > 0 && (at >= text.size() || text[at++] != '/'))
            return {};
        const std::size_t start = at;
        const std::optional<int> number = ReadNumber(text, at);
        if (!number)
            return {};
        parts[part] = *number;
        widths[part] = at - start;
    }
    if (at != text.size())
        return {};
    const bool isYearFirst = widths[0] == 4;
    if (widths[isYearFirst ? 0 : 2] != 4 || widths[1] > 2 || widths[isYearFirst ? 2 : 0] > 2)
        return {};
    const Day day = isYearFirst ? Day{parts[0], parts[1], parts[2]} : Day{parts[2], parts[0], parts[1]};
    const bool isDate = day.year >= 1 && day.month >= 1 && day.month <= 12 && day.day >= 1 &&
                        day.day <= DaysOfMonth(day.year, day.month);
    return isDate ? std::optional(day) : std::nullopt;
}

std::string NamedDate(const LocalTime& now)
{
    const auto month = static_cast<std::size_t>(now.month - 1);
    return std::string(monthNames.at(month)) + ' ' + Digits(now.day, 2) + ", " + Digits(now.year, 4);
}

} // namespace

std::int64_t DaysOfDate(int year, int month, int day)
{
    std::int64_t days = DaysBeforeYear(year) - DaysBeforeYear(firstYear) + day - 1;
    for (int before = 1; before < month; ++before)
        days += DaysOfMonth(year, before);
    return days;
}

bool GivesNumberAsDate(std::string_view argument)
{
    return !argument.empty() && !Is(argument, "mm/dd/yyyy") && !Is(argument, "mm/dd/yy") && !Is(argument, "yyyy/mm/dd");
}

bool GivesNumberAsTime(std::string_view argument)
{
    return !argument.empty();
}

NumberOrText Date(std::string_view argument, const LocalTime& now)
{
    if (argument.empty())
        return NamedDate(now);
    if (Is(argument, "mm/dd/yyyy"))
        return DateText(now);
    if (Is(argument, "mm/dd/yy"))
        return Digits(now.month, 2) + '/' + Digits(now.day, 2) + '/' + Digits(now.year % 100, 2);
    if (Is(argument, "yyyy/mm/dd"))
        return Digits(now.year, 4) + '/' + Digits(now.month, 2) + '/' + Digits(now.day, 2);
    if (Is(argument, "days"))
        return static_cast<double>(DaysOfDate(now.year, now.month, now.day));
    const std::optional<Day> day = ReadDate(Trim(argument));
    if (!day)
        Fail(ErrorNumber::NotADate, argument);
    return static_cast<double>(DaysOfDate(day->year, day->month, day->day));
}

std::string DateOfDays(double days)
{
    const std::int64_t whole = WholePart(days);
    if (whole < DaysOfDate(1, 1, 1) || whole > DaysOfDate(lastYear, 12, 31))
        Fail(ErrorNumber::OutOfRange, "a date outside the years 1 to 9999");
    return MonthDayYear(DayOf(whole));
}

NumberOrText Time(std::string_view argument, const LocalTime& now)
{
    if (argument.empty())
        return TimeText(now);
    const double seconds = now.hour * 3600 + now.minute * 60 + now.second;
    if (Is(argument, "seconds"))
        return seconds;
    if (Is(argument, "milliseconds") || Is(argument, "ms"))
        return seconds * 1000 + now.millisecond;
    Fail(ErrorNumber::OutOfRange, argument);
}

std::string DateText(const LocalTime& time)
{
    return MonthDayYear({time.year, time.month, time.day});
}

std::string TimeText(const LocalTime& time)
{
    return Digits(time.hour, 2) + ':' + Digits(time.minute, 2) + ':' + Digits(time.second, 2);
}

} // namespace ob::basic
