#include "host/DateTime.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>

#include "host/Errors.h"

namespace plotkit {

namespace {

using namespace std::chrono_literals;

constexpr std::int64_t SecondLength = 1000;
constexpr std::int64_t MinuteLength = 60 * SecondLength;
constexpr std::int64_t HourLength = 60 * MinuteLength;
constexpr std::int64_t DayLength = 24 * HourLength;
constexpr double MaxDays = 1e11;

constexpr std::chrono::sys_days DayZero{1899y / std::chrono::December / 30};
constexpr int FirstYear = 1;
constexpr int LastYear = 9999;

constexpr std::int64_t DayNumber(std::chrono::year_month_day date)
{
    return (std::chrono::sys_days{date} - DayZero).count();
}

constexpr std::int64_t FirstMilliSecond = DayNumber(1y / 1 / 1) * DayLength;
constexpr std::int64_t LastMilliSecond = (DayNumber(9999y / 12 / 31) + 1) * DayLength - 1;

std::chrono::year_month_day DateOf(int year, int month, int day)
{
    return {std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
            std::chrono::day{static_cast<unsigned>(day)}};
}

bool IsWithin(int value, int first, int last)
{
    return value >= first && value <= last;
}

/// Days on a time line without the fold below zero.
double LinearDays(TDateTime value)
{
    const double whole = std::trunc(value);
    return whole + std::fabs(value - whole);
}

std::int64_t SaturatedSum(std::int64_t a, std::int64_t b)
{
    using TLimits = std::numeric_limits<std::int64_t>;
    if (b > 0 && a > TLimits::max() - b)
        return TLimits::max();
    if (b < 0 && a < TLimits::min() - b)
        return TLimits::min();
    return a + b;
}

TDateTime Inc(TDateTime value, std::int64_t count, std::int64_t unit)
{
    const std::int64_t limit = std::numeric_limits<std::int64_t>::max() / unit;
    return FromMilliSeconds(SaturatedSum(MilliSecondsOf(value), std::clamp(count, -limit, limit) * unit));
}

}  // namespace

std::int64_t MilliSecondsOf(TDateTime value)
{
    if (std::isnan(value))
        return 0;
    value = std::clamp(value, -MaxDays, MaxDays);
    const double days = std::trunc(value);
    const double time = std::fabs(value - days) * static_cast<double>(DayLength);
    return static_cast<std::int64_t>(days) * DayLength + static_cast<std::int64_t>(std::floor(time + 0.5));
}

TDateTime FromMilliSeconds(std::int64_t milliSeconds)
{
    std::int64_t days = milliSeconds / DayLength;
    std::int64_t time = milliSeconds % DayLength;
    if (time < 0) {
        time += DayLength;
        --days;
    }
    const double whole = static_cast<double>(days);
    const double fraction = static_cast<double>(time) / static_cast<double>(DayLength);
    return days < 0 ? whole - fraction : whole + fraction;
}

TDateTimeParts DecodeDateTime(TDateTime value)
{
    const std::int64_t moment = std::clamp(MilliSecondsOf(value), FirstMilliSecond, LastMilliSecond);
    const std::int64_t days = (moment - FirstMilliSecond) / DayLength;
    const auto time = static_cast<int>((moment - FirstMilliSecond) % DayLength);
    const std::chrono::year_month_day date{std::chrono::sys_days{1y / 1 / 1} +
                                           std::chrono::days{static_cast<std::chrono::days::rep>(days)}};
    TDateTimeParts parts;
    parts.Year = static_cast<int>(date.year());
    parts.Month = static_cast<int>(static_cast<unsigned>(date.month()));
    parts.Day = static_cast<int>(static_cast<unsigned>(date.day()));
    parts.Hour = time / static_cast<int>(HourLength);
    parts.Minute = time / static_cast<int>(MinuteLength) % 60;
    parts.Second = time / static_cast<int>(SecondLength) % 60;
    parts.MilliSecond = time % 1000;
    return parts;
}

std::optional<TDateTime> TryEncodeDateTime(const TDateTimeParts& parts)
{
    if (!IsWithin(parts.Year, FirstYear, LastYear) || !IsWithin(parts.Month, 1, 12) ||
        !IsWithin(parts.Day, 1, DaysInMonth(parts.Year, parts.Month)) || !IsWithin(parts.Hour, 0, 23) ||
        !IsWithin(parts.Minute, 0, 59) || !IsWithin(parts.Second, 0, 59) || !IsWithin(parts.MilliSecond, 0, 999))
        return std::nullopt;
    return FromMilliSeconds(DayNumber(DateOf(parts.Year, parts.Month, parts.Day)) * DayLength +
                            parts.Hour * HourLength + parts.Minute * MinuteLength + parts.Second * SecondLength +
                            parts.MilliSecond);
}

TDateTime EncodeDateTime(const TDateTimeParts& parts)
{
    const std::optional<TDateTime> value = TryEncodeDateTime(parts);
    if (!value)
        throw EConvertError("Invalid argument to date encode");
    return *value;
}

bool IsLeapYear(int year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int DaysInMonth(int year, int month)
{
    if (month == 2)
        return IsLeapYear(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

TDateTime IncMonth(TDateTime value, int months)
{
    TDateTimeParts parts = DecodeDateTime(value);
    const std::int64_t index = std::clamp<std::int64_t>(std::int64_t{parts.Year} * 12 + parts.Month - 1 + months,
                                                        FirstYear * 12, LastYear * 12 + 11);
    parts.Year = static_cast<int>(index / 12);
    parts.Month = static_cast<int>(index % 12) + 1;
    parts.Day = std::min(parts.Day, DaysInMonth(parts.Year, parts.Month));
    return EncodeDateTime(parts);
}

TDateTime IncYear(TDateTime value, int years)
{
    const std::int64_t year = DecodeDateTime(value).Year;
    const std::int64_t steps = std::clamp<std::int64_t>(year + years, FirstYear, LastYear) - year;
    return IncMonth(value, static_cast<int>(steps) * 12);
}

TDateTime IncDay(TDateTime value, std::int64_t days)
{
    return Inc(value, days, DayLength);
}

TDateTime IncHour(TDateTime value, std::int64_t hours)
{
    return Inc(value, hours, HourLength);
}

TDateTime IncMinute(TDateTime value, std::int64_t minutes)
{
    return Inc(value, minutes, MinuteLength);
}

TDateTime IncSecond(TDateTime value, std::int64_t seconds)
{
    return Inc(value, seconds, SecondLength);
}

TDateTime IncMilliSecond(TDateTime value, std::int64_t milliSeconds)
{
    return Inc(value, milliSeconds, 1);
}

double DaySpan(TDateTime a, TDateTime b)
{
    return std::fabs(LinearDays(a) - LinearDays(b));
}

double MonthSpan(TDateTime a, TDateTime b)
{
    constexpr double monthLength = 30.4375;
    return DaySpan(a, b) / monthLength;
}

}  // namespace plotkit
