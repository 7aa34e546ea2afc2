#include "plotkit/DateText.h"

namespace plotkit {
namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Takes pieces off the front of a text.
class TScanner
{
public:
    explicit TScanner(std::string_view text) : FRest(text) {}

    bool AtEnd() const { return FRest.empty(); }
    char Next() const { return FRest.empty() ? '\0' : FRest.front(); }
    bool Take(char c)
    {
        if (Next() != c || FRest.empty())
            return false;
        FRest.remove_prefix(1);
        return true;
    }
    /// A run of `fewest` to `most` digits; nothing, and nothing taken, when there are fewer or more.
    std::optional<int> Digits(int fewest, int most)
    {
        int count = 0, value = 0;
        while (count < static_cast<int>(FRest.size()) && IsDigit(FRest[static_cast<std::size_t>(count)])) {
            if (count == most)
                return std::nullopt;
            value = value * 10 + (FRest[static_cast<std::size_t>(count)] - '0');
            ++count;
        }
        if (count < fewest)
            return std::nullopt;
        FRest.remove_prefix(static_cast<std::size_t>(count));
        return value;
    }
    /// Milliseconds of the digits behind a decimal separator.
    std::optional<int> Fraction()
    {
        double value = 0, unit = 1000;
        if (!IsDigit(Next()))
            return std::nullopt;
        for (; IsDigit(Next()); FRest.remove_prefix(1)) {
            unit /= 10;
            value += (Next() - '0') * unit;
        }
        return static_cast<int>(value + 0.5);
    }

private:
    std::string_view FRest;
};

bool ScanTime(TScanner& scanner, TDateTimeParts& parts, int& roundedUp)
{
    const auto hour = scanner.Digits(1, 2);
    if (!hour || !scanner.Take(':'))
        return false;
    const auto minute = scanner.Digits(2, 2);
    if (!minute)
        return false;
    parts.Hour = *hour;
    parts.Minute = *minute;
    if (!scanner.Take(':'))
        return true;
    const auto second = scanner.Digits(2, 2);
    if (!second)
        return false;
    parts.Second = *second;
    if (!scanner.Take('.') && !scanner.Take(','))
        return true;
    const auto milliSeconds = scanner.Fraction();
    if (!milliSeconds)
        return false;
    // 59.9996 is a whole second more, which may be another day: left to the calendar.
    roundedUp = *milliSeconds == 1000 ? 1 : 0;
    parts.MilliSecond = roundedUp ? 0 : *milliSeconds;
    return true;
}

/// Minutes east of universal time at the end of the text.
std::optional<int> ScanOffset(TScanner& scanner)
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

}  // namespace

std::optional<TDateTime> ParseDateText(std::string_view text)
{
    TScanner scanner(text);
    TDateTimeParts parts;
    const auto year = scanner.Digits(4, 4);
    const char separator = scanner.Next();
    if (!year || (separator != '-' && separator != '/') || !scanner.Take(separator))
        return std::nullopt;
    const auto month = scanner.Digits(1, 2);
    if (!month)
        return std::nullopt;
    parts.Year = *year;
    parts.Month = *month;
    parts.Day = 1;
    if (scanner.AtEnd())
        return TryEncodeDateTime(parts);
    const auto day = scanner.Take(separator) ? scanner.Digits(1, 2) : std::nullopt;
    if (!day)
        return std::nullopt;
    parts.Day = *day;
    if (scanner.AtEnd())
        return TryEncodeDateTime(parts);
    int roundedUp = 0;
    if ((!scanner.Take('T') && !scanner.Take('t') && !scanner.Take(' ')) || !ScanTime(scanner, parts, roundedUp))
        return std::nullopt;
    const auto offset = ScanOffset(scanner);
    const auto value = TryEncodeDateTime(parts);
    if (!offset || !scanner.AtEnd() || !value)
        return std::nullopt;
    return *offset || roundedUp ? IncSecond(*value, roundedUp - *offset * 60) : *value;
}

}  // namespace plotkit
