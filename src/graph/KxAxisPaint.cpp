#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"

namespace plotkit {

void TKxAxis::Paint()
{
    if (!GetVisible())
        return;
    if (TKx2DGraph* graph = GraphOf(*this)) {
        const TKxGraphUpdate update(graph->NotUpdating() ? graph : nullptr);
        BringUpToDate();
    } else {
        BringUpToDate();
    }
    TCanvas& canvas = Canvas();
    if (!GetTransparent()) {
        canvas.Brush.SetStyle(bsSolid);
        canvas.Brush.SetColor(GetColor());
        canvas.FillRect(ClientRect());
    }
    canvas.Pen.Style = psSolid;
    canvas.Pen.Mode = dmCopy;
    PaintTicks(canvas, true);
    PaintTicks(canvas, false);
    PaintLine(canvas);
    PaintLabels(canvas);
}

void TKxAxis::BringUpToDate()
{
    if (FNeedsCalculate)
        Calculate();
    if (FTicksChanged) {
        CalculateTicks();
        // The grid lines of the graph are painted already.
        if (TKx2DGraph* graph = GraphOf(*this))
            graph->Invalidate();
    }
    FNeedsCalculate = false;
}

void TKxAxis::PaintTicks(TCanvas& canvas, bool major) const
{
    const int first = FDrawFirstGridLine ? 0 : 1;
    const int last = TickCount() - (FDrawLastGridLine ? 1 : 2);
    if (last <= 0)
        return;
    canvas.Pen.Color = major ? GetMajorTickColor() : GetTickColor();
    canvas.Pen.Width = major ? GetMajorTickThicknes() : GetTickThicknes();
    const int length = Px(major ? GetMajorTickLength() : GetTickLength());
    for (int i = first; i <= last; ++i) {
        const auto index = static_cast<std::size_t>(i);
        if (FTickIsMajor[index] != major)
            continue;
        const int position = FTickPositions[index];
        if (Orientation() == AxVertical) {
            canvas.MoveTo(FAxisX, FAxisY + position);
            canvas.LineTo(FAxisX + length, FAxisY + position);
        } else {
            canvas.MoveTo(FAxisX + position, FAxisY);
            canvas.LineTo(FAxisX + position, FAxisY + length);
        }
    }
}

void TKxAxis::PaintLine(TCanvas& canvas) const
{
    canvas.Pen.Color = GetAxisColor();
    canvas.Pen.Width = GetAxisThicknes();
    if (Orientation() == AxVertical) {
        canvas.MoveTo(FAxisX, FAxisY + FPixelLength);
        canvas.LineTo(FAxisX, FAxisY);
    } else {
        canvas.MoveTo(FAxisX, FAxisY);
        canvas.LineTo(FAxisX + FPixelLength + 1, FAxisY);
    }
}

void TKxAxis::PaintLabels(TCanvas& canvas)
{
    canvas.Brush.SetStyle(bsClear);
    canvas.Font = GetFont().State();
    for (TKxCaptionRec& label : FScaleLabels) {
        label.Canvas = &canvas;
        RichPaintTo(label);
        label.Canvas = nullptr;
    }
}

}  // namespace plotkit
