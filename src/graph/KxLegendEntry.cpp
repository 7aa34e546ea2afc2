#include "graph/KxLegendEntry.h"

#include <algorithm>

#include "graph/KxDraw.h"
#include "host/PixelMath.h"

namespace plotkit {

namespace {

constexpr TColor HiddenAreaColor = RgbColor(216, 216, 216);  // a line on it is to be seen
constexpr const char* Ellipsis = "\xE2\x80\xA6";

void DrawAreaSample(const TKxLegendSample::TArea& area, const TRect& box, TCanvas& canvas)
{
    // Copied, since the legend's background need not be the one that an exclusive-or fill counts on.
    canvas.Pen.Mode = dmCopy;
    canvas.Brush.SetColor(area.Color);
    canvas.Brush.SetStyle(area.Style);
    canvas.FillRect(box);
}

/// How far an error bar of a sample reaches beyond its symbol.
int ErrorReach(const TKxLegendSample& sample, double scale)
{
    return ScalePixels(sample.Points->Size, scale) + ScalePixels(3, scale);
}

void DrawErrorSample(const TKxLegendSample& sample, TPoint at, TCanvas& canvas)
{
    canvas.Pen = {sample.Form.ErrorColor, psSolid, 1, dmCopy};
    const int size = ScalePixels(sample.Points->Size, canvas.Scale());
    const int reach = ErrorReach(sample, canvas.Scale());
    for (const int to : {-reach, reach}) {
        const std::array across{at, TPoint{at.X + to, at.Y}, TPoint{at.X + to, at.Y - size},
                                TPoint{at.X + to, at.Y + size}};
        const std::array along{at, TPoint{at.X, at.Y + to}, TPoint{at.X - size, at.Y + to},
                               TPoint{at.X + size, at.Y + to}};
        if (sample.Form.HasXErrors)
            DrawLines(across, canvas);
        if (sample.Form.HasYErrors)
            DrawLines(along, canvas);
    }
}

void DrawBarsSample(const TKxLegendSample& sample, const TRect& box, TColor inside, TCanvas& canvas)
{
    constexpr std::array tenths{6, 10, 4};
    const TColor front = sample.Area ? sample.Area->Color : inside;
    const TKxLegendSample::TLine line = sample.Line.value_or(TKxLegendSample::TLine{front, psClear, 1});
    canvas.Pen = {line.Color, line.Style, line.Width, dmCopy};
    canvas.Brush.SetColor(front);
    canvas.Brush.SetStyle(sample.Area ? sample.Area->Style : bsClear);
    const bool horizontal = sample.Form.Horizontal;
    const int depth = sample.Form.Solid ? ScalePixels(2, canvas.Scale()) : 0;
    const int length = (horizontal ? box.Width() : box.Height()) - depth - 1;
    const int width = (horizontal ? box.Height() : box.Width()) - depth - 1;
    for (int i = 0; i < 3; ++i) {
        const int from = width * i / 3, to = width * (i + 1) / 3,
                  high = length * tenths[static_cast<std::size_t>(i)] / 10;
        const TRect bar = horizontal ? TRect{box.Left, box.Bottom - to, box.Left + high, box.Bottom - from}
                                     : TRect{box.Left + from, box.Bottom - high, box.Left + to, box.Bottom};
        if (sample.Form.Solid)
            Draw3DBar(bar.Left, bar.Top, bar.Right, bar.Bottom, depth, depth, line.Color, front, ShadedColor(front, 13),
                      ShadedColor(front, 6), canvas);
        else
            canvas.Rectangle(bar.Left, bar.Top, bar.Right, bar.Bottom);
    }
}

void DrawArrowSample(const TKxLegendSample& sample, const TRect& box, TCanvas& canvas)
{
    const int middle = box.Top + box.Height() / 2;
    canvas.Pen = {sample.Line->Color, sample.Line->Style, sample.Line->Width, dmCopy};
    DrawArrow(box.Left, middle, box.Right - 1, middle, ScalePixels(8, canvas.Scale()), ScalePixels(3, canvas.Scale()),
              canvas);
}

void DrawCurveSample(const TKxLegendSample& sample, const TRect& box, TColor inside, TCanvas& canvas)
{
    const TPoint centre{box.Left + box.Width() / 2, box.Top + box.Height() / 2};
    if (sample.Area)
        DrawAreaSample(*sample.Area,
                       {box.Left, sample.Line || sample.Points ? centre.Y : box.Top, box.Right, box.Bottom}, canvas);
    if (sample.Line) {
        canvas.Pen = {sample.Line->Color, sample.Line->Style, sample.Line->Width, dmCopy};
        DrawLine(box.Left, centre.Y, box.Right, centre.Y, canvas);
    }
    if (!sample.Points)
        return;
    DrawErrorSample(sample, centre, canvas);
    canvas.Pen = {sample.Points->Color, psSolid, sample.Points->Width, dmCopy};
    canvas.Brush.SetColor(inside);
    const int size = ScalePixels(sample.Points->Size, canvas.Scale());
    DrawPointSymbol(centre.X, centre.Y, size, sample.Points->Symbol, canvas);
}

TKxCaptionRec Measured(const TKxCaption& caption, TCanvas& canvas)
{
    TKxCaptionRec rec;
    rec.Text = caption;
    rec.Canvas = &canvas;
    RichPaintTo(rec);
    return rec;
}

}  // namespace

TKxLegendSample SampleOf(const TKxPlottable& series)
{
    TKxLegendSample sample;
    if (const TKxLineStyle* line = series.SampleLine(); line && line->GetVisible())
        sample.Line = {line->GetColor(), line->GetStyle(), line->GetWidth()};
    if (const TKxAreaStyle* area = series.SampleArea(); area && area->GetVisible())
        sample.Area = {area->GetColor(), area->GetStyle()};
    if (const TKxPointStyle* points = series.SamplePoints(); points && points->GetVisible())
        sample.Points = {points->GetColor(), points->GetStyle(), points->GetSize(), points->GetWidth()};
    sample.Form = series.SampleForm();
    return sample;
}

TKxLegendEntry EntryOf(TKxPlottable& series)
{
    return {&series, series.GetCaption(), SampleOf(series), series.GetShown()};
}

bool IsCurrent(const TKxLegendEntry& entry, TKxPlottable& series)
{
    return entry.Series == &series && entry.Shown == series.GetShown() && entry.Sample == SampleOf(series) &&
           entry.Caption == series.GetCaption();
}

int SampleHeight(const TKxLegendSample& sample, double scale)
{
    int height = 0;
    if (sample.Line)
        height = ScalePixels(sample.Line->Width, scale);
    if (sample.Points) {
        const std::int64_t size =
            sample.Form.HasYErrors ? ErrorReach(sample, scale) : ScalePixels(sample.Points->Size, scale);
        height = std::max(height, AddPixels(SaturatePixel(2 * size + 1), ScalePixels(sample.Points->Width, scale)));
    }
    return height;
}

void DrawSample(const TKxLegendSample& sample, const TRect& box, TColor inside, TCanvas& canvas)
{
    canvas.SetClipRect(box);
    if (sample.Form.Kind == skBars)
        DrawBarsSample(sample, box, inside, canvas);
    else if (sample.Form.Kind == skArrow && sample.Line)
        DrawArrowSample(sample, box, canvas);
    else
        DrawCurveSample(sample, box, inside, canvas);
    canvas.RemoveClip();
}

TKxLegendSample Greyed(TKxLegendSample sample)
{
    if (sample.Line)
        sample.Line->Color = HiddenEntryColor;
    if (sample.Area)
        sample.Area->Color = HiddenAreaColor;
    if (sample.Points)
        sample.Points->Color = HiddenEntryColor;
    sample.Form.ErrorColor = HiddenEntryColor;
    return sample;
}

int CaptionWidth(const TKxCaption& caption, TCanvas& canvas)
{
    return Measured(caption, canvas).Width;
}

TKxCaption FitCaption(const TKxCaption& caption, int room, TCanvas& canvas)
{
    const TKxCaptionRec rec = Measured(caption, canvas);
    if (rec.Width <= room)
        return caption;
    const int left = room - canvas.TextWidth(Ellipsis);
    std::size_t end = 0;
    for (std::size_t i = 0; i < rec.CharPos.size() && rec.CharSrc[i] > 0 && rec.CharPos[i] <= left; ++i) {
        const auto at = static_cast<std::size_t>(rec.CharSrc[i] - 1);
        end = at + static_cast<std::size_t>(CodePointLength(caption, at));
    }
    return caption.substr(0, end) + Ellipsis;
}

}  // namespace plotkit
