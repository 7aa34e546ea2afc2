#include "host/ValueText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <utility>

#include "host/NumberFormat.h"
#include "host/StringList.h"
#include "host/TextMeasurer.h"

namespace plotkit {

namespace {

constexpr std::string_view HexDigits = "0123456789ABCDEF";
/// The code behind a backslash and the character it stands for.
constexpr std::array<std::pair<char, char>, 5> Escapes{
    {{'n', '\n'}, {'t', '\t'}, {'r', '\r'}, {'"', '"'}, {'\\', '\\'}}};

std::string Hex(std::uint32_t value, int digits)
{
    std::string text;
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        text += HexDigits[value >> shift & 0xF];
    return text;
}

std::optional<std::uint32_t> ParseHex(std::string_view text)
{
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (error != std::errc{} || end != text.data() + text.size())
        return {};
    return value;
}

std::string Escaped(std::string_view character)
{
    const char c = character[0];
    for (const auto& [code, meaning] : Escapes)
        if (c == meaning)
            return {'\\', code};
    const auto byte = static_cast<unsigned char>(c);
    const bool isReadable = character.size() > 1 || (byte >= 0x20 && byte < 0x7F);
    return isReadable ? std::string(character) : "\\x" + Hex(byte, 2);
}

/// Takes what follows a backslash from the front of `rest`.
std::optional<char> TakeEscape(std::string_view& rest)
{
    if (rest.empty())
        return {};
    const char first = rest.front();
    rest.remove_prefix(1);
    for (const auto& [code, meaning] : Escapes)
        if (first == code)
            return meaning;
    const auto byte = first == 'x' && rest.size() >= 2 ? ParseHex(rest.substr(0, 2)) : std::nullopt;
    if (!byte)
        return {};
    rest.remove_prefix(2);
    return static_cast<char>(*byte);
}

}  // namespace

std::string QuoteText(std::string_view text)
{
    std::string quoted = "\"";
    while (!text.empty()) {
        const auto length = static_cast<std::size_t>(CodePointLength(text, 0));
        quoted += Escaped(text.substr(0, length));
        text.remove_prefix(length);
    }
    return quoted + '"';
}

std::optional<std::string> UnquoteText(std::string_view text)
{
    if (text.size() < 2 || text.front() != '"' || text.back() != '"')
        return {};
    text = text.substr(1, text.size() - 2);
    std::string plain;
    while (!text.empty()) {
        char c = text.front();
        text.remove_prefix(1);
        if (c == '"')
            return {};
        if (c == '\\') {
            const auto meaning = TakeEscape(text);
            if (!meaning)
                return {};
            c = *meaning;
        }
        plain += c;
    }
    return plain;
}

std::string ColorText(std::int32_t color)
{
    return '$' + Hex(static_cast<std::uint32_t>(color), 8);
}

std::optional<std::int32_t> ParseColorText(std::string_view text)
{
    if (!text.starts_with('$')) {
        const auto number = ParseInteger(text);
        return number && std::in_range<std::int32_t>(*number) ? std::optional(static_cast<std::int32_t>(*number))
                                                              : std::nullopt;
    }
    const auto bits = text.size() <= 9 ? ParseHex(text.substr(1)) : std::nullopt;
    return bits ? std::optional(static_cast<std::int32_t>(*bits)) : std::nullopt;
}

std::optional<double> ParseExactReal(std::string_view text)
{
    text = TrimBlanks(text);
    if (SameText(text, "nan"))
        return std::numeric_limits<double>::quiet_NaN();
    if (SameText(text, "inf"))
        return std::numeric_limits<double>::infinity();
    if (SameText(text, "-inf"))
        return -std::numeric_limits<double>::infinity();
    return ParseReal(text);
}

std::string Excerpt(std::string_view text)
{
    constexpr std::size_t Longest = 40;
    std::size_t end = 0;
    while (end < text.size()) {
        const auto next = end + static_cast<std::size_t>(CodePointLength(text, end));
        if (next > Longest)
            return std::string(text.substr(0, end)) + "...";
        end = next;
    }
    return std::string(text);
}

std::string_view TrimBlanks(std::string_view text)
{
    constexpr std::string_view Blanks = " \t\r\n\v\f";
    const auto first = text.find_first_not_of(Blanks);
    return first == std::string_view::npos ? std::string_view{}
                                           : text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

}  // namespace plotkit
