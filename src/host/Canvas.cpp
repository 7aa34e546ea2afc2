#include "host/Canvas.h"

#include "host/CheckedMath.h"
#include "host/PixelMath.h"

namespace plotkit {

namespace {

std::vector<std::int32_t> AdvancesOf(std::string_view text, const TFontState& font, const TTextMeasurer& measurer)
{
    std::vector<std::int32_t> advances;
    advances.reserve(text.size());
    std::int32_t reached = 0;
    for (std::size_t at = 0; at < text.size();) {
        const auto length = static_cast<std::size_t>(CodePointLength(text, at));
        reached = AddPixels(reached, measurer.Width(text.substr(at, length), font));
        advances.push_back(reached);
        at += length;
    }
    return advances;
}

TPoint Reversed(TPoint p)
{
    return {SaturatePixel(-std::int64_t{p.X}), SaturatePixel(-std::int64_t{p.Y})};
}

}  // namespace

void TBrush::SetColor(TColor color)
{
    FState.Color = color;
    if (FState.Style == bsClear)
        FState.Style = bsSolid;
}

int ScalePixels(int value, double scale)
{
    const int scaled = RoundToInt(value * scale);
    return scaled == 0 && value != 0 ? (value < 0 ? -1 : 1) : scaled;
}

TCanvas::TCanvas(TDrawDevice& device, const TTextMeasurer& measurer, double scale)
    : FDevice(&device), FMeasurer(&measurer), FScale(scale)
{
    Font.PixelsPerInch = 96 * scale;
}

TRect TCanvas::ClipRect() const
{
    return MoveClip(DeviceState().Clip, Reversed(FOrigin));
}

void TCanvas::SetClipRect(const TRect& clip)
{
    FClip = MoveClip(clip, FOrigin);
}

void TCanvas::IntersectClipRect(const TRect& clip)
{
    FClip = FClip.Intersected(MoveClip(clip, FOrigin));
}

void TCanvas::LineTo(int x, int y)
{
    const TPoint to{x, y};
    FDevice->Line(MovePoint(FPenPos, FOrigin), MovePoint(to, FOrigin), DevicePen(), DeviceState());
    FPenPos = to;
}

void TCanvas::Lines(std::span<const TPoint> ends)
{
    if (ends.size() > 1)
        FDevice->Lines(Shifted(ends), DevicePen(), DeviceState());
}

void TCanvas::Polyline(std::span<const TPoint> points)
{
    if (!points.empty())
        FDevice->Polyline(Shifted(points), DevicePen(), DeviceState());
}

void TCanvas::Polygon(std::span<const TPoint> points)
{
    if (!points.empty())
        FDevice->Polygon(Shifted(points), DevicePen(), Brush.State(), DeviceState());
}

void TCanvas::Ellipse(int left, int top, int right, int bottom)
{
    FDevice->Ellipse(MoveBox({left, top, right, bottom}, FOrigin), DevicePen(), Brush.State(), DeviceState());
}

void TCanvas::Rectangle(int left, int top, int right, int bottom)
{
    FDevice->Rectangle(MoveBox({left, top, right, bottom}, FOrigin), DevicePen(), Brush.State(), DeviceState());
}

void TCanvas::FillRect(const TRect& box)
{
    if (Brush.Style() == bsClear)
        return;
    TPenState none;
    none.Style = psClear;
    FDevice->Rectangle(MoveBox(box, FOrigin), none, Brush.State(), DeviceState());
}

void TCanvas::FocusRect(const TRect& box)
{
    FDevice->FocusRect(MoveBox(box, FOrigin), DeviceState());
}

void TCanvas::TextOut(int x, int y, std::string_view text, std::span<const std::int32_t> advances)
{
    if (text.empty())
        return;
    TTextRun run;
    run.At = MovePoint({x, y}, FOrigin);
    run.Text = text;
    run.Advances = advances.empty() ? AdvancesOf(text, Font, *FMeasurer)
                                    : std::vector<std::int32_t>(advances.begin(), advances.end());
    run.Font = Font;
    run.Background = Brush.State();
    FDevice->Text(run, {dmCopy, DeviceState().Clip});
}

void TCanvas::Stamp(const std::shared_ptr<const TRecording>& shape, std::span<const TPoint> points)
{
    if (shape && !points.empty())
        FDevice->Stamp(shape, Shifted(points), DeviceState());
}

int TCanvas::TextHeight(std::string_view) const
{
    return FMeasurer->Height(Font);
}

TPenState TCanvas::DevicePen() const
{
    const bool thinnest = Pen.Width == 0 || Pen.Width == 1;
    return {Pen.Color, Pen.Style, FScale == 1 ? Pen.Width : ScalePixels(thinnest ? 1 : Pen.Width, FScale)};
}

TDrawState TCanvas::DeviceState() const
{
    return {Pen.Mode, FClip == NoClip ? FWindowClip : FWindowClip.Intersected(FClip)};
}

std::span<const TPoint> TCanvas::Shifted(std::span<const TPoint> points)
{
    if (FOrigin == TPoint{})
        return points;
    FShifted.assign(points.begin(), points.end());
    for (TPoint& point : FShifted)
        point = MovePoint(point, FOrigin);
    return FShifted;
}

}  // namespace plotkit
