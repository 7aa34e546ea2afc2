#include <charconv>
#include <map>

#include "host/Recording.h"
#include "host/TextMeasurer.h"

namespace plotkit {

namespace {

constexpr char HexDigits[] = "0123456789ABCDEF";

std::string Number(std::int64_t value)
{
    return std::to_string(value);
}

std::string Number(double value)
{
    std::array<char, 32> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return {text.data(), end};
}

std::string Hex(unsigned value, int digits)
{
    std::string text(static_cast<std::size_t>(digits), '0');
    for (auto digit = text.rbegin(); digit != text.rend(); ++digit, value >>= 4U)
        *digit = HexDigits[value & 0xFU];
    return text;
}

/// "#RRGGBB", or "systemN" for what the host resolves.
std::string ColorText(TColor color)
{
    if (IsSystemColor(color))
        return "system" + Number(std::int64_t{ColorToInt(color) & 0x7FFFFFFF});
    return "#" + Hex(RedOf(color), 2) + Hex(GreenOf(color), 2) + Hex(BlueOf(color), 2);
}

std::string PointText(TPoint p)
{
    return Number(std::int64_t{p.X}) + "," + Number(std::int64_t{p.Y});
}

std::string PointsText(std::span<const TPoint> points)
{
    std::string text;
    for (const TPoint& point : points)
        text += " " + PointText(point);
    return text;
}

std::string BoxText(const TRect& box)
{
    return " " + PointText(box.TopLeft()) + ".." + PointText({box.Right, box.Bottom});
}

/// Ordinals read from files may name nothing.
std::string NameText(std::span<const std::string_view> names, unsigned ordinal)
{
    return ordinal < names.size() ? " " + std::string(names[ordinal]) : " " + Number(std::int64_t{ordinal});
}

std::string PenText(const TPenState& pen)
{
    return " pen " + ColorText(pen.Color) + NameText(PenStyleNames, pen.Style) + " " + Number(std::int64_t{pen.Width});
}

std::string BrushText(const char* role, const TBrushState& brush)
{
    return std::string(" ") + role + " " + ColorText(brush.Color) + NameText(BrushStyleNames, brush.Style);
}

std::string StateText(const TDrawState& state)
{
    std::string text;
    if (state.Mode == dmXor)
        text += " xor";
    if (state.Clip != NoClip)
        text += " clip" + BoxText(state.Clip);
    return text;
}

std::string Quoted(const std::string& raw)
{
    std::string text = "\"";
    for (std::size_t at = 0; at < raw.size();) {
        const auto length = static_cast<std::size_t>(CodePointLength(raw, at));
        const auto byte = static_cast<unsigned char>(raw[at]);
        if (byte == '"' || byte == '\\')
            text += {'\\', raw[at]};
        else if (length == 1 && (byte < 0x20 || byte > 0x7E))
            text += "\\x" + Hex(byte, 2);
        else
            text += raw.substr(at, length);
        at += length;
    }
    return text + "\"";
}

std::string FontText(const TFontState& font)
{
    std::string text =
        " font " + Quoted(font.Name) + " " + Number(std::int64_t{font.Size}) + " " + ColorText(font.Color);
    constexpr std::array<std::pair<bool TFontState::*, const char*>, 4> styles{{
        {&TFontState::Bold, " bold"},
        {&TFontState::Italic, " italic"},
        {&TFontState::Underline, " underline"},
        {&TFontState::StrikeOut, " strikeout"},
    }};
    for (const auto& [style, name] : styles)
        if (font.*style)
            text += name;
    if (font.Charset != 1)
        text += " charset " + Number(std::int64_t{font.Charset});
    if (font.Pitch != fpDefault)
        text += NameText(FontPitchNames, font.Pitch);
    if (font.Angle != 0)
        text += " angle " + Number(std::int64_t{font.Angle});
    if (font.PixelsPerInch != 96)
        text += " ppi " + Number(font.PixelsPerInch);
    return text;
}

class TWriter
{
public:
    std::string Text;

    void Write(const TRecording& recording, const std::string& indent)
    {
        for (const TDrawCommand& command : recording.Commands) {
            const std::string line = std::visit([&](const auto& c) { return Line(c, indent); }, command);
            Text += indent + line + StateText(std::visit([](const auto& c) { return c.State; }, command)) + "\n";
        }
    }

private:
    std::string Line(const TLineCommand& c, const std::string&)
    {
        return "line " + PointText(c.From) + " " + PointText(c.To) + PenText(c.Pen);
    }
    std::string Line(const TLinesCommand& c, const std::string&)
    {
        return "lines" + PointsText(c.Ends) + PenText(c.Pen);
    }
    std::string Line(const TPolylineCommand& c, const std::string&)
    {
        return "polyline" + PointsText(c.Points) + PenText(c.Pen);
    }
    std::string Line(const TPolygonCommand& c, const std::string&)
    {
        return "polygon" + PointsText(c.Points) + PenText(c.Pen) + BrushText("brush", c.Brush);
    }
    std::string Line(const TEllipseCommand& c, const std::string&)
    {
        return "ellipse" + BoxText(c.Box) + PenText(c.Pen) + BrushText("brush", c.Brush);
    }
    std::string Line(const TRectangleCommand& c, const std::string&)
    {
        return "rectangle" + BoxText(c.Box) + PenText(c.Pen) + BrushText("brush", c.Brush);
    }
    std::string Line(const TFocusRectCommand& c, const std::string&) { return "focus" + BoxText(c.Box); }
    std::string Line(const TTextCommand& c, const std::string&)
    {
        std::string text = "text " + PointText(c.Run.At) + " " + Quoted(c.Run.Text) + " advances";
        for (const std::int32_t advance : c.Run.Advances)
            text += " " + Number(std::int64_t{advance});
        text += FontText(c.Run.Font);
        return c.Run.Background.Style == bsClear ? text : text + BrushText("on", c.Run.Background);
    }
    std::string Line(const TStampCommand& c, const std::string& indent)
    {
        return "stamp " + Number(std::int64_t{ShapeNumber(c.Shape, indent)}) + PointsText(c.Points);
    }

    /// Lists the shape where it first occurs. Shapes are numbered by their commands, not their addresses, so that the
    /// same drawing gives the same text.
    int ShapeNumber(const std::shared_ptr<const TRecording>& shape, const std::string& indent)
    {
        if (!shape)
            return 0;
        TWriter body;
        body.Write(*shape, "");
        const auto [entry, isNew] = FShapes.try_emplace(body.Text, static_cast<int>(FShapes.size()) + 1);
        const int number = entry->second;
        if (isNew) {
            Text += indent + "shape " + Number(std::int64_t{number}) + "\n";
            Write(*shape, indent + "  ");
        }
        return number;
    }

    std::map<std::string, int> FShapes;
};

}  // namespace

std::string TRecording::ToText() const
{
    TWriter writer;
    writer.Write(*this, "");
    return writer.Text;
}

}  // namespace plotkit
