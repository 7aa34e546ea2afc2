#include "plotkit/table/DateText.h"

#include <algorithm>
#include <array>
#include <limits>

#include "host/StringList.h"
#include "plotkit/table/TextScanner.h"

namespace plotkit {
namespace {

constexpr TDateTime NoDate = std::numeric_limits<double>::quiet_NaN();

struct TTimeOfDay
{
    int Hour = 0, Minute = 0, Second = 0, MilliSecond = 0;
    int RoundedUp = 0;  ///< seconds: 59.9996 is a whole second more, which may be another day
};

/// Milliseconds of the digits behind a decimal separator, 1000 when they round up.
std::optional<int> ScanFraction(TTextScanner& scanner)
{
    const std::size_t count = scanner.CountDigits();
    if (count == 0)
        return std::nullopt;
    double value = 0, unit = 1000;
    for (std::size_t i = 0; i < count; ++i) {
        unit /= 10;
        value += *scanner.First(1) * unit;
    }
    return static_cast<int>(value + 0.5);
}

bool ScanSecondsFraction(TTextScanner& scanner, TTimeOfDay& time)
{
    if (!scanner.Take('.') && !scanner.Take(','))
        return true;
    const auto milliSeconds = ScanFraction(scanner);
    if (!milliSeconds)
        return false;
    time.RoundedUp = *milliSeconds == 1000 ? 1 : 0;
    time.MilliSecond = time.RoundedUp ? 0 : *milliSeconds;
    return true;
}

bool ScanTime(TTextScanner& scanner, TTimeOfDay& time)
{
    const auto hour = scanner.Digits(1, 2);
    if (!hour || !scanner.Take(':'))
        return false;
    const auto minute = scanner.Digits(2, 2);
    if (!minute)
        return false;
    time.Hour = *hour;
    time.Minute = *minute;
    if (!scanner.Take(':'))
        return true;
    const auto second = scanner.Digits(2, 2);
    time.Second = second.value_or(0);
    return second && ScanSecondsFraction(scanner, time);
}

/// hh, hhmm or hhmmss.
bool ScanBasicTime(TTextScanner& scanner, TTimeOfDay& time)
{
    const std::size_t count = scanner.CountDigits();
    if (count != 2 && count != 4 && count != 6)
        return false;
    time.Hour = *scanner.First(2);
    time.Minute = count > 2 ? *scanner.First(2) : 0;
    time.Second = count > 4 ? *scanner.First(2) : 0;
    return count < 6 || ScanSecondsFraction(scanner, time);
}

/// AM or PM at the end of the text; false when something else stands there.
bool ScanHalfOfDay(TTextScanner& scanner, TTimeOfDay& time)
{
    if (scanner.AtEnd())
        return true;
    scanner.Take(' ');
    const bool isPm = SameText(scanner.Rest(), "PM");
    if ((!isPm && !SameText(scanner.Rest(), "AM")) || time.Hour < 1 || time.Hour > 12)
        return false;
    time.Hour = time.Hour % 12 + (isPm ? 12 : 0);
    scanner.Skip(2);
    return true;
}

/// Minutes east of universal time at the end of the text.
std::optional<int> ScanOffset(TTextScanner& scanner)
{
    if (scanner.AtEnd() || scanner.Take('Z') || scanner.Take('z'))
        return 0;
    const bool west = scanner.Next() == '-';
    if (!scanner.Take('+') && !scanner.Take('-'))
        return std::nullopt;
    int minutes = 0;
    if (const auto both = scanner.Digits(4, 4)) {
        minutes = *both / 100 * 60 + *both % 100;
    } else {
        const auto hours = scanner.Digits(2, 2);
        const auto rest = hours && scanner.Take(':') ? scanner.Digits(2, 2) : std::optional(0);
        if (!hours || !rest)
            return std::nullopt;
        minutes = *hours * 60 + *rest;
    }
    return west ? -minutes : minutes;
}

TDateTime Joined(const std::optional<TDateTime>& day, const TTimeOfDay& time, int offset)
{
    if (!day)
        return NoDate;
    TDateTimeParts parts = DecodeDateTime(*day);
    parts.Hour = time.Hour;
    parts.Minute = time.Minute;
    parts.Second = time.Second;
    parts.MilliSecond = time.MilliSecond;
    const auto value = TryEncodeDateTime(parts);
    if (!value)
        return NoDate;
    return offset || time.RoundedUp ? IncSecond(*value, time.RoundedUp - offset * 60) : *value;
}

std::optional<TDateTime> DayOf(int year, int month, int day)
{
    return TryEncodeDateTime({year, month, day, 0, 0, 0, 0});
}

/// The day of week `week` of the year that ISO 8601 counts, 1 for Monday.
std::optional<TDateTime> WeekDay(int year, int week, int day)
{
    const auto january4 = DayOf(year, 1, 4);
    if (!january4 || week < 1 || week > 53 || day < 1 || day > 7)
        return std::nullopt;
    // 1899-12-30, day 0, was a Saturday.
    const auto number = MilliSecondsOf(*january4) / 86'400'000;
    const auto monday = number - ((number + 5) % 7 + 7) % 7;
    return IncDay(FromMilliSeconds(monday * 86'400'000), 7 * (week - 1) + day - 1);
}

struct TScannedDay
{
    std::optional<TDateTime> DayFirst, MonthFirst;
    bool IsTwoWays = false;
    bool IsBasic = false;  ///< to be followed by a time without colons
    bool IsMonth = false;  ///< no day, so no time either
};

TScannedDay ScanYearFirst(TTextScanner& scanner)
{
    const int year = *scanner.First(4);
    std::optional<TDateTime> day;
    TScannedDay scanned;
    const char separator = scanner.Next();
    if (scanner.CountDigits() == 4) {
        const int month = *scanner.First(2);
        day = DayOf(year, month, *scanner.First(2));
        scanned.IsBasic = true;
    } else if (scanner.Take('-') && (scanner.Take('W') || scanner.CountDigits() == 3)) {
        if (const auto ordinal = scanner.Digits(3, 3)) {
            if (*ordinal >= 1 && *ordinal <= (IsLeapYear(year) ? 366 : 365) && DayOf(year, 1, 1))
                day = IncDay(*DayOf(year, 1, 1), *ordinal - 1);
        } else {
            const auto week = scanner.Digits(2, 2);
            const auto weekDay = week && scanner.Take('-') ? scanner.Digits(1, 1) : std::nullopt;
            day = weekDay ? WeekDay(year, *week, *weekDay) : std::nullopt;
        }
    } else if (separator == '-' || scanner.Take('/')) {
        const auto month = scanner.Digits(1, 2);
        scanned.IsMonth = scanner.AtEnd();
        const auto number = scanned.IsMonth           ? std::optional(1)
                            : scanner.Take(separator) ? scanner.Digits(1, 2)
                                                      : std::nullopt;
        day = month && number ? DayOf(year, *month, *number) : std::nullopt;
    }
    scanned.DayFirst = scanned.MonthFirst = day;
    return scanned;
}

/// The number of an English month of three letters at the front.
std::optional<int> ScanMonthName(TTextScanner& scanner)
{
    constexpr std::string_view names = "JanFebMarAprMayJunJulAugSepOctNovDec";
    for (std::size_t month = 0; month < 12; ++month)
        if (StartsWithText(scanner.Rest(), names.substr(3 * month, 3))) {
            scanner.Skip(3);
            return static_cast<int>(month) + 1;
        }
    return std::nullopt;
}

TScannedDay ScanYearLast(TTextScanner& scanner)
{
    TScannedDay scanned;
    const auto first = scanner.Digits(1, 2);
    const char separator = scanner.Next();
    if (!first || (separator != '.' && separator != '/' && separator != '-' && separator != ' '))
        return scanned;
    scanner.Skip(1);
    const auto name = separator == '-' || separator == ' ' ? ScanMonthName(scanner) : std::nullopt;
    const auto second = name ? name : separator == ' ' ? std::nullopt : scanner.Digits(1, 2);
    const auto year = second && scanner.Take(separator) ? scanner.Digits(4, 4) : std::nullopt;
    if (!year)
        return scanned;
    scanned.IsTwoWays = !name && separator != '.';
    scanned.DayFirst = DayOf(*year, *second, *first);
    scanned.MonthFirst = scanned.IsTwoWays ? DayOf(*year, *first, *second) : scanned.DayFirst;
    return scanned;
}

}  // namespace

std::optional<TDateReading> ReadDateText(std::string_view text)
{
    // The shortest is 2012-1, and most cells that are no dates end here.
    if (text.size() < 6 || text.front() < '0' || text.front() > '9')
        return std::nullopt;
    TTextScanner scanner(text);
    const bool yearFirst = scanner.CountDigits() == 4 || scanner.CountDigits() == 8;
    const TScannedDay day = yearFirst ? ScanYearFirst(scanner) : ScanYearLast(scanner);
    if ((!day.DayFirst && !day.MonthFirst) || (scanner.AtEnd() && day.IsBasic))
        return std::nullopt;
    TTimeOfDay time;
    int offset = 0;
    bool isUniversal = false;
    if (!scanner.AtEnd()) {
        if (day.IsMonth || (!scanner.Take('T') && !scanner.Take('t') && !scanner.Take(' ')))
            return std::nullopt;
        if (!(day.IsBasic ? ScanBasicTime(scanner, time) : ScanTime(scanner, time)))
            return std::nullopt;
        if (yearFirst) {
            isUniversal = !scanner.AtEnd();
            const auto minutes = ScanOffset(scanner);
            if (!minutes)
                return std::nullopt;
            offset = *minutes;
        } else if (!ScanHalfOfDay(scanner, time)) {
            return std::nullopt;
        }
    }
    const TDateReading reading{Joined(day.DayFirst, time, offset), Joined(day.MonthFirst, time, offset), day.IsTwoWays,
                               isUniversal};
    const bool isDate = reading.DayFirst == reading.DayFirst || reading.MonthFirst == reading.MonthFirst;
    return scanner.AtEnd() && isDate ? std::optional(reading) : std::nullopt;
}

std::optional<double> ParseTimeText(std::string_view text)
{
    if (text.size() < 4 || text.front() < '0' || text.front() > '9')
        return std::nullopt;
    TTextScanner scanner(text);
    TTimeOfDay time;
    if (!ScanTime(scanner, time) || !ScanHalfOfDay(scanner, time) || !scanner.AtEnd() || time.Hour > 23 ||
        time.Minute > 59 || time.Second > 59)
        return std::nullopt;
    const int seconds = (time.Hour * 60 + time.Minute) * 60 + time.Second + time.RoundedUp;
    const auto milliSeconds = std::min(seconds * 1000 + time.MilliSecond, 86'400'000 - 1);
    return FromMilliSeconds(milliSeconds);
}

bool WritesDayFirst(std::string_view shortDateFormat)
{
    const std::size_t first = shortDateFormat.find_first_of("dDmMyY");
    return first == std::string_view::npos || (shortDateFormat[first] != 'm' && shortDateFormat[first] != 'M');
}

}  // namespace plotkit
