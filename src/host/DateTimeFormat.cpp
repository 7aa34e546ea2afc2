#include <algorithm>
#include <chrono>
#include <string>

#include "host/DateTime.h"
#include "host/StringList.h"

namespace plotkit {

namespace {

constexpr std::string_view HalfDay = "am/pm";

char LowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsLetter(char c)
{
    return LowerCase(c) >= 'a' && LowerCase(c) <= 'z';
}

bool IsQuote(char c)
{
    return c == '"' || c == '\'';
}

std::string Padded(int value, std::size_t width)
{
    const std::string digits = std::to_string(value);
    return std::string(width - std::min(width, digits.size()), '0') + digits;
}

/// Behind the quoted text that starts at `at`; a text without its second quote goes to the end.
std::size_t BehindQuoted(std::string_view format, std::size_t at)
{
    const std::size_t end = format.find(format[at], at + 1);
    return end == std::string_view::npos ? format.size() : end + 1;
}

bool HasHalfDay(std::string_view format)
{
    for (std::size_t i = 0; i < format.size();) {
        if (StartsWithText(format.substr(i), HalfDay))
            return true;
        i = IsQuote(format[i]) ? BehindQuoted(format, i) : i + 1;
    }
    return false;
}

class TDateTimeWriter
{
public:
    TDateTimeWriter(std::string_view format, TDateTime value, const TLocaleFormats& locale)
        : FFormat(format), FLocale(locale), FParts(DecodeDateTime(value)), FHalfDays(HasHalfDay(format))
    {}

    std::string Write()
    {
        while (FAt < FFormat.size())
            WriteNext();
        return std::move(FText);
    }

private:
    void WriteNext();
    void WriteCode(char code, std::size_t count);
    std::string_view DayName(bool isLong) const;
    int Hour() const;

    std::string_view FFormat;
    const TLocaleFormats& FLocale;
    TDateTimeParts FParts;
    bool FHalfDays;
    std::size_t FAt = 0;
    char FLastCode = ' ';
    std::string FText;
};

void TDateTimeWriter::WriteNext()
{
    const std::string_view rest = FFormat.substr(FAt);
    const char code = LowerCase(rest.front());
    if (IsQuote(code)) {
        const std::size_t end = BehindQuoted(FFormat, FAt);
        const bool closed = end - FAt > 1 && FFormat[end - 1] == code;
        FText += FFormat.substr(FAt + 1, end - FAt - (closed ? 2 : 1));
        FAt = end;
    } else if (StartsWithText(rest, HalfDay)) {
        FText += FParts.Hour < 12 ? rest.substr(0, 2) : rest.substr(3, 2);
        FAt += HalfDay.size();
        FLastCode = 'a';
    } else {
        std::size_t count = 1;
        while (IsLetter(code) && count < rest.size() && LowerCase(rest[count]) == code)
            ++count;
        WriteCode(code, count);
        FAt += count;
        if (IsLetter(code))
            FLastCode = code;
    }
}

std::string_view TDateTimeWriter::DayName(bool isLong) const
{
    const std::chrono::year_month_day date{std::chrono::year{FParts.Year},
                                           std::chrono::month{static_cast<unsigned>(FParts.Month)},
                                           std::chrono::day{static_cast<unsigned>(FParts.Day)}};
    const unsigned day = std::chrono::weekday{std::chrono::sys_days{date}}.c_encoding();
    return isLong ? FLocale.LongDayNames[day] : FLocale.ShortDayNames[day];
}

int TDateTimeWriter::Hour() const
{
    return FHalfDays ? (FParts.Hour + 11) % 12 + 1 : FParts.Hour;
}

void TDateTimeWriter::WriteCode(char code, std::size_t count)
{
    const std::size_t pair = std::min<std::size_t>(count, 2);
    const auto month = static_cast<std::size_t>(FParts.Month - 1);
    if (code == 'm' && FLastCode == 'h')
        code = 'n';
    switch (code) {
        case 'y':
            FText += count <= 2 ? Padded(FParts.Year % 100, 2) : Padded(FParts.Year, 4);
            break;
        case 'm':
            FText += count <= 2   ? Padded(FParts.Month, pair)
                     : count == 3 ? FLocale.ShortMonthNames[month]
                                  : FLocale.LongMonthNames[month];
            break;
        case 'd':
            FText += count <= 2 ? Padded(FParts.Day, pair) : DayName(count > 3);
            break;
        case 'h':
            FText += Padded(Hour(), pair);
            break;
        case 'n':
            FText += Padded(FParts.Minute, pair);
            break;
        case 's':
            FText += Padded(FParts.Second, pair);
            break;
        case 'z':
            FText += Padded(FParts.MilliSecond, count == 1 ? 1 : 3);
            break;
        case '/':
            FText += FLocale.DateSeparator;
            break;
        case ':':
            FText += FLocale.TimeSeparator;
            break;
        default:
            FText += FFormat.substr(FAt, count);
    }
}

}  // namespace

std::string FormatDateTime(std::string_view format, TDateTime value, const TLocaleFormats& locale)
{
    return TDateTimeWriter(format, value, locale).Write();
}

}  // namespace plotkit
