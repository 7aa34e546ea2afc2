// The job of DateTime is the calendar: day numbers with the time of day as fraction, arithmetic, spans, format strings.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/Locale.h"

namespace plotkit {

/// Whole days since 1899-12-30 and the time of day. The whole part, cut towards zero, counts the days; the absolute
/// value of the fraction is the time of day, also before 1899-12-30: 1.25 is 1899-12-31 06:00, -1.25 is 1899-12-29
/// 06:00, and both 0.25 and -0.25 are 1899-12-30 06:00. So below zero a larger value may be an earlier moment of the
/// same day.
using TDateTime = double;

/// Proleptic Gregorian calendar, years 1 to 9999. Month and Day from 1.
struct TDateTimeParts
{
    int Year = 1899;
    int Month = 12;
    int Day = 30;
    int Hour = 0;
    int Minute = 0;
    int Second = 0;
    int MilliSecond = 0;

    friend bool operator==(const TDateTimeParts&, const TDateTimeParts&) = default;
};

/// Whole milliseconds since 1899-12-30 00:00, a linear time line; rounded to nearest. NaN is 0, and beyond 10^11 days
/// the result stays at their end.
std::int64_t MilliSecondsOf(TDateTime value);
TDateTime FromMilliSeconds(std::int64_t milliSeconds);

/// Rounded to the millisecond. Before year 1 and behind year 9999 the result is the first or last millisecond of these.
TDateTimeParts DecodeDateTime(TDateTime value);
/// EConvertError "Invalid argument to date encode" when there is no such date or time.
TDateTime EncodeDateTime(const TDateTimeParts& parts);
std::optional<TDateTime> TryEncodeDateTime(const TDateTimeParts& parts);

bool IsLeapYear(int year);
/// `month` from 1 to 12.
int DaysInMonth(int year, int month);

/// The same day and time of another month or year; a day that does not exist becomes the month's last. The result stays
/// within the years 1 to 9999: at their end a step no longer moves the value.
TDateTime IncMonth(TDateTime value, int months);
TDateTime IncYear(TDateTime value, int years);
/// Steps on the linear time line, exact to the millisecond.
TDateTime IncDay(TDateTime value, std::int64_t days);
TDateTime IncHour(TDateTime value, std::int64_t hours);
TDateTime IncMinute(TDateTime value, std::int64_t minutes);
TDateTime IncSecond(TDateTime value, std::int64_t seconds);
TDateTime IncMilliSecond(TDateTime value, std::int64_t milliSeconds);

/// Length of a span on the linear time line in days, and in months of 30.4375 days; not negative.
double DaySpan(TDateTime a, TDateTime b);
double MonthSpan(TDateTime a, TDateTime b);

/// Format codes, letter case ignored: y yy yyyy, m mm mmm mmmm (minutes directly behind hours), d dd ddd dddd, h hh,
/// n nn, s ss, z zzz, am/pm (makes the hours run from 1 to 12), "/" and ":" (the locale's separators); text in single
/// or double quotes and everything else stands as it is.
std::string FormatDateTime(std::string_view format, TDateTime value, const TLocaleFormats& locale);

}  // namespace plotkit
