// SPDX-License-Identifier: GPL-3.0-or-later
// Dates and times of day: date$ and time$ over a point in local time that the caller gives.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace ob::basic {

// A point in local time as a clock on the wall shows it.
struct LocalTime {
    int year = 1901;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;
};

// What date$ and time$ give: which of the two depends on the argument.
using NumberOrText = std::variant<double, std::string>;

// Whether date$ and time$ with this text give a number. Known formats of texts do not; all else is a count or a date.
bool GivesNumberAsDate(std::string_view argument);
bool GivesNumberAsTime(std::string_view argument);

// date$() is Date("", now). Formats are read in any case. NotADate for a text that is neither a format nor a date.
NumberOrText Date(std::string_view argument, const LocalTime& now);

// Days from 1 January 1901 as mm/dd/yyyy; OutOfRange outside the years 1 to 9999.
std::string DateOfDays(double days);

// Days from 1 January 1901 to a date of the calendar.
std::int64_t DaysOfDate(int year, int month, int day);

// time$() is Time("", now). OutOfRange for an unknown format.
NumberOrText Time(std::string_view argument, const LocalTime& now);

// mm/dd/yyyy and hh:mm:ss.
std::string DateText(const LocalTime& time);
std::string TimeText(const LocalTime& time);

} // namespace ob::basic
