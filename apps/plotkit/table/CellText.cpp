#include "plotkit/table/CellText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "host/NumberFormat.h"
#include "host/StringList.h"
#include "host/TextMeasurer.h"
#include "plotkit/table/DateText.h"

namespace plotkit {
namespace {

constexpr std::size_t LongestNumber = 64;

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::optional<double> FromChars(std::string_view text)
{
    double value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error == std::errc() && stop == end)
        return value;
    return std::nullopt;
}

/// Decimal commas, exponents written as "D+03", a leading "+" and numbers beyond the range of doubles.
std::optional<double> ReadUncommonNumber(std::string_view cell, char decimal)
{
    if (decimal == ',' && cell.find('.') != std::string_view::npos)
        return std::nullopt;
    if (cell.size() > LongestNumber)
        return ParseReal(cell, decimal);
    std::array<char, LongestNumber> buffer;
    for (std::size_t i = 0; i < cell.size(); ++i) {
        const bool isExponent =
            (cell[i] == 'D' || cell[i] == 'd') && i + 1 < cell.size() && (cell[i + 1] == '+' || cell[i + 1] == '-');
        buffer[i] = cell[i] == decimal ? '.' : isExponent ? 'e' : cell[i];
    }
    const std::string_view swapped(buffer.data(), cell.size());
    if (const auto value = FromChars(swapped))
        return value;
    return ParseReal(swapped);
}

bool IsMissingWord(std::string_view cell)
{
    constexpr std::array<std::string_view, 12> words{"nan", "na", "n/a",  "#n/a",    "#na",    "null",
                                                     "-",   "--", "-nan", "1.#qnan", "1.#inf", "-1.#ind"};
    return cell.size() <= 8 && std::any_of(words.begin(), words.end(), [&](auto word) { return SameText(word, cell); });
}

/// The thousands mark at the front of `text`: its length, 0 when there is none.
std::size_t MarkLength(std::string_view text)
{
    for (const std::string_view mark : {",", ".", " ", "'", "\xC2\xA0", "\xE2\x80\xAF", "\xE2\x80\x99"})
        if (text.starts_with(mark))
            return mark.size();
    return 0;
}

bool StartsWithThreeDigits(std::string_view text)
{
    return text.size() >= 3 && std::all_of(text.begin(), text.begin() + 3, IsDigit) &&
           (text.size() == 3 || !IsDigit(text[3]));
}

/// 1,234.5 or 1.234.567 or 1 234,5: groups of three digits behind one to three, all with the same mark.
bool IsGroupedNumber(std::string_view text)
{
    if (text.starts_with('-') || text.starts_with('+'))
        text.remove_prefix(1);
    const auto first = static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsDigit) - text.begin());
    if (first < 1 || first > 3 || text.front() == '0')
        return false;
    text.remove_prefix(first);
    const std::string_view mark = text.substr(0, MarkLength(text));
    if (mark.empty())
        return false;
    std::size_t groups = 0;
    for (; text.starts_with(mark) && StartsWithThreeDigits(text.substr(mark.size())); ++groups)
        text.remove_prefix(mark.size() + 3);
    if (groups == 0 || text.empty())
        return groups > 0;
    if ((text.front() != '.' && text.front() != ',') || text.starts_with(mark))
        return false;
    return std::all_of(text.begin() + 1, text.end(), IsDigit);
}

bool IsUtf8(std::string_view text)
{
    for (std::size_t i = 0; i < text.size();) {
        const auto length = static_cast<std::size_t>(CodePointLength(text, i));
        if (length == 1 && static_cast<unsigned char>(text[i]) >= 0x80)
            return false;
        i += length;
    }
    return true;
}

std::string FromLatin1(std::string_view text)
{
    std::string utf8;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 0x80) {
            utf8 += c;
        } else {
            utf8 += static_cast<char>(0xC0 | code >> 6);
            utf8 += static_cast<char>(0x80 | (code & 0x3F));
        }
    }
    return utf8;
}

}  // namespace

std::string_view Trimmed(std::string_view text)
{
    constexpr auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string NameText(std::string_view text)
{
    text = Trimmed(text);
    std::string name = IsUtf8(text) ? std::string(text) : FromLatin1(text);
    for (char& c : name)
        if (static_cast<unsigned char>(c) < ' ' || c == '\x7F')
            c = ' ';
    return name;
}

std::string Shortened(std::string_view text)
{
    constexpr std::size_t longest = 40;
    const std::string whole = NameText(text.substr(0, 4 * longest));
    if (whole.size() <= longest)
        return whole;
    std::size_t end = 0;
    while (end + static_cast<std::size_t>(CodePointLength(whole, end)) <= longest)
        end += static_cast<std::size_t>(CodePointLength(whole, end));
    return whole.substr(0, end) + "...";
}

TCellContent ReadCell(std::string_view cell, char decimal)
{
    cell = Trimmed(cell);
    if (cell.empty())
        return {};
    auto number = decimal == '.' ? FromChars(cell) : std::nullopt;
    if (!number)
        number = ReadUncommonNumber(cell, decimal);
    if (number)
        return std::isfinite(*number) ? TCellContent{ckNumber, *number} : TCellContent{};
    if (IsMissingWord(cell))
        return {};
    if (const auto date = ReadDateText(cell))
        return {ckDateTime, date->DayFirst, date->MonthFirst, date->IsTwoWays, date->IsUniversal};
    if (const auto time = ParseTimeText(cell))
        return {ckTimeOfDay, *time};
    return {IsGroupedNumber(cell) ? ckGrouped : ckText, 0};
}

}  // namespace plotkit
