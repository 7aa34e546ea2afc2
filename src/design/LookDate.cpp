#include "design/LookDate.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "graph/KxAxis.h"
#include "host/Host.h"
#include "series/KxSeries.h"

namespace plotkit {

namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Takes a separator out of `separators` and `digits` digits off the front.
bool TakeNumber(std::string_view& text, std::string_view separators, std::size_t digits, int& number)
{
    const std::size_t from = separators.empty() ? 0 : 1;
    if (text.size() < from + digits || (from == 1 && separators.find(text[0]) == separators.npos))
        return false;
    const std::string_view part = text.substr(from, digits);
    if (!std::ranges::all_of(part, IsDigit))
        return false;
    std::from_chars(part.data(), part.data() + part.size(), number);
    text.remove_prefix(from + digits);
    return true;
}

/// Thousandths, whatever the number of digits.
bool TakeFraction(std::string_view& text, int& milliSecond)
{
    if (text.size() < 2 || text[0] != '.' || !std::ranges::all_of(text.substr(1), IsDigit))
        return false;
    double fraction = 0;
    const std::string number = "0" + std::string(text);
    std::from_chars(number.data(), number.data() + number.size(), fraction);
    milliSecond = std::min(static_cast<int>(std::lround(fraction * 1000)), 999);
    text = {};
    return true;
}

}  // namespace

bool HasLookDates(const TComponent& component)
{
    const auto* series = dynamic_cast<const TKxSeries*>(&component);
    const TKxAxis* axis = series ? series->GetXAxis() : dynamic_cast<const TKxAxis*>(&component);
    return axis && axis->GetScaling() == AxDateTime;
}

std::string LookDateText(TDateTime value)
{
    const TDateTimeParts parts = DecodeDateTime(value);
    const char* format = parts.MilliSecond != 0                 ? "yyyy-mm-dd hh\":\"nn\":\"ss.zzz"
                         : parts.Second != 0                    ? "yyyy-mm-dd hh\":\"nn\":\"ss"
                         : parts.Hour != 0 || parts.Minute != 0 ? "yyyy-mm-dd hh\":\"nn"
                                                                : "yyyy-mm-dd";
    return FormatDateTime(format, value, Host().Locale());
}

std::optional<TDateTime> LookDateValue(std::string_view text)
{
    const auto isBlank = [](char c) { return c == ' '; };
    text.remove_prefix(static_cast<std::size_t>(std::ranges::find_if_not(text, isBlank) - text.begin()));
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    TDateTimeParts parts{0, 1, 1, 0, 0, 0, 0};
    if (!TakeNumber(text, "", 4, parts.Year))
        return {};
    bool isRead = text.empty() || TakeNumber(text, "-", 2, parts.Month);
    isRead = isRead && (text.empty() || TakeNumber(text, "-", 2, parts.Day));
    if (isRead && !text.empty())
        isRead = TakeNumber(text, " T", 2, parts.Hour) && TakeNumber(text, ":", 2, parts.Minute);
    isRead = isRead && (text.empty() || TakeNumber(text, ":", 2, parts.Second));
    isRead = isRead && (text.empty() || TakeFraction(text, parts.MilliSecond));
    return isRead ? TryEncodeDateTime(parts) : std::nullopt;
}

}  // namespace plotkit
