#include "series/KxSeriesGrowth.h"

#include <algorithm>

#include "graph/KxAxis.h"
#include "graph/KxDraw.h"
#include "graph/KxGraph2D.h"
#include "host/CommandBox.h"
#include "host/PenPattern.h"
#include "series/KxLineRuns.h"
#include "series/KxSeries.h"

namespace plotkit {

namespace {

/// Far points are cut off before they are drawn, which may set other pixels of their lines.
constexpr int FarAway = 1 << 22;

bool IsFarAway(const TRect& box)
{
    return box.Left < -FarAway || box.Top < -FarAway || box.Right > FarAway || box.Bottom > FarAway;
}

/// A thin line that goes through fewer points sets the same pixels in `near`.
void DrawNearSegments(std::span<const TPoint> run, const TRect& near, TCanvas& canvas)
{
    const auto isNear = [&](TPoint a, TPoint b) {
        return std::max(a.X, b.X) >= near.Left && std::min(a.X, b.X) < near.Right && std::max(a.Y, b.Y) >= near.Top &&
               std::min(a.Y, b.Y) < near.Bottom;
    };
    for (std::size_t i = 1; i < run.size(); ++i) {
        const std::size_t first = i - 1;
        while (i < run.size() && isNear(run[i - 1], run[i]))
            ++i;
        if (i - first > 1)
            canvas.Polyline(run.subspan(first, i - first));
    }
}

/// A wide line of few points has sharp corners while it is a closed figure, round ones before and after that.
constexpr std::size_t FigureLength = 18;

/// Whether a line that gets points behind the first `drawn` ones may close a figure, or no longer be one.
bool MayBeFigure(std::span<const TPoint> points, std::size_t drawn)
{
    const std::size_t first = drawn - std::min(FigureLength, drawn);
    const auto end = points.subspan(first, std::min(2 * FigureLength, points.size() - first));
    const auto isLess = [](TPoint a, TPoint b) { return a.X < b.X; };
    return !std::is_sorted(end.begin(), end.end(), isLess) && !std::is_sorted(end.rbegin(), end.rend(), isLess);
}

}  // namespace

bool TKxSeries::OnlyGrows(int index, bool wasDeleted) const
{
    return !wasDeleted && FGrowth.Count() > 0 && index >= FGrowth.Count() && World() && GetShown() &&
           FChilds.Count() == 0 && !IsCalculated() && !HasOwnPointRule() && !FAreaStyle.GetVisible() &&
           !FPointsNeedRecalc && !FRangesNeedRecalc;
}

void TKxSeries::TellGrowth()
{
    FGrowth.Tell();
    World()->SeriesGrew();
}

std::optional<TRect> TKxSeries::GrownPart()
{
    if (!FGrowth.TakeTold())
        return TRect{};
    const int before = FGrowth.Count();
    if (before == 0 || FPointsNeedRecalc || FX.IsMoving() || FY.IsMoving() || !FGrowth.HasHeardAll(FX.Data, FY.Data))
        return std::nullopt;
    const auto line = GrownLine(before);
    const TRect marks = GrownMarks(before);
    if (!line || IsFarAway(*line) || IsFarAway(marks))
        return std::nullopt;
    FGrowth.Drawn(FPointsCount, FX.Data, FY.Data);
    const TRect& data = World()->DataRect();
    return line->Intersected({0, 0, data.Width(), data.Height()}).United(marks);
}

std::optional<TRect> TKxSeries::GrownLine(int before)
{
    if (!FLineStyle.GetVisible() || before == FPointsCount)
        return TRect{};
    // The last point was an end and becomes a corner, which the stretch before it may show.
    constexpr std::size_t Redrawn = 2;
    const int reach = LineReach(World()->Px(FLineStyle.GetWidth()));
    const auto line = IsDashed(FLineStyle.GetStyle()) ? std::nullopt : LongLine();
    if (!line) {
        const auto points = Points().Values();
        const auto drawn = static_cast<std::size_t>(before);
        const std::size_t again = MayBeFigure(points, drawn) ? FigureLength : Redrawn;
        return WidenedBox(BoxAroundPresent(points.subspan(drawn - std::min(again, drawn))), reach);
    }
    if (!FDrawnLine.IsCurrent || FDrawnLine.Count != static_cast<std::size_t>(before))
        return std::nullopt;
    const std::size_t tail = FDrawnLine.Points.empty() ? 0 : FDrawnLine.TailAt;
    line->Draw(FDrawnLine.Left, FDrawnLine.Right, FDrawnLine);
    const std::span<const TPoint> points = FDrawnLine.Points;
    return WidenedBox(BoxAroundPresent(points.subspan(std::min(tail - std::min(Redrawn, tail), points.size()))), reach);
}

std::span<const TPoint> TKxSeries::PointsNear(int left, int right) const
{
    const auto points = Points().Values();
    const int count = std::min({static_cast<int>(points.size()), FX.Count(), FY.Count()});
    if (count == 0 || HasOwnPointRule() || !FX.Mapping)
        return points;
    const auto xs = FX.Values().first(static_cast<std::size_t>(count));
    if ((FX.Mapping->IsLog() && xs.front() <= 0) || !FX.Ascend(count))
        return points;
    const auto range = ColumnsRange(xs, *FX.Mapping, left, right);
    return points.subspan(range.first, range.second - range.first);
}

void TKxSeries::DrawPartOfPolylines(TCanvas& canvas)
{
    const TPenState pen = canvas.DevicePen();
    const TRect near = WidenedBox(canvas.ClipRect(), LineReach(pen.Width));
    std::span<const TPoint> points = LinePoints(canvas);
    if (pen.Width > 1 || IsDashed(pen.Style)) {
        // Drawn from the same points on as ever, so that joins and dashes are where they were.
        ForEachPiece(points, [&](std::span<const TPoint> piece) {
            if (!BoxAroundPresent(piece).Intersected(near).IsEmpty())
                canvas.Polyline(piece);
        });
        return;
    }
    if (const auto all = FPoints.Values(); points.data() == all.data() && !points.empty()) {
        const auto inside = PointsNear(near.Left, near.Right);
        const auto first = static_cast<std::size_t>(inside.data() - all.data());
        const std::size_t from = first - (first > 0 ? 1 : 0);
        points = all.subspan(from, std::min(first + inside.size() + 1, all.size()) - from);
    }
    ForEachRun(points, [&](std::span<const TPoint> run) { DrawNearSegments(run, near, canvas); });
}

}  // namespace plotkit
