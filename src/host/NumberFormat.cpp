#include "host/NumberFormat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace plotkit {

namespace {

constexpr int MaxDigits = 17;

/// 0.D1D2D3... * 10^Point, D1 not 0; no digits stand for zero.
struct TDecimal
{
    std::array<char, MaxDigits> Digits{};
    int Count = 0;
    int Point = 0;
    bool Negative = false;

    std::string_view Text() const { return {Digits.data(), static_cast<std::size_t>(Count)}; }
    char DigitAt(int i) const { return i >= 0 && i < Count ? Digits[static_cast<std::size_t>(i)] : '0'; }
    void StripZeros();
    void RoundTo(int digits);
};

void TDecimal::StripZeros()
{
    while (Count > 0 && DigitAt(Count - 1) == '0')
        --Count;
    if (Count == 0)
        Point = 0;
}

void TDecimal::RoundTo(int digits)
{
    if (digits >= Count)
        return;
    if (digits < 0) {
        Count = 0;
        Point = 0;
        return;
    }
    const bool up = DigitAt(digits) >= '5';
    Count = digits;
    if (up) {
        while (Count > 0 && DigitAt(Count - 1) == '9')
            --Count;
        if (Count > 0) {
            ++Digits[static_cast<std::size_t>(Count - 1)];
        } else {
            Digits[0] = '1';
            Count = 1;
            ++Point;
        }
    }
    StripZeros();
}

/// `value` must be finite.
TDecimal ToDecimal(double value)
{
    TDecimal decimal;
    decimal.Negative = value < 0;
    if (value == 0)
        return decimal;
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                   std::chars_format::scientific, MaxDigits - 1)
                         .ptr;
    decimal.Digits[0] = text[0];
    std::copy_n(text.data() + 2, MaxDigits - 1, decimal.Digits.begin() + 1);
    decimal.Count = MaxDigits;
    const char* exponent = text.data() + MaxDigits + 2;
    if (*exponent == '+')
        ++exponent;
    std::from_chars(exponent, end, decimal.Point);
    ++decimal.Point;
    decimal.StripZeros();
    return decimal;
}

std::string NotFiniteText(double value)
{
    if (std::isnan(value))
        return "NAN";
    return value < 0 ? "-INF" : "INF";
}

std::string PaddedInteger(int value, int width)
{
    const std::string digits = std::to_string(value);
    const auto missing = static_cast<std::size_t>(width) - std::min(digits.size(), static_cast<std::size_t>(width));
    return std::string(missing, '0') + digits;
}

/// The digits in fixed notation with `decimals` of them behind the separator.
std::string FixedText(const TDecimal& number, int decimals, char separator)
{
    std::string text;
    if (number.Negative && number.Count > 0)
        text += '-';
    if (number.Point <= 0)
        text += '0';
    for (int i = 0; i < number.Point; ++i)
        text += number.DigitAt(i);
    if (decimals > 0)
        text += separator;
    for (int i = 0; i < decimals; ++i)
        text += number.DigitAt(number.Point + i);
    return text;
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::size_t SkipDigits(std::string_view text, std::size_t at)
{
    while (at < text.size() && IsDigit(text[at]))
        ++at;
    return at;
}

std::size_t SkipSign(std::string_view text, std::size_t at)
{
    return at < text.size() && (text[at] == '+' || text[at] == '-') ? at + 1 : at;
}

std::size_t SkipBlanks(std::string_view text)
{
    return std::min(text.find_first_not_of(' '), text.size());
}

/// Where a number at `start` ends, whether it is complete, and where its separator stands.
struct TNumberSpan
{
    std::size_t End = 0;
    bool Complete = false;
    std::size_t Separator = std::string_view::npos;
};

TNumberSpan FindReal(std::string_view text, std::size_t start, char separator)
{
    TNumberSpan span;
    const std::size_t whole = SkipSign(text, start);
    std::size_t at = SkipDigits(text, whole);
    std::size_t digits = at - whole;
    if (at < text.size() && (text[at] == '.' || text[at] == separator)) {
        span.Separator = at;
        const std::size_t fraction = at + 1;
        at = SkipDigits(text, fraction);
        digits += at - fraction;
    }
    span.End = at;
    if (digits == 0)
        return span;
    span.Complete = true;
    if (at < text.size() && (text[at] == 'E' || text[at] == 'e')) {
        const std::size_t exponent = SkipSign(text, at + 1);
        span.End = SkipDigits(text, exponent);
        span.Complete = span.End > exponent;
    }
    return span;
}

/// Zero or infinite, for a number that from_chars finds out of range.
double BeyondRange(std::string_view number)
{
    const std::size_t mark = std::min(number.find_first_of("Ee"), number.size());
    const std::string_view mantissa = number.substr(0, mark);
    const std::size_t first = mantissa.find_first_of("123456789");
    if (first == std::string_view::npos)
        return 0;
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    double exponent = first < point ? static_cast<double>(point - first) : -static_cast<double>(first - point);
    if (mark < number.size()) {
        std::string_view digits = number.substr(SkipSign(number, mark + 1));
        const bool negative = number[mark + 1] == '-';
        double value = 0;
        for (const char c : digits)
            value = value * 10 + (c - '0');
        exponent += negative ? -value : value;
    }
    const double magnitude = exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    return number.front() == '-' ? -magnitude : magnitude;
}

/// `number` is complete and has "." as separator.
double RealOf(std::string_view number)
{
    if (number.front() == '+')
        number.remove_prefix(1);
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    return result.ec == std::errc::result_out_of_range ? BeyondRange(number) : value;
}

std::string_view Trimmed(std::string_view text)
{
    text.remove_prefix(SkipBlanks(text));
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

int PositionBehind(std::string_view text, std::size_t end)
{
    return end == text.size() ? 0 : static_cast<int>(end) + 1;
}

}  // namespace

std::string FormatGeneral(double value, int precision, int exponentDigits, char separator)
{
    if (!std::isfinite(value))
        return NotFiniteText(value);
    precision = std::clamp(precision, 1, MaxDigits);
    TDecimal number = ToDecimal(value);
    number.RoundTo(precision);
    if (number.Count == 0)
        return "0";
    if (number.Point <= precision && number.Point >= -4)
        return FixedText(number, std::max(0, number.Count - number.Point), separator);
    const int exponent = number.Point - 1;
    std::string text(number.Negative ? "-" : "");
    text += number.DigitAt(0);
    if (number.Count > 1)
        text += separator;
    text += number.Text().substr(1);
    text += exponent < 0 ? "E-" : "E";
    return text + PaddedInteger(std::abs(exponent), std::clamp(exponentDigits, 0, 1000));
}

std::string FormatFixed(double value, int precision, int decimals, char separator)
{
    constexpr int maxWhole = 18;
    if (!std::isfinite(value))
        return NotFiniteText(value);
    precision = std::clamp(precision, 1, MaxDigits);
    decimals = std::clamp(decimals, 0, 18);
    TDecimal number = ToDecimal(value);
    number.RoundTo(precision);
    if (number.Point > maxWhole)
        return FormatGeneral(value, precision, 0, separator);
    number.RoundTo(number.Point + decimals);
    return FixedText(number, decimals, separator);
}

std::string FormatScientific(double value)
{
    constexpr int digits = 15;
    if (!std::isfinite(value))
        return NotFiniteText(value);
    TDecimal number = ToDecimal(value);
    number.RoundTo(digits);
    const int exponent = number.Count == 0 ? 0 : number.Point - 1;
    std::string text(number.Negative ? "-" : " ");
    text += number.DigitAt(0);
    text += '.';
    for (int i = 1; i < digits; ++i)
        text += number.DigitAt(i);
    text += exponent < 0 ? "E-" : "E+";
    return text + PaddedInteger(std::abs(exponent), 4);
}

std::string FormatExact(double value)
{
    if (std::isnan(value))
        return "nan";
    std::array<char, 32> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

std::optional<double> ParseReal(std::string_view text, char separator)
{
    text = Trimmed(text);
    const TNumberSpan span = FindReal(text, 0, separator);
    if (!span.Complete || span.End != text.size())
        return std::nullopt;
    if (span.Separator == std::string_view::npos || text[span.Separator] == '.')
        return RealOf(text);
    std::string american(text);
    american[span.Separator] = '.';
    return RealOf(american);
}

std::optional<long long> ParseInteger(std::string_view text)
{
    text = Trimmed(text);
    const std::size_t digits = SkipSign(text, 0);
    if (digits == text.size() || SkipDigits(text, digits) != text.size())
        return std::nullopt;
    if (text.front() == '+')
        text.remove_prefix(1);
    long long value = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), value).ec != std::errc())
        return std::nullopt;
    return value;
}

TNumberPrefix ScanReal(std::string_view text)
{
    const std::size_t start = SkipBlanks(text);
    const TNumberSpan span = FindReal(text, start, '.');
    if (!span.Complete)
        return {0, static_cast<int>(span.End) + 1};
    return {RealOf(text.substr(start, span.End - start)), PositionBehind(text, span.End)};
}

TIntegerPrefix ScanInteger(std::string_view text)
{
    const std::size_t start = SkipBlanks(text);
    const std::size_t digits = SkipSign(text, start);
    const std::size_t end = SkipDigits(text, digits);
    if (end == digits)
        return {0, static_cast<int>(end) + 1};
    int value = 0;
    const std::size_t number = text[start] == '+' ? digits : start;
    if (std::from_chars(text.data() + number, text.data() + end, value).ec != std::errc())
        return {0, static_cast<int>(end) + 1};
    return {value, PositionBehind(text, end)};
}

}  // namespace plotkit
