#include "graph/KxAxis.h"
#include "graph/KxDraw.h"
#include "graph/KxGraph2D.h"
#include "host/Restore.h"

namespace plotkit {

namespace {

/// The hour-glass for as long as a calculation lasts.
class THourGlass
{
public:
    THourGlass() { Host().SetScreenCursor(crHourGlass); }
    THourGlass(const THourGlass&) = delete;
    THourGlass& operator=(const THourGlass&) = delete;
    ~THourGlass() { Host().SetScreenCursor(crDefault); }
};

}  // namespace

void TKx2DGraph::Paint()
{
    CalculateIfDue();
    TCanvas& canvas = Canvas();
    PaintBackground(canvas);
    PaintGrid(canvas);
}

void TKx2DGraph::CalculateIfDue()
{
    if (!NotUpdating() || !FPrimaryXAxis || !FPrimaryYAxis || !FNeedsCalculate)
        return;
    const TKxGraphUpdate update(this);
    const THourGlass hourGlass;
    Calculate();
}

void TKx2DGraph::PaintBackground(TCanvas& canvas)
{
    canvas.Brush.SetStyle(bsSolid);
    canvas.Brush.SetColor(GetColor());
    if (!FPaintingToMetafile || GetColor() != clButtonFace)
        canvas.FillRect(ClientRect());
    if (FFrameLine.GetVisible()) {
        canvas.Pen.Color = FFrameLine.GetColor();
        canvas.Pen.Style = FFrameLine.GetStyle();
        canvas.Pen.Width = 2 * FFrameLine.GetWidth();
        DrawFrame(0, 0, GetWidth(), GetHeight(), canvas);
    }
    if (FDataColor != GetColor()) {
        canvas.Brush.SetColor(FDataColor);
        canvas.FillRect(FWorld->DataRect());
    }
}

void TKx2DGraph::PaintGrid(TCanvas& canvas)
{
    canvas.SetClipRect(FWorld->DataRect());
    SetCanvasOrigin(FWorld->DataRect().TopLeft());
    Canvas();  // from now on counts from there
    canvas.Brush.SetStyle(bsClear);
    canvas.Pen.Mode = dmCopy;
    if (FPrimaryXAxis) {
        PaintGridLines(canvas, *FPrimaryXAxis, FMajorGridX, true);
        PaintGridLines(canvas, *FPrimaryXAxis, FMinorGridX, false);
    }
    if (FPrimaryYAxis) {
        PaintGridLines(canvas, *FPrimaryYAxis, FMajorGridY, true);
        PaintGridLines(canvas, *FPrimaryYAxis, FMinorGridY, false);
    }
    SetCanvasOrigin({});
}

void TKx2DGraph::PaintGridLines(TCanvas& canvas, const TKxAxis& axis, const TKxLineStyle& grid, bool major)
{
    if (!grid.GetVisible())
        return;
    canvas.Pen.Color = grid.GetColor();
    canvas.Pen.Style = grid.GetStyle();
    canvas.Pen.Width = grid.GetWidth();
    const auto& positions = axis.TickPositions();
    const auto& isMajor = axis.TickIsMajor();
    const std::size_t count = std::min(positions.size(), isMajor.size());
    const std::size_t end = axis.DrawLastGridLine() || count == 0 ? count : count - 1;
    for (std::size_t i = axis.DrawFirstGridLine() ? 0 : 1; i < end; ++i) {
        if (isMajor[i] != major)
            continue;
        if (&axis == FPrimaryXAxis)
            DrawLine(positions[i], 0, positions[i], GetHeight(), canvas);
        else
            DrawLine(0, positions[i], GetWidth(), positions[i], canvas);
    }
}

void TKx2DGraph::PaintToMetafile()
{
    const TRestore painting(FPaintingToMetafile, true);
    FMetafile.Clear();
    FMetafile.Width = GetWidth();
    FMetafile.Height = GetHeight();
    FMetafile.PixelScale = PixelScale();
    FMetafile.Transparent = true;
    FMetafile.Recording = Picture();
}

const TMetafile& TKx2DGraph::GetMetafile()
{
    PaintToMetafile();
    return FMetafile;
}

void TKx2DGraph::CopyToClipboard()
{
    PaintToMetafile();
    Host().SetClipboardMetafile(FMetafile);
}

}  // namespace plotkit
