#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "graph/KxAxis.h"
#include "graph/KxDraw.h"
#include "graph/KxGraph2D.h"
#include "host/PixelMath.h"
#include "host/Restore.h"
#include "series/KxSeries.h"

namespace plotkit {

namespace {

bool HasNewScaling(const TKxSeriesDirection& direction)
{
    return direction.Mapping && direction.Mapping->Scaling != direction.Axis->GetScaling();
}

TPoint DataOrigin(const TKxSeries& series)
{
    return series.World() ? series.World()->DataRect().TopLeft() : TPoint{};
}

}  // namespace

void TKxSeries::SetPointsCount()
{
    FPointsCount = FX.Data && FY.Data ? std::min(FX.Count(), FY.Count()) : 0;
    if (HasOwnPointRule() || FPoints.GetCount() > FPointsCount)
        FPoints.SetCount(FPointsCount);
}

void TKxSeries::GetNewXStartStop()
{
    FX.Scan(XIdxNeeded());
    Modified();
}

void TKxSeries::GetNewYStartStop()
{
    FY.Scan(YIdxNeeded());
    Modified();
}

void TKxSeries::CalcXValue(int index)
{
    if (index != FX.MinIndex && index != FX.MaxIndex) {
        if (FX.Widen(index))
            Modified();
    } else if (FX.RenewExtreme(index, XIdxNeeded()))
        Modified();
    else
        GetNewXStartStop();
}

void TKxSeries::CalcYValue(int index)
{
    if (index != FY.MinIndex && index != FY.MaxIndex) {
        if (FY.Widen(index))
            Modified();
    } else if (FY.RenewExtreme(index, YIdxNeeded()))
        Modified();
    else
        GetNewYStartStop();
}

void TKxSeries::MapPoints(int first, int end) const
{
    end = std::min({end, FPointsCount, FPoints.GetCount(), FX.Count(), FY.Count()});
    if (first < 0 || first >= end || !FX.Axis || !FY.Axis)
        return;
    const auto from = static_cast<std::size_t>(first);
    const auto count = static_cast<std::size_t>(end - first);
    const auto xs = FX.Values().subspan(from, count);
    const auto ys = FY.Values().subspan(from, count);
    const auto points = FPoints.Write().subspan(from, count);
    FX.PointMapping().RealToIntX(xs, points);
    FY.PointMapping().RealToIntY(ys, points);
    for (std::size_t i = 0; i < count; ++i)
        if (!std::isfinite(xs[i]) || !std::isfinite(ys[i]))
            points[i] = MissingPoint;
}

const TKxPointVector& TKxSeries::Points() const
{
    const int made = FPoints.GetCount(), count = std::min({FPointsCount, FX.Count(), FY.Count()});
    if (made < count && !HasOwnPointRule()) {
        FPoints.SetCount(count);
        MapPoints(made, count);
    }
    return FPoints;
}

void TKxSeries::CalculatePoint(int index)
{
    if (index < FPointsCount)
        MapPoints(index, index + 1);
}

void TKxSeries::CalculateAllPoints()
{
    for (int i = 0; i < FPointsCount; ++i)
        CalculatePoint(i);
}

bool TKxSeries::RenewRanges()
{
    const bool unscanned = FPointsCount > 0 && (FX.IsEmptyRange() || FY.IsEmptyRange());
    if (!FRangesNeedRecalc && !unscanned)
        return true;
    // Nothing but missing values: looking again at each paint must not ask for another one.
    const bool hopeless = !FRangesNeedRecalc && !(FX.HasValues(XIdxNeeded()) && FY.HasValues(YIdxNeeded()));
    if (!hopeless) {
        GetNewXStartStop();
        GetNewYStartStop();
        FRangesNeedRecalc = FRangesWait = false;
        FChildsNeedRecalc = true;
        if (!FX.IsEmptyRange() && !FY.IsEmptyRange()) {
            Modified();
            if (TKx2DGraph* const graph = Graph())
                graph->Modified();
            return false;
        }
    }
    FPointsCount = 0;
    FPoints.SetCount(0);
    return true;
}

void TKxSeries::CalculatePoints()
{
    FAwaitsAxes = false;
    if (!FX.Data || !FY.Data || !FX.Axis || !FY.Axis) {
        FPointsCount = 0;
        FPoints.SetCount(0);
        return;
    }
    FollowPairs();
    SetPointsCount();
    if (!RenewRanges()) {
        FAwaitsAxes = true;
        return;
    }
    for (TKxPlottable* const item : std::vector(FChilds.Items())) {
        if (FChilds.IndexOf(item) < 0)
            continue;
        if (auto* const child = dynamic_cast<TKxSeries*>(item); child && child->IsCalculated())
            child->CalculateLine();
        if (FChilds.IndexOf(item) >= 0)
            item->Modified();
    }
    if (HasNewScaling(FX) || HasNewScaling(FY))
        FChildsNeedRecalc = true;
    if (FX.HasMoved() || FY.HasMoved())
        FDrawnLine.Forget();
    FX.Mapping = FX.Axis->Mapping();
    FY.Mapping = FY.Axis->Mapping();
    if (HasOwnPointRule())
        CalculateAllPoints();
    else
        FPoints.Clear();
    FPointsNeedRecalc = false;
}

void TKxSeries::AddNewPoints(bool isX, int first)
{
    const int last = FPointsCount - 1;  // the changed point itself, which its own direction handles later
    if (first == last && !HasOwnPointRule())
        return isX ? TKxSeries::CalcYValue(last) : TKxSeries::CalcXValue(last);
    if (!HasOwnPointRule()) {
        FollowNewValues(!isX, first, last + 1);
        return FollowNewValues(isX, first, last);
    }
    for (int i = first; i <= last; ++i)
        isX ? CalcYValue(i) : CalcXValue(i);
    for (int i = first; i < last; ++i)
        isX ? CalcXValue(i) : CalcYValue(i);
    for (int i = first; i < last; ++i)
        CalculatePoint(i);
}

void TKxSeries::FollowNewValues(bool isX, int first, int end)
{
    TKxSeriesDirection& direction = isX ? FX : FY;
    if (first >= end)
        return;
    if (direction.NeedsScan(first, end))
        isX ? GetNewXStartStop() : GetNewYStartStop();
    else if (direction.WidenAll(first, end))
        Modified();
}

/// What the oldest pairs leave behind when they go.
void TKxSeries::FollowPairs()
{
    const int gone = FPairing.Follow(FX.Data, FY.Data);
    FX.Skip = FPairing.XSkip();
    FY.Skip = FPairing.YSkip();
    if (gone == 0)
        return;
    FPointsNeedRecalc = FChildsNeedRecalc = true;
    FGrowth.Forget();
    FDrawnLine.Forget();
    FPoints.Clear();
    FPointsCount = std::max(FPointsCount - gone, 0);
    const bool xIsKept = FX.Drop(gone), yIsKept = FY.Drop(gone);
    if (!xIsKept || !yIsKept || HasOwnPointRule())
        FRangesNeedRecalc = FRangesWait = true;
}

/// `CalcXValue` and `CalcYValue` of a class that has no rule of its own.
void TKxSeries::FollowRange(bool isX, int index)
{
    TKxSeriesDirection& direction = isX ? FX : FY;
    if (index != direction.MinIndex && index != direction.MaxIndex) {
        if (direction.Widen(index))
            Modified();
    } else if (direction.RenewExtreme(index, std::min(direction.Count(), FPointsCount)))
        Modified();
    else
        isX ? GetNewXStartStop() : GetNewYStartStop();
}

/// Live data come one by one: a value that is one ahead of the points, or that completes the next one. False for all
/// other changes.
bool TKxSeries::FollowNewest(bool isX, int index)
{
    const int own = (isX ? FX : FY).Count(), other = (isX ? FY : FX).Count();
    if (!FIsPlain || index != FPointsCount || own != index + 1 || other < index || other > own)
        return false;
    FPointsCount = other;
    if (other == own)
        FollowRange(!isX, index);
    FollowRange(isX, index);
    if (!FPointsNeedRecalc && (FX.HasMoved() || FY.HasMoved()))
        FPointsNeedRecalc = true;  // the others were made with another mapping
    return true;
}

void TKxSeries::ValueChanged(bool isX, int index, bool wasDeleted)
{
    const TRestore growing(FOnlyGrows, OnlyGrows(index - (isX ? FX : FY).Skip, wasDeleted));
    FChildsNeedRecalc = true;
    FHasTold = false;
    FollowPairs();
    if (const TKxSeriesDirection& changed = isX ? FX : FY; changed.Data)
        changed.Note(index, wasDeleted);
    index -= index < 0 ? 0 : (isX ? FX : FY).Skip;
    FDrawnLine.ValueChanged(index, wasDeleted);
    const bool isCurrent = FDrawnLine.IsCurrent;
    const bool isNewest = !wasDeleted && !FRangesWait && FollowNewest(isX, index);
    if (!isNewest && !FollowAny(isX, index, wasDeleted))
        return;
    FDrawnLine.IsCurrent = isCurrent;  // a range that widens makes no point another
    if (FOnlyGrows)
        TellGrowth();
    else if (World() && !FHasTold)
        World()->Invalidate();
}

void TKxSeries::FOnXIChanged(int index, bool wasDeleted)
{
    ValueChanged(true, index, wasDeleted);
}

void TKxSeries::FOnYIChanged(int index, bool wasDeleted)
{
    ValueChanged(false, index, wasDeleted);
}

/// False when no point was concerned, or all were.
bool TKxSeries::FollowAny(bool isX, int index, bool wasDeleted)
{
    const int before = FPointsCount;
    SetPointsCount();
    if (FRangesWait && !wasDeleted) {
        FPointsNeedRecalc = true;
        return true;
    }
    if (!wasDeleted)
        AddNewPoints(isX, before);
    if (index > FPointsCount || (index < 0 && !wasDeleted))
        return false;
    if (wasDeleted) {
        RangesModified();
        return false;
    }
    if (isX)
        CalcXValue(index);
    else
        CalcYValue(index);
    if (index < FPoints.GetCount() || HasOwnPointRule())
        CalculatePoint(index);
    if (!FPointsNeedRecalc && (FX.HasMoved() || FY.HasMoved()))
        FPointsNeedRecalc = true;  // the others were made with another mapping
    return true;
}

int TKxSeries::RealToIntX(double value) const
{
    return FX.Axis ? AddPixels(FX.Axis->RealToIntPosition(value), DataOrigin(*this).X) : 0;
}

int TKxSeries::RealToIntY(double value) const
{
    return FY.Axis ? AddPixels(FY.Axis->RealToIntPosition(value), DataOrigin(*this).Y) : 0;
}

double TKxSeries::IntToRealX(int pixel) const
{
    return FX.Axis ? FX.Axis->IntToRealPosition(SaturatePixel(std::int64_t{pixel} - DataOrigin(*this).X)) : 0;
}

double TKxSeries::IntToRealY(int pixel) const
{
    return FY.Axis ? FY.Axis->IntToRealPosition(SaturatePixel(std::int64_t{pixel} - DataOrigin(*this).Y)) : 0;
}

std::optional<TKxLineReduction> TKxSeries::LongLine() const
{
    const int count = std::min({FPointsCount, FX.Count(), FY.Count()});
    if (count <= TKxKnownValues::Few || HasOwnPointRule() || !FX.Mapping || !FY.Mapping)
        return std::nullopt;
    const auto xs = FX.Values().first(static_cast<std::size_t>(count));
    // What is not positive has no order on a logarithmic axis.
    if ((FX.Mapping->IsLog() && xs.front() <= 0) || !FX.Ascend(count))
        return std::nullopt;
    return TKxLineReduction(xs, FY.Values(), FY.Pyramid(count), *FX.Mapping, *FY.Mapping);
}

int TKxSeries::FindPoint(int x, int y, int tolerance) const
{
    if (!GetShown())
        return -1;
    const std::int64_t left = std::int64_t{x} - DataOrigin(*this).X;
    const std::int64_t top = std::int64_t{y} - DataOrigin(*this).Y;
    const auto isHit = [&](TPoint point) {
        return point != MissingPoint && std::abs(point.X - left) <= tolerance && std::abs(point.Y - top) <= tolerance;
    };
    if (const auto line = FPoints.GetCount() < FPointsCount ? LongLine() : std::nullopt) {
        const auto [first, end] = line->Range(left - tolerance, left + tolerance + 1);
        for (std::size_t i = end; i > first; --i)
            if (isHit(line->PointAt(i - 1)))
                return static_cast<int>(i - 1);
        return -1;
    }
    const auto points = Points().Values();
    for (std::size_t i = points.size(); i > 0; --i)
        if (isHit(points[i - 1]))
            return static_cast<int>(i - 1);
    return -1;
}

}  // namespace plotkit
