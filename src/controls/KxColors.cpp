#include "controls/KxColors.h"

#include <algorithm>
#include <array>

#include "foundation/KxStrings.h"
#include "host/Host.h"
#include "host/NumberFormat.h"
#include "host/StringList.h"

namespace plotkit {

namespace {

constexpr std::array<TKxNamedColor, 8> Distinct{{
    {"Black", clBlack},
    {"Orange", RgbColor(0xE6, 0x9F, 0x00)},
    {"Sky blue", RgbColor(0x56, 0xB4, 0xE9)},
    {"Bluish green", RgbColor(0x00, 0x9E, 0x73)},
    {"Yellow", RgbColor(0xF0, 0xE4, 0x42)},
    {"Blue", RgbColor(0x00, 0x72, 0xB2)},
    {"Vermillion", RgbColor(0xD5, 0x5E, 0x00)},
    {"Reddish purple", RgbColor(0xCC, 0x79, 0xA7)},
}};

constexpr std::array<TKxNamedColor, 8> Plain{{
    {"White", clWhite},
    {"Light grey", RgbColor(0xC0, 0xC0, 0xC0)},
    {"Grey", clGray},
    {"Dark grey", RgbColor(0x40, 0x40, 0x40)},
    {"Pure red", clRed},
    {"Pure green", RgbColor(0x00, 0xFF, 0x00)},
    {"Pure blue", clBlue},
    {"Pure magenta", RgbColor(0xFF, 0x00, 0xFF)},
}};

constexpr std::array<TKxNamedColor, 8> Desktop{{
    {"Window", clWindow},
    {"Window text", clWindowText},
    {"Button", clButtonFace},
    {"Button text", clButtonText},
    {"Highlight", clHighlight},
    {"Highlighted text", clHighlightText},
    {"Shadow", clButtonShadow},
    {"Disabled text", clGrayText},
}};

constexpr std::array RecentRows{
    Property<&TKxRecentColors::GetText, &TKxRecentColors::SetText>("Colors"),
};

const TKxNamedColor* FindOffered(auto matches)
{
    for (const std::span<const TKxNamedColor> offer : {DistinctColors(), PlainColors(), DesktopColors()})
        for (const TKxNamedColor& one : offer)
            if (matches(one))
                return &one;
    return nullptr;
}

std::optional<int> HexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char small = c >= 'A' && c <= 'F' ? static_cast<char>(c - 'A' + 'a') : c;
    return small >= 'a' && small <= 'f' ? std::optional(small - 'a' + 10) : std::nullopt;
}

std::optional<TColor> ParseHex(std::string_view digits)
{
    if (digits.size() != 3 && digits.size() != 6)
        return std::nullopt;
    const std::size_t each = digits.size() / 3;
    std::array<std::uint8_t, 3> parts{};
    for (std::size_t i = 0; i < 3; ++i) {
        const auto high = HexDigit(digits[i * each]), low = HexDigit(digits[i * each + each - 1]);
        if (!high || !low)
            return std::nullopt;
        parts[i] = static_cast<std::uint8_t>(*high * 16 + *low);
    }
    return RgbColor(parts[0], parts[1], parts[2]);
}

std::optional<TColor> ParseParts(std::string_view text)
{
    std::array<std::uint8_t, 3> parts{};
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t comma = i < 2 ? text.find(',') : text.size();
        if (comma == text.npos)
            return std::nullopt;
        const auto part = ParseInteger(text.substr(0, comma));
        if (!part || *part < 0 || *part > 255)
            return std::nullopt;
        parts[i] = static_cast<std::uint8_t>(*part);
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return RgbColor(parts[0], parts[1], parts[2]);
}

}  // namespace

std::span<const TKxNamedColor> DistinctColors()
{
    return Distinct;
}

std::span<const TKxNamedColor> PlainColors()
{
    return Plain;
}

std::span<const TKxNamedColor> DesktopColors()
{
    return Desktop;
}

std::string ColorHex(TColor color)
{
    color = Host().ResolveColor(color);
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "#";
    for (const std::uint8_t part : {RedOf(color), GreenOf(color), BlueOf(color)}) {
        text += digits[part / 16];
        text += digits[part % 16];
    }
    return text;
}

std::string ColorName(TColor color)
{
    const TKxNamedColor* offered = FindOffered([color](const TKxNamedColor& one) { return one.Color == color; });
    return offered ? std::string(offered->Name) : ColorHex(color);
}

std::optional<TColor> ParseColor(std::string_view text)
{
    // No colour is longer; a pasted book is not worth searching.
    constexpr std::size_t longest = 40;
    if (text.size() > longest)
        return std::nullopt;
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    if (const auto* offered = FindOffered([text](const TKxNamedColor& one) { return SameText(one.Name, text); }))
        return offered->Color;
    const std::string bare = StripBlanks(text);
    text = bare;
    if (!text.empty() && text.front() == '#')
        return ParseHex(text.substr(1));
    if (StartsWithText(text, "rgb(") && text.back() == ')')
        text = text.substr(4, text.size() - 5);
    const auto parts = ParseParts(text);
    return parts ? parts : ParseHex(text);
}

constinit const TClassInfo TKxRecentColors::Class{"TKxRecentColors", &TComponent::Class, RecentRows,
                                                  &CreateComponent<TKxRecentColors>};

void TKxRecentColors::Use(TColor color)
{
    if (FindOffered([color](const TKxNamedColor& one) { return one.Color == color; }))
        return;
    std::erase(FColors, color);
    FColors.insert(FColors.begin(), color);
    if (FColors.size() > MaxCount)
        FColors.pop_back();
}

std::string TKxRecentColors::GetText() const
{
    std::string text;
    for (const TColor color : FColors)
        text += (text.empty() ? "" : ";") + ColorHex(color);
    return text;
}

void TKxRecentColors::SetText(const std::string& text)
{
    FColors.clear();
    for (std::size_t end = text.size(); end != text.npos;) {
        const std::size_t before = end == 0 ? text.npos : text.rfind(';', end - 1);
        const std::size_t begin = before == text.npos ? 0 : before + 1;
        if (const auto color = ParseColor(std::string_view(text).substr(begin, end - begin)))
            Use(*color);
        end = before;
    }
}

}  // namespace plotkit
