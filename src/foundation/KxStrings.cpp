#include "foundation/KxStrings.h"

#include <algorithm>
#include <vector>

#include "host/Host.h"
#include "host/NumberFormat.h"
#include "host/StringList.h"

namespace plotkit {

namespace {

enum TTokenKind : std::uint8_t
{
    tkAny,
    tkVariable
};

bool IsDelimiter(char c)
{
    constexpr std::string_view delimiters = "()*+-/^";
    return delimiters.find(c) != std::string_view::npos;
}

bool IsToken(std::string_view s, std::size_t at, TTokenKind kind)
{
    const bool first = at == 0, last = at + 1 == s.size();
    if (!first && !IsDelimiter(s[at - 1]))
        return false;
    if (last)
        return true;
    return IsDelimiter(s[at + 1]) && !(kind == tkVariable && s[at + 1] == '(');
}

/// Places of the tokens `c`, from 0.
std::vector<std::size_t> FindTokens(std::string_view s, char c, TTokenKind kind)
{
    std::string work = UpperCase(s);
    const char wanted = UpperCase({&c, 1}).front();
    std::vector<std::size_t> places;
    for (std::size_t at = work.find(wanted); at != std::string::npos; at = work.find(wanted, at + 1)) {
        if (IsToken(work, at, kind))
            places.push_back(at);
        work[at] = '\0';  // a delimiter that was looked for no longer stands beside the next one
    }
    return places;
}

std::string Replaced(std::string_view s, char from, char to)
{
    std::string text(s);
    std::replace(text.begin(), text.end(), from, to);
    return text;
}

char Separator()
{
    return Host().Locale().DecimalSeparator;
}

}  // namespace

std::string StripBlanks(std::string_view s)
{
    std::string text(s);
    std::erase(text, ' ');
    return text;
}

bool ContainsToken(std::string_view s, char c)
{
    return !FindTokens(s, c, tkAny).empty();
}

std::string ReplaceTokenWith(std::string_view s, char c, std::string_view replacement)
{
    std::string text(s);
    for (const std::size_t at : FindTokens(s, c, tkAny)) {
        // An empty replacement may have left less text than that.
        const std::size_t place = std::min(at, text.size());
        text.replace(place, std::min<std::size_t>(1, text.size() - place), replacement);
    }
    return text;
}

std::string ReplaceTokenWithBracket(std::string_view s, char c, std::string_view replacement)
{
    std::string text;
    std::size_t done = 0;
    for (const std::size_t at : FindTokens(s, c, tkVariable)) {
        text.append(s.substr(done, at - done)).append(replacement);
        done = at + 1;
    }
    return text.append(s.substr(done));
}

std::string DeAmericanize(std::string_view s)
{
    return Replaced(s, '.', Separator());
}

std::string Americanize(std::string_view s)
{
    return Replaced(s, Separator(), '.');
}

std::string IntToStrDigits(int n, std::int16_t digits)
{
    const std::string text = std::to_string(n);
    const auto missing = static_cast<int>(digits) - static_cast<int>(text.size());
    return std::string(static_cast<std::size_t>(std::max(0, missing)), '0') + text;
}

std::string SecondsToStr(int n)
{
    constexpr int minute = 60, hour = 60 * minute, day = 24 * hour;
    const int hours = n / hour % 24, days = n / day;
    std::string text = IntToStrDigits(n / minute % 60, 2) + ":" + IntToStrDigits(n % 60, 2);
    if (hours > 0)
        text = IntToStrDigits(hours, 2) + ":" + text;
    if (days > 0)
        text = std::to_string(days) + "d" + text;
    return text;
}

bool IsNumber(std::string_view s)
{
    return ParseReal(s, Separator()).has_value();
}

std::string RealToStr(double x)
{
    return FormatGeneral(x, 14, 0, Separator());
}

std::string RealToStrDigits(double x, int digits)
{
    constexpr int defaultPrecision = 15;
    if (digits == 0)
        return FormatGeneral(x, defaultPrecision, 0, Separator());
    const auto fits = [digits](const std::string& text) { return static_cast<int>(text.size()) <= digits; };
    std::string text = FormatGeneral(x, digits, 0, Separator());
    // At the full precision an exponent is filled up to `digits` digits, so that it never fits.
    bool done = fits(text) && text.find('E') == std::string::npos;
    // More than all digits a double has give the same text again.
    for (int precision = std::min(digits, 18); !done && precision > 0; done = fits(text))
        text = FormatGeneral(x, --precision, 0, Separator());
    return text;
}

std::string RealToAmericanStr(double x)
{
    return Americanize(RealToStr(x));
}

std::string RealToAmericanStrDigits(double x, int digits)
{
    return Americanize(RealToStrDigits(x, digits));
}

std::string Float8_4(double x)
{
    return FormatGeneral(x, 8, 4, Separator());
}

std::string ColumnToCharHeader(int n)
{
    std::string header;
    for (; n > 0; n = (n - 1) / 26)
        header.insert(header.begin(), static_cast<char>('A' + (n - 1) % 26));
    return header;
}

}  // namespace plotkit
