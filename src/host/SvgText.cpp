#include "host/SvgText.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>

#include "host/SvgPath.h"
#include "host/SymbolEncoding.h"

namespace plotkit {

namespace {

constexpr char32_t Replacement = 0xFFFD;

bool IsAllowed(char32_t c)
{
    if (c < 0x20)
        return c == '\t' || c == '\n' || c == '\r';
    return c != 0xFFFE && c != 0xFFFF && (c < 0xD800 || c > 0xDFFF) && c <= 0x10FFFF;
}

void AppendUtf8(std::string& text, char32_t c)
{
    const auto tail = [&](unsigned shift) { text += static_cast<char>(0x80U | (c >> shift & 0x3FU)); };
    if (c < 0x80) {
        text += static_cast<char>(c);
    } else if (c < 0x800) {
        text += static_cast<char>(0xC0U | c >> 6U);
        tail(0);
    } else if (c < 0x10000) {
        text += static_cast<char>(0xE0U | c >> 12U);
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0U | c >> 18U);
        tail(12);
        tail(6);
        tail(0);
    }
}

bool HasPart(std::string_view name, std::string_view part)
{
    const auto same = [](unsigned char a, unsigned char b) { return std::tolower(a) == b; };
    return std::search(name.begin(), name.end(), part.begin(), part.end(), same) != name.end();
}

/// What stands in for a family where it is missing, fonts of the same widths first.
std::string_view FallbacksOf(const TFontState& font)
{
    if (IsSymbolFont(font.Name))
        return "Arial,'Liberation Sans','DejaVu Sans',sans-serif";
    for (const std::string_view part : {"courier", "mono", "consol", "fixed", "typewriter"})
        if (font.Pitch == fpFixed || HasPart(font.Name, part))
            return "'Courier New','Liberation Mono',monospace";
    for (const std::string_view part : {"times", "roman", "georgia", "garamond", "palatino", "serif"})
        if (HasPart(font.Name, part) && !HasPart(font.Name, "sans"))
            return "'Times New Roman','Liberation Serif',serif";
    return "Arial,'Liberation Sans',Helvetica,sans-serif";
}

std::string FamiliesOf(const TFontState& font)
{
    const std::string_view fallbacks = FallbacksOf(font);
    if (IsSymbolFont(font.Name) || font.Name.empty() || fallbacks.substr(0, font.Name.size()) == font.Name)
        return std::string(fallbacks);
    std::string name = font.Name;
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '\'' || c == '\\'; }, ' ');
    std::string families;
    AppendXml(families, "'" + name + "',");
    return families + std::string(fallbacks);
}

bool NeedsSpaces(std::u32string_view characters)
{
    return characters.front() == ' ' || characters.back() == ' ' || characters.find(U"  ") != characters.npos;
}

}  // namespace

void AppendXml(std::string& text, std::u32string_view characters)
{
    for (const char32_t c : characters) {
        if (c == '&')
            text += "&amp;";
        else if (c == '<')
            text += "&lt;";
        else if (c == '>')
            text += "&gt;";
        else if (c == '"')
            text += "&quot;";
        else
            AppendUtf8(text, IsAllowed(c) ? c : Replacement);
    }
}

void AppendXml(std::string& text, std::string_view utf8)
{
    AppendXml(text, ShownCharacters(utf8, false));
}

std::string SvgFontAttributes(const TFontState& font)
{
    std::string text = " fill=\"" + SvgColor(font.Color) + "\" font-family=\"" + FamiliesOf(font) + "\"";
    AppendSvgAttribute(text, "font-size", std::max(1, std::abs(font.Height())));
    if (font.Bold)
        text += " font-weight=\"bold\"";
    if (font.Italic)
        text += " font-style=\"italic\"";
    return text + " text-anchor=\"middle\"";
}

void AppendSvgText(std::string& text, const TTextRun& run, const TTextMeasurer& measurer)
{
    constexpr double tolerance = 0.025;
    const std::u32string characters = ShownCharacters(run.Text, IsSymbolFont(run.Font.Name));
    if (characters.empty())
        return;
    const double natural = measurer.Width(run.Text, run.Font);
    const double width = run.Advances.empty() ? natural : run.Advances.back();
    text += "<text";
    AppendSvgAttribute(text, "x", run.At.X + width / 2);
    AppendSvgAttribute(text, "y", run.At.Y + measurer.Ascent(run.Font));
    text += SvgTurn(run);
    const auto count = static_cast<double>(characters.size());
    if (std::abs(width - natural) > std::max(count, tolerance * natural))
        AppendSvgAttribute(text, "letter-spacing", (width - natural) / count);
    // Not inherited everywhere, unlike the font.
    if (run.Font.Underline || run.Font.StrikeOut)
        text += std::string(" text-decoration=\"") + (run.Font.Underline ? "underline" : "") +
                (run.Font.Underline && run.Font.StrikeOut ? " " : "") + (run.Font.StrikeOut ? "line-through" : "") +
                "\"";
    if (NeedsSpaces(characters))
        text += " xml:space=\"preserve\"";
    text += '>';
    AppendXml(text, characters);
    text += "</text>\n";
}

std::string SvgTurn(const TTextRun& run)
{
    if (run.Font.Angle % 3600 == 0)
        return {};
    std::string text = " transform=\"rotate(";
    AppendSvgNumber(text, -(run.Font.Angle % 3600) / 10.0);
    for (const std::int32_t place : {run.At.X, run.At.Y}) {
        text += ' ';
        AppendSvgNumber(text, place + 0.5);
    }
    return text + ")\"";
}

}  // namespace plotkit
