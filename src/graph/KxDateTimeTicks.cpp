#include "graph/KxDateTimeTicks.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "host/Host.h"

namespace plotkit {

namespace {

constexpr std::array Steps{
    TKxDateTimeStep{rgMilliSecond, 1, rgMilliSecond, 1},
    TKxDateTimeStep{rgMilliSecond, 2, rgMilliSecond, 1},
    TKxDateTimeStep{rgMilliSecond, 5, rgMilliSecond, 1},
    TKxDateTimeStep{rgMilliSecond, 10, rgMilliSecond, 2},
    TKxDateTimeStep{rgMilliSecond, 20, rgMilliSecond, 5},
    TKxDateTimeStep{rgMilliSecond, 50, rgMilliSecond, 10},
    TKxDateTimeStep{rgMilliSecond, 100, rgMilliSecond, 20},
    TKxDateTimeStep{rgMilliSecond, 200, rgMilliSecond, 50},
    TKxDateTimeStep{rgMilliSecond, 500, rgMilliSecond, 100},
    TKxDateTimeStep{rgSecond, 1, rgMilliSecond, 200},
    TKxDateTimeStep{rgSecond, 2, rgMilliSecond, 500},
    TKxDateTimeStep{rgSecond, 5, rgSecond, 1},
    TKxDateTimeStep{rgSecond, 10, rgSecond, 2},
    TKxDateTimeStep{rgSecond, 15, rgSecond, 5},
    TKxDateTimeStep{rgSecond, 30, rgSecond, 5},
    TKxDateTimeStep{rgMinute, 1, rgSecond, 10},
    TKxDateTimeStep{rgMinute, 2, rgSecond, 30},
    TKxDateTimeStep{rgMinute, 5, rgMinute, 1},
    TKxDateTimeStep{rgMinute, 10, rgMinute, 2},
    TKxDateTimeStep{rgMinute, 15, rgMinute, 5},
    TKxDateTimeStep{rgMinute, 30, rgMinute, 5},
    TKxDateTimeStep{rgHour, 1, rgMinute, 10},
    TKxDateTimeStep{rgHour, 2, rgMinute, 30},
    TKxDateTimeStep{rgHour, 3, rgHour, 1},
    TKxDateTimeStep{rgHour, 6, rgHour, 1},
    TKxDateTimeStep{rgHour, 12, rgHour, 2},
    TKxDateTimeStep{rgDay, 1, rgHour, 6},
    TKxDateTimeStep{rgDay, 2, rgHour, 12},
    TKxDateTimeStep{rgDay, 4, rgDay, 1},
    TKxDateTimeStep{rgDay, 7, rgDay, 1},
    TKxDateTimeStep{rgMonth, 1, rgMonth, 1},
    TKxDateTimeStep{rgMonth, 2, rgMonth, 1},
    TKxDateTimeStep{rgMonth, 3, rgMonth, 1},
    TKxDateTimeStep{rgMonth, 4, rgMonth, 1},
    TKxDateTimeStep{rgMonth, 6, rgMonth, 1},
    TKxDateTimeStep{rgYear, 1, rgMonth, 3},
    TKxDateTimeStep{rgYear, 2, rgMonth, 6},
    TKxDateTimeStep{rgYear, 5, rgYear, 1},
    TKxDateTimeStep{rgYear, 10, rgYear, 2},
    TKxDateTimeStep{rgYear, 20, rgYear, 5},
    TKxDateTimeStep{rgYear, 50, rgYear, 10},
    TKxDateTimeStep{rgYear, 100, rgYear, 20},
    TKxDateTimeStep{rgYear, 200, rgYear, 50},
    TKxDateTimeStep{rgYear, 500, rgYear, 100},
    TKxDateTimeStep{rgYear, 1000, rgYear, 200},
    TKxDateTimeStep{rgYear, 2000, rgYear, 500},
    TKxDateTimeStep{rgYear, 5000, rgYear, 1000},
};

constexpr std::int64_t DayLength = 86400000;
constexpr TDateTime FirstMoment = -693593;
constexpr TDateTime LastMoment = 2958465 + (static_cast<double>(DayLength) - 1) / static_cast<double>(DayLength);
constexpr int FirstMonthIndex = 12;
constexpr int LastMonthIndex = 9999 * 12 + 11;
/// Few months have room for their names.
constexpr double MonthsWithNames = 3;

bool CountsMonths(const TKxDateTimeStep& step)
{
    return step.TickRegion == rgYear || step.TickRegion == rgMonth;
}

int MonthsPerTick(const TKxDateTimeStep& step)
{
    return step.TickRegion == rgYear ? 12 * step.TickStep : step.TickStep;
}

std::int64_t UnitLength(TKxDTRegion region)
{
    switch (region) {
        case rgMilliSecond:
            return 1;
        case rgSecond:
            return 1000;
        case rgMinute:
            return 60000;
        case rgHour:
            return 3600000;
        default:
            return DayLength;
    }
}

std::int64_t TickLength(const TKxDateTimeStep& step)
{
    return UnitLength(step.TickRegion) * step.TickStep;
}

std::int64_t RoundedTo(std::int64_t value, std::int64_t step, bool up)
{
    std::int64_t whole = value / step;
    if (value % step != 0 && (value < 0) != up)
        whole += up ? 1 : -1;
    return whole * step;
}

int MonthIndex(const TDateTimeParts& parts)
{
    return parts.Year * 12 + parts.Month - 1;
}

TDateTime MonthStart(int monthIndex)
{
    return EncodeDateTime({monthIndex / 12, monthIndex % 12 + 1, 1, 0, 0, 0, 0});
}

/// The largest unit that starts at a moment.
TKxDTRegion UnitThatStarts(const TDateTimeParts& parts)
{
    if (parts.MilliSecond != 0)
        return rgMilliSecond;
    if (parts.Second != 0)
        return rgSecond;
    if (parts.Minute != 0)
        return rgMinute;
    if (parts.Hour != 0)
        return rgHour;
    if (parts.Day != 1)
        return rgDay;
    return parts.Month != 1 ? rgMonth : rgYear;
}

TDateTime RoundedToMonths(TDateTime value, int months, bool up)
{
    const TDateTimeParts parts = DecodeDateTime(value);
    const bool isStart = UnitThatStarts(parts) <= rgMonth;
    const auto index = static_cast<int>(RoundedTo(MonthIndex(parts) + (up && !isStart ? 1 : 0), months, up));
    // There is no year 0, and nothing behind the year 9999.
    if (index > LastMonthIndex)
        return value;
    return MonthStart(std::max(index, FirstMonthIndex));
}

/// Within a day before day 0 the fraction grows downwards.
TDateTime RoundedInFoldedDay(TDateTime value, std::int64_t length, bool up)
{
    if (length >= DayLength)
        return up ? std::ceil(value) : std::floor(value);
    const double day = std::trunc(value);
    const auto time = static_cast<std::int64_t>(std::llround((day - value) * static_cast<double>(DayLength)));
    return day - static_cast<double>(RoundedTo(time, length, !up)) / static_cast<double>(DayLength);
}

/// A value that misses a tick by a thousandth of the step only is taken to stand there: day numbers from sums do.
TDateTime RoundedToLength(TDateTime value, std::int64_t length, bool up)
{
    const std::int64_t moment = MilliSecondsOf(value);
    const TDateTime rounded = FromMilliSeconds(RoundedTo(moment, length, up));
    const double missed = (up ? value - rounded : rounded - value) * static_cast<double>(DayLength);
    if (missed <= 1e-3 * static_cast<double>(length))
        return rounded;
    return FromMilliSeconds(RoundedTo(moment + (up ? 1 : -1), length, up));
}

bool IsLabelled(TDateTime value, const TKxDateTimeStep& step, TDateTime start)
{
    const TDateTimeParts parts = DecodeDateTime(value);
    if (UnitThatStarts(parts) > step.Region)
        return false;
    switch (step.Region) {
        case rgYear:
            return parts.Year % step.LabelStep == 0;
        case rgMonth:
            return (parts.Month - 1) % step.LabelStep == 0;
        case rgDay:
            return step.LabelStep == 1 || static_cast<std::int64_t>(DaySpan(start, value)) % step.LabelStep == 0;
        case rgHour:
            return parts.Hour % step.LabelStep == 0;
        case rgMinute:
            return parts.Minute % step.LabelStep == 0;
        case rgSecond:
            return parts.Second % step.LabelStep == 0;
        case rgMilliSecond:
            return parts.MilliSecond % step.LabelStep == 0;
    }
    return false;
}

/// First and last millisecond of the days that a range may touch, or of the range where time runs with the values.
std::pair<std::int64_t, std::int64_t> MilliSecondsIn(const TKxDateTimeRange& range)
{
    if (range.Start >= 0)
        return {MilliSecondsOf(range.Start), MilliSecondsOf(range.Stop)};
    const double firstDay = std::trunc(range.Start), lastDay = std::trunc(range.Stop);
    if (firstDay == lastDay && range.Start != firstDay)
        return {MilliSecondsOf(range.Stop), MilliSecondsOf(range.Start)};
    const std::int64_t stop = range.Stop >= 0 ? MilliSecondsOf(range.Stop) : MilliSecondsOf(lastDay) + DayLength;
    return {MilliSecondsOf(firstDay), stop};
}

std::string DayAndMonthFormat(const TLocaleFormats& locale)
{
    std::string format = locale.ShortDateFormat;
    std::erase_if(format, [](char c) { return c == 'y' || c == 'Y'; });
    const auto isSeparator = [&locale](char c) { return c == '/' || c == locale.DateSeparator; };
    if (!format.empty() && isSeparator(format.front()))
        format.erase(0, 1);
    if (!format.empty() && isSeparator(format.back()))
        format.pop_back();
    return format;
}

std::string MilliSecondText(TDateTime value, const TLocaleFormats& locale)
{
    // The separator is quoted, since it may be a letter of the format language to others.
    std::string text = FormatDateTime(std::string("hh:nn:ss\"") + locale.DecimalSeparator + "\"zzz", value, locale);
    for (int i = 0; i < 2 && text.ends_with('0'); ++i)
        text.pop_back();
    return text;
}

}  // namespace

std::span<const TKxDateTimeStep> DateTimeSteps()
{
    return Steps;
}

double DaysBetweenLabels(const TKxDateTimeStep& step)
{
    if (step.Region == rgYear)
        return 366.0 * step.LabelStep;
    if (step.Region == rgMonth)
        return 31.0 * step.LabelStep;
    return static_cast<double>(UnitLength(step.Region)) / static_cast<double>(DayLength) * step.LabelStep;
}

TKxDateTimeRange ClampedRange(TKxDateTimeRange range)
{
    return {std::clamp(range.Start, FirstMoment, LastMoment), std::clamp(range.Stop, FirstMoment, LastMoment)};
}

TKxDateTimeRange RangeAround(TDateTime moment)
{
    const TKxDTRegion unit = UnitThatStarts(DecodeDateTime(moment));
    TKxDateTimeRange range{moment, moment};
    if (unit <= rgMonth) {
        const int months = unit == rgYear ? 12 : 1;
        range = {IncMonth(moment, -months), IncMonth(moment, months)};
    } else {
        range = {IncMilliSecond(moment, -UnitLength(unit)), IncMilliSecond(moment, UnitLength(unit))};
    }
    return ClampedRange({std::min(range.Start, range.Stop), std::max(range.Start, range.Stop)});
}

TDateTime RoundedToTick(TDateTime value, const TKxDateTimeStep& step, bool up)
{
    const bool isFolded = value < 0 && value != std::trunc(value);
    TDateTime rounded = value;
    if (CountsMonths(step))
        rounded =
            RoundedToMonths(isFolded ? (up ? std::ceil(value) : std::floor(value)) : value, MonthsPerTick(step), up);
    else if (isFolded)
        rounded = RoundedInFoldedDay(value, TickLength(step), up);
    else
        rounded = RoundedToLength(value, TickLength(step), up);
    return std::clamp(up ? std::max(rounded, value) : std::min(rounded, value), FirstMoment, LastMoment);
}

std::optional<std::vector<TKxDateTimeTick>> DateTimeTicksOf(const TKxDateTimeRange& range, const TKxDateTimeStep& step,
                                                            int limit)
{
    std::vector<TKxDateTimeTick> ticks;
    const auto add = [&](TDateTime value) {
        if (value >= range.Start && value <= range.Stop)
            ticks.push_back({value, IsLabelled(value, step, range.Start)});
    };
    const auto [first, last] = MilliSecondsIn(range);
    if (CountsMonths(step)) {
        const int months = MonthsPerTick(step);
        const int from = MonthIndex(DecodeDateTime(FromMilliSeconds(first)));
        const int to = MonthIndex(DecodeDateTime(FromMilliSeconds(last)));
        if ((to - from) / months > limit)
            return std::nullopt;
        for (auto i = static_cast<int>(RoundedTo(from, months, false)); i <= to; i += months)
            if (i >= FirstMonthIndex)
                add(MonthStart(i));
    } else {
        const std::int64_t length = TickLength(step);
        if ((last - first) / length > limit)
            return std::nullopt;
        for (std::int64_t t = RoundedTo(first, length, false); t <= last; t += length)
            add(FromMilliSeconds(t));
    }
    std::sort(ticks.begin(), ticks.end(),
              [](const TKxDateTimeTick& a, const TKxDateTimeTick& b) { return a.Value < b.Value; });
    return ticks;
}

std::string DateTimeLabel(TDateTime value, const TKxDateTimeStep& step, const TKxDateTimeRange& range)
{
    const TLocaleFormats& locale = Host().Locale();
    switch (step.Region) {
        case rgYear:
            return std::to_string(DecodeDateTime(value).Year);
        case rgMonth:
            return FormatDateTime(MonthSpan(range.Start, range.Stop) > MonthsWithNames ? "mm/yyyy" : "mmm yyyy", value,
                                  locale);
        case rgDay:
            return FormatDateTime(DayAndMonthFormat(locale), value, locale);
        case rgHour:
        case rgMinute:
            return FormatDateTime("hh:nn", value, locale);
        case rgSecond:
            return FormatDateTime("hh:nn:ss", value, locale);
        case rgMilliSecond:
            return MilliSecondText(value, locale);
    }
    return {};
}

std::string DatesBeside(TKxDTRegion region, const TKxDateTimeRange& range)
{
    if (region < rgDay)
        return {};
    const char* format = region == rgDay ? "yyyy" : "yyyy-mm-dd";
    const TLocaleFormats& locale = Host().Locale();
    const std::string first = FormatDateTime(format, range.Start, locale);
    // A range that ends at midnight does not reach the next day.
    const TDateTime last = std::max(range.Start, IncMilliSecond(range.Stop, -1));
    const std::string second = FormatDateTime(format, last, locale);
    return first == second ? first : first + " \xE2\x80\x93 " + second;
}

}  // namespace plotkit
