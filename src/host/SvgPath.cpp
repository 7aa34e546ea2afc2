#include "host/SvgPath.h"

#include <charconv>

#include "host/CheckedMath.h"
#include "host/Host.h"

namespace plotkit {

namespace {

/// Far beyond every page, near enough for the differences of hundredths.
constexpr double Furthest = 1e12;

std::int64_t Hundredths(double value)
{
    return RoundToInt64(std::clamp(value, -Furthest, Furthest) * 100);
}

void AppendHundredths(std::string& text, std::int64_t value)
{
    if (value < 0) {
        text += '-';
        value = -value;
    }
    std::array<char, 24> digits;
    const std::int64_t whole = value / 100, part = value % 100;
    if (whole != 0 || part == 0)
        text.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), whole).ptr);
    if (part == 0)
        return;
    text += '.';
    text += static_cast<char>('0' + part / 10);
    if (part % 10 != 0)
        text += static_cast<char>('0' + part % 10);
}

/// Writes commands, and each command's letter only where it changes.
class TPathWriter
{
public:
    explicit TPathWriter(std::string& text) : FText(text) {}

    void Move(TVectorPoint to)
    {
        const std::int64_t x = Hundredths(to.X), y = Hundredths(to.Y);
        const bool isFirst = FCommand == 0;
        Command(isFirst ? 'M' : 'm', true);
        Number(isFirst ? x : x - FX);
        Number(isFirst ? y : y - FY);
        FX = FStartX = x;
        FY = FStartY = y;
    }
    void Line(TVectorPoint to)
    {
        const std::int64_t x = Hundredths(to.X), y = Hundredths(to.Y);
        const std::int64_t dx = x - FX, dy = y - FY;
        if (dx == 0 && dy == 0)
            return;
        Command(dy == 0 ? 'h' : dx == 0 ? 'v' : 'l', false);
        if (dx != 0)
            Number(dx);
        if (dy != 0)
            Number(dy);
        FX = x;
        FY = y;
    }
    void Close()
    {
        Command('z', true);
        FX = FStartX;
        FY = FStartY;
    }

private:
    void Command(char letter, bool always)
    {
        if (always || letter != FCommand)
            FText += letter;
        FAfterLetter = always || letter != FCommand;
        FCommand = letter;
    }
    void Number(std::int64_t value)
    {
        if (!FAfterLetter && value >= 0)
            FText += ' ';
        AppendHundredths(FText, value);
        FAfterLetter = false;
    }

    std::string& FText;
    std::int64_t FX = 0, FY = 0, FStartX = 0, FStartY = 0;
    char FCommand = 0;
    bool FAfterLetter = false;
};

}  // namespace

void AppendSvgNumber(std::string& text, double value)
{
    AppendHundredths(text, Hundredths(value));
}

void AppendSvgAttribute(std::string& text, std::string_view name, double value)
{
    text.append(" ").append(name).append("=\"");
    AppendSvgNumber(text, value);
    text += '"';
}

std::string SvgColor(TColor color)
{
    constexpr char hexDigits[] = "0123456789abcdef";
    const TColor shown = Host().ResolveColor(color);
    std::string text = "#";
    bool isShort = true;
    for (const unsigned part : {RedOf(shown), GreenOf(shown), BlueOf(shown)}) {
        text += {hexDigits[part >> 4U], hexDigits[part & 0xFU]};
        isShort = isShort && part % 0x11 == 0;
    }
    return isShort ? std::string{'#', text[1], text[3], text[5]} : text;
}

void AppendSvgPath(std::string& text, const TVectorPath& path)
{
    TPathWriter writer(text);
    for (std::size_t i = 0; i < path.Ends.size(); ++i) {
        const auto outline = path.Outline(i);
        if (outline.empty())
            continue;
        writer.Move(outline.front());
        for (const TVectorPoint& point : outline.subspan(1))
            writer.Line(point);
        if (path.Closed)
            writer.Close();
    }
}

}  // namespace plotkit
