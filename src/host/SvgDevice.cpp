#include "host/SvgDevice.h"

#include <cmath>
#include <numeric>

#include "host/RecordingColors.h"
#include "host/SvgPath.h"
#include "host/SvgText.h"

namespace plotkit {

namespace {

/// Below, an element for each is shorter.
constexpr std::size_t FewPoints = 3;

std::string FillAttributes(const TVectorFill& fill)
{
    std::string text = " fill=\"" + SvgColor(fill.Color) + "\"";
    if (fill.Opacity != 1)
        AppendSvgAttribute(text, "fill-opacity", fill.Opacity);
    return text;
}

std::string StrokeAttributes(const TVectorPen& pen)
{
    std::string text = " stroke=\"" + SvgColor(pen.Color) + "\"";
    AppendSvgAttribute(text, "stroke-width", pen.Width);
    if (pen.Opacity != 1)
        AppendSvgAttribute(text, "stroke-opacity", pen.Opacity);
    if (pen.Ends != veFlat)
        text += pen.Ends == veSquare ? " stroke-linecap=\"square\"" : " stroke-linecap=\"round\"";
    if (pen.RoundJoins)
        text += " stroke-linejoin=\"round\"";
    const auto dashes = DashPattern(pen.Style);
    for (std::size_t i = 0; i < dashes.size(); ++i) {
        text += i == 0 ? " stroke-dasharray=\"" : " ";
        AppendSvgNumber(text, dashes[i] * pen.Width);
    }
    if (!dashes.empty())
        text += '"';
    return text;
}

/// Nothing is filled or stroked unless it says so.
std::string StyleOf(const TVectorPen* pen, const TVectorFill* fill)
{
    return (fill ? FillAttributes(*fill) : " fill=\"none\"") + (pen ? StrokeAttributes(*pen) : std::string());
}

void AppendBox(std::string& text, const TVectorBox& box)
{
    text += "<rect";
    AppendSvgAttribute(text, "x", box.Left);
    AppendSvgAttribute(text, "y", box.Top);
    AppendSvgAttribute(text, "width", box.Width());
    AppendSvgAttribute(text, "height", box.Height());
}

}  // namespace

std::string TSvgDevice::TakeElements()
{
    SetStyle({});
    FNames.clear();
    return std::exchange(FText, {});
}

void TSvgDevice::SetStyle(std::string style)
{
    if (style == FStyle)
        return;
    if (!FStyle.empty())
        FText += "</g>\n";
    if (!style.empty())
        FText += "<g" + style + ">\n";
    FStyle = std::move(style);
}

void TSvgDevice::DrawPath(const TVectorPath& path, const TVectorPen* pen, const TVectorFill* fill, const TRect* clip)
{
    SetStyle(ClipAttribute(clip) + StyleOf(pen, fill));
    FText += "<path";
    const auto dashes = DashPattern(pen ? pen->Style : psSolid);
    const double period = pen ? pen->Width * std::accumulate(dashes.begin(), dashes.end(), 0.0) : 0;
    if (period > 0 && pen->DashStart > 0)
        AppendSvgAttribute(FText, "stroke-dashoffset", std::fmod(pen->DashStart, period));
    FText += " d=\"";
    AppendSvgPath(FText, path);
    FText += "\"/>\n";
}

void TSvgDevice::DrawOval(const TVectorBox& box, const TVectorPen* pen, const TVectorFill* fill)
{
    SetStyle(StyleOf(pen, fill));
    FText += "<ellipse";
    AppendSvgAttribute(FText, "cx", box.Left + box.Width() / 2);
    AppendSvgAttribute(FText, "cy", box.Top + box.Height() / 2);
    AppendSvgAttribute(FText, "rx", box.Width() / 2);
    AppendSvgAttribute(FText, "ry", box.Height() / 2);
    FText += "/>\n";
}

void TSvgDevice::DrawRun(const TTextRun& run, const TRect* clip)
{
    const std::string around = ClipAttribute(clip);
    if (run.Background.Style != bsClear) {
        SetStyle(around + FillAttributes({run.Background.Color, 1}));
        AppendBox(FText,
                  {1.0 * run.At.X, 1.0 * run.At.Y,
                   1.0 * run.At.X + (run.Advances.empty() ? Measurer().Width(run.Text, run.Font) : run.Advances.back()),
                   1.0 * run.At.Y + Measurer().Height(run.Font)});
        FText += SvgTurn(run) + "/>\n";
    }
    SetStyle(around + SvgFontAttributes(run.Font));
    AppendSvgText(FText, run, Measurer());
}

std::string TSvgDevice::ClipAttribute(const TRect* clip)
{
    if (!clip)
        return {};
    std::string box;
    AppendBox(box, TVectorBox::Of(clip->Intersected(Page())));
    const auto [entry, isNew] = FNames.try_emplace(box, "clip" + std::to_string(FNames.size() + 1));
    if (isNew) {
        SetStyle({});
        FText += "<clipPath id=\"" + entry->second + "\">" + box + "/></clipPath>\n";
    }
    return " clip-path=\"url(#" + entry->second + ")\"";
}

std::string TSvgDevice::ShapeName(const TRecording& shape)
{
    TSvgDevice device(DrawnBounds(shape), Scale(), Measurer());
    device.FInSymbol = true;
    shape.Replay(device);
    const std::string elements = device.TakeElements();
    const auto [entry, isNew] = FNames.try_emplace(elements, "symbol" + std::to_string(FNames.size() + 1));
    if (isNew) {
        SetStyle({});
        FText += "<defs><g id=\"" + entry->second + "\">\n" + elements + "</g></defs>\n";
    }
    return entry->second;
}

void TSvgDevice::DrawStamps(const TRecording& shape, std::span<const TPoint> points)
{
    if (FInSymbol || points.size() < FewPoints)
        return TVectorDevice::DrawStamps(shape, points);
    const std::string name = ShapeName(shape);
    SetStyle({});
    for (const TPoint& point : points) {
        FText += "<use xlink:href=\"#" + name + "\"";
        AppendSvgAttribute(FText, "x", point.X);
        AppendSvgAttribute(FText, "y", point.Y);
        FText += "/>\n";
    }
}

std::string SvgDocument(const TMetafile& picture, const TTextMeasurer& measurer, std::string_view title)
{
    const double scale = picture.PixelScale > 0 ? picture.PixelScale : 1;
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
        "xmlns:xlink=\"http://www.w3.org/1999/xlink\" version=\"1.1\"";
    AppendSvgAttribute(text, "width", picture.Width / scale);
    AppendSvgAttribute(text, "height", picture.Height / scale);
    text += " viewBox=\"0 0 " + std::to_string(picture.Width) + " " + std::to_string(picture.Height) +
            "\" fill-rule=\"evenodd\" style=\"font-kerning:none\">\n";
    if (!title.empty()) {
        text += "<title>";
        AppendXml(text, title);
        text += "</title>\n";
    }
    TSvgDevice device({0, 0, picture.Width, picture.Height}, scale, measurer);
    BlendedXor(picture.Recording, TVectorDevice::XorOpacity).Replay(device);
    return text + device.TakeElements() + "</svg>\n";
}

}  // namespace plotkit
