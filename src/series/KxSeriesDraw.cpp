#include <algorithm>
#include <vector>

#include "graph/KxAxis.h"
#include "graph/KxDraw.h"
#include "graph/KxGraph2D.h"
#include "host/PenPattern.h"
#include "host/PixelMath.h"
#include "series/KxSeries.h"

namespace plotkit {

namespace {

constexpr std::size_t LongestPiece = 2000;
constexpr int WidestReach = 100000;

/// Calls `draw` for each longest run of at least two points that are not missing.
template <class TDraw>
void ForEachRun(std::span<const TPoint> points, TDraw draw)
{
    auto at = points.begin();
    while (at != points.end()) {
        const auto first = std::find_if(at, points.end(), [](TPoint point) { return point != MissingPoint; });
        at = std::find(first, points.end(), MissingPoint);
        if (at - first > 1)
            draw(std::span<const TPoint>(first, at));
    }
}

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
    ForEachRun(LinePoints(canvas), [&](std::span<const TPoint> run) {
        for (std::size_t start = 0; start < run.size(); start += LongestPiece - 1)
            canvas.Polyline(run.subspan(start, std::min(LongestPiece, run.size() - start)));
    });
}

}  // namespace plotkit
