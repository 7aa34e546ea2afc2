#include <algorithm>
#include <vector>

#include "graph/KxAxis.h"
#include "graph/KxDraw.h"
#include "graph/KxGraph2D.h"
#include "host/PenPattern.h"
#include "host/PixelMath.h"
#include "series/KxLineRuns.h"
#include "series/KxSeries.h"

namespace plotkit {

namespace {

constexpr int WidestReach = 100000;

}  // namespace

bool TKxSeries::CalculateIfNeeded()
{
    if (FPointsNeedRecalc || FX.HasMoved() || FY.HasMoved())
        CalculatePoints();
    return !FAwaitsAxes && FX.Axis && FY.Axis;
}

bool TKxSeries::BringPointsUpToDate()
{
    const bool isDone = CalculateIfNeeded();
    if (isDone)
        Points();
    return isDone;
}

bool TKxSeries::PrepareDrawing()
{
    if (!FX.Axis || !FY.Axis)
        return false;
    {
        const TKxGraphUpdate update(Graph());
        CalculateIfNeeded();
        // Children look at the axes, which take over new ranges first.
        if (FChildsNeedRecalc && !FAwaitsAxes)
            BringChildsUpToDate();
    }
    return World() && !GraphIsUpdating() && !FAwaitsAxes;
}

void TKxSeries::DrawLine()
{
    if (!PrepareDrawing())
        return;
    if (!World()->PaintsPart())
        FGrowth.Drawn(FPointsCount, FX.Data, FY.Data);
    if ((!FLineStyle.GetVisible() && !FAreaStyle.GetVisible()) || FPointsCount < 2)
        return;
    TCanvas& canvas = World()->Canvas();
    if (FAreaStyle.GetVisible())
        DrawArea(canvas);
    if (FLineStyle.GetVisible())
        DrawPolylines(canvas);
}

void TKxSeries::DrawArea(TCanvas& canvas)
{
    canvas.Pen.Width = 0;
    canvas.Pen.Style = psClear;
    const bool xored = FAreaStyle.GetDrawXOred();
    canvas.Pen.Mode = xored ? dmXor : dmCopy;
    canvas.Brush.SetColor(xored ? XoredColor(FAreaStyle.GetColor(), FBackColor) : FAreaStyle.GetColor());
    canvas.Brush.SetStyle(FAreaStyle.GetStyle());
    const int zero = FY.Axis->RealToIntPosition(0);
    std::vector<TPoint> outline;
    ForEachRun(Points().Values(), [&](std::span<const TPoint> run) {
        outline.assign(run.begin(), run.end());
        outline.push_back({run.back().X, zero});
        outline.push_back({run.front().X, zero});
        canvas.Polygon(outline);
    });
    canvas.Pen.Mode = dmCopy;
}

std::span<const TPoint> TKxSeries::LinePoints(const TCanvas& canvas)
{
    const TPenState pen = canvas.DevicePen();
    const TDrawState state = canvas.DeviceState();
    if (const auto line = !IsDashed(pen.Style) && state.Mode == dmCopy ? LongLine() : std::nullopt) {
        if (World()->PaintsPart() && FDrawnLine.IsCurrent) {
            line->Draw(FDrawnLine.Left, FDrawnLine.Right, FDrawnLine);
            return FDrawnLine.Points;
        }
        // What stands beside the clip reaches into it by the width of the pen.
        const int reach = 4 + 2 * std::clamp(pen.Width, 0, WidestReach);
        const TRect clip = canvas.ClipRect();
        line->Draw(AddPixels(clip.Left, -reach), AddPixels(clip.Right, reach), FDrawnLine);
        return FDrawnLine.Points;
    }
    return Points().Values();
}

void TKxSeries::DrawPolylines(TCanvas& canvas)
{
    canvas.Pen.Style = FLineStyle.GetStyle();
    canvas.Pen.Width = FLineStyle.GetWidth() == 1 ? 0 : FLineStyle.GetWidth();
    canvas.Pen.Color = FLineStyle.GetColor();
    if (World()->PaintsPart())
        return DrawPartOfPolylines(canvas);
    ForEachPiece(LinePoints(canvas), [&](std::span<const TPoint> piece) { canvas.Polyline(piece); });
}

}  // namespace plotkit
