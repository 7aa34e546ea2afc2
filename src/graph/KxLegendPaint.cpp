#include "graph/KxDraw.h"
#include "graph/KxGraph2D.h"
#include "graph/KxLegend.h"

namespace plotkit {

namespace {

constexpr const char* MoreSign = "\xE2\x80\xA6";

}  // namespace

void TKxLegend::Paint()
{
    if (AdjustBounds() && FGraph && FInGraphPosition != AxFreeFloating)
        FGraph->Modified();  // the axes have to make room, or get it back
    if (FPlan.Boxes.empty() && FAutoSize)
        return;
    TCanvas& canvas = Canvas();
    PaintBackground(canvas);
    for (std::size_t i = 0; i < FPlan.Boxes.size(); ++i)
        PaintEntry(i, canvas);
    if (FPlan.More.IsEmpty())
        return;
    canvas.Brush.SetStyle(bsClear);
    canvas.Font = GetFont().State();
    canvas.TextOut(FPlan.More.Left, FPlan.More.Top + (FEntryHeight - FTextHeight) / 2, MoreSign);
}

void TKxLegend::PaintBackground(TCanvas& canvas)
{
    // A metafile's background stays open, but the lines of a plot must not run through the captions.
    const bool onNothing = FGraph && FGraph->PaintingToMetafile() && GetColor() == clButtonFace;
    const bool floats = FInGraphPosition == AxFreeFloating;
    if (!FTransparent && (!onNothing || floats)) {
        canvas.Brush.SetStyle(bsSolid);
        canvas.Brush.SetColor(onNothing ? clWhite : GetColor());
        canvas.FillRect(ClientRect());
    }
    if (!FFrameLine.GetVisible())
        return;
    canvas.Brush.SetStyle(bsClear);
    canvas.Pen = {FFrameLine.GetColor(), FFrameLine.GetStyle(), FFrameLine.GetWidth(), dmCopy};
    const int width = FrameWidth();
    const int before = width / 2, behind = (width - 1) / 2 + 1;
    DrawFrame(before, before, GetWidth() - behind, GetHeight() - behind, canvas);
}

void TKxLegend::PaintEntry(std::size_t i, TCanvas& canvas)
{
    const TKxLegendEntry& entry = FEntries[i];
    const TRect& box = FPlan.Boxes[i];
    TColor inside = FGraph ? FGraph->GetDataColor() : GetColor();
    if (FGraph && FGraph->PaintingToMetafile() && inside == clButtonFace)
        inside = clWhite;
    const TRect sample{box.Left, box.Top, std::min(box.Right, box.Left + Px(FSampleWidth)), box.Bottom};
    DrawSample(entry.Shown ? entry.Sample : Greyed(entry.Sample), sample, inside, canvas);
    if (entry.Caption.empty())
        return;
    canvas.Pen = TPen();
    canvas.Brush.SetStyle(bsClear);
    canvas.Font = GetFont().State();
    if (!entry.Shown)
        canvas.Font.Color = HiddenEntryColor;
    TKxCaptionRec rec;
    rec.Canvas = &canvas;
    rec.X = sample.Right + Px(FSampleCaptionGap);
    rec.Y = box.Top + (FEntryHeight - FTextHeight) / 2;
    rec.Text = FitCaption(entry.Caption, box.Right - rec.X, canvas);
    rec.DoPaint = true;
    RichPaintTo(rec);
}

}  // namespace plotkit
