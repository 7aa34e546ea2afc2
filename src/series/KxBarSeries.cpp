#include "series/KxBarSeries.h"

#include <cmath>

#include "foundation/KxLargeIni.h"
#include "graph/KxAxis.h"
#include "graph/KxDraw.h"
#include "graph/KxGraph2D.h"
#include "host/PixelMath.h"

namespace plotkit {

namespace {

constexpr std::array BarSeriesProperties{
    Property<&TKxBarSeries::GetShow3DBars, &TKxBarSeries::SetShow3DBars>("Show3DBars"),
    Property<&TKxBarSeries::GetBarHorizontal, &TKxBarSeries::SetBarHorizontal>("BarHorizontal"),
    Property<&TKxBarSeries::GetShiftOverlays, &TKxBarSeries::SetShiftOverlays>("ShiftOverlays"),
    Property<&TKxBarSeries::GetStackOverlays, &TKxBarSeries::SetStackOverlays>("StackOverlays"),
    Property<&TKxBarSeries::GetDepthPercent, &TKxBarSeries::SetDepthPercent>("DepthPercent"),
    Property<&TKxBarSeries::GetBarsGapPercent, &TKxBarSeries::SetBarsGapPercent>("BarsGapPercent"),
};

constexpr double None = std::numeric_limits<double>::quiet_NaN();

}  // namespace

constinit const TClassInfo TKxBarSeries::Class{"TKxBarSeries", &TKxLineSeries::Class, BarSeriesProperties,
                                               &CreateComponent<TKxBarSeries>};

TKxBarSeries::TKxBarSeries(TComponent* owner) : TKxLineSeries(owner)
{
    GetAreaStyle().SetVisible(true);
}

TKxBarSeries::~TKxBarSeries()
{
    BeginDestroy();
}

void TKxBarSeries::SetBarHorizontal(bool horizontal)
{
    if (horizontal == FBarHorizontal)
        return;
    TellAbove();
    Change(FBarHorizontal, horizontal);
}

void TKxBarSeries::SetShiftOverlays(bool shift)
{
    if (shift == FShiftOverlays)
        return;
    if (shift)
        SetStackOverlays(false);
    Change(FShiftOverlays, shift);
}

void TKxBarSeries::SetStackOverlays(bool stack)
{
    if (stack == FStackOverlays)
        return;
    TellAbove();
    Change(FStackOverlays, stack);
}

bool TKxBarSeries::StandsOn(const TKxBarSeries& other) const
{
    return FStackOverlays && other.FStackOverlays && FBarHorizontal == other.FBarHorizontal &&
           Edges().Axis == other.Edges().Axis;
}

/// The series that stand on this one know nothing of its values.
void TKxBarSeries::TellAbove()
{
    if (!FStackOverlays || !Owner() || IsDestroying())
        return;
    const auto& siblings = Owner()->Components();
    for (auto at = std::find(siblings.begin(), siblings.end(), this); at != siblings.end(); ++at)
        if (auto* const above = dynamic_cast<TKxBarSeries*>(*at);
            above && above != this && !above->RangesNeedRecalc() && above->StandsOn(*this))
            above->RangesModified();
}

void TKxBarSeries::Modified()
{
    TellAbove();
    TKxLineSeries::Modified();
}

void TKxBarSeries::SetPointsCount()
{
    FStackedBelow.clear();
    FPointsCount = 0;
    if (FX.Data && FY.Data) {
        if (FStackOverlays && Owner())
            for (TComponent* const sibling : Owner()->Components()) {
                if (sibling == this)
                    break;
                if (auto* const below = dynamic_cast<TKxBarSeries*>(sibling); below && StandsOn(*below))
                    FStackedBelow.push_back(below);
            }
        FPointsCount = std::max(0, std::min(Edges().Count() - 1, Heights().Count()));
    }
    FPoints.SetCount(FPointsCount > 0 ? FPointsCount + 1 : 0);
}

void TKxBarSeries::Notification(TComponent* component, TOperation operation)
{
    TKxLineSeries::Notification(component, operation);
    if (operation == opRemove && std::erase(FStackedBelow, component) > 0 && !IsDestroying())
        RangesModified();
}

double TKxBarSeries::TotalBelow(int i) const
{
    double total = 0;
    for (const TKxBarSeries* const below : FStackedBelow) {
        const TKxSeriesDirection& heights = below->Heights();
        if (below->PointsCount() <= i || heights.Count() <= i)
            continue;
        const double value = heights.Value(i);
        total += std::isfinite(value) ? value : 0;
    }
    return total;
}

double TKxBarSeries::CoordinateOf(const TKxSeriesDirection& direction, int i) const
{
    if (i < 0 || i >= direction.Count())
        return None;
    const double value = direction.Value(i);
    return &direction == &Heights() && FStackOverlays ? value + TotalBelow(i) : value;
}

double TKxBarSeries::DepthOf(double parts, int i) const
{
    const TKxSeriesDirection& edges = Edges();
    if (!FShow3DBars || i <= 0 || i >= edges.Count())
        return 0;
    return (edges.Value(i) - edges.Value(i - 1)) * (FDepthPercent / parts - FBarsGapPercent / 200);
}

int TKxBarSeries::IdxNeeded(const TKxSeriesDirection& direction) const
{
    const int needed = &direction == &Edges() && FPointsCount > 0 ? FPointsCount + 1 : FPointsCount;
    return std::min(direction.Count(), needed);
}

TKxExtent TKxBarSeries::ExtentOf(const TKxSeriesDirection& direction, int i) const
{
    const double at = CoordinateOf(direction, i);
    const double behind = at + (&direction == &FX ? GetDX(i) : GetDY(i));
    if (!IsLog(direction.Axis))
        return {at, behind};
    if (!(at > 0))
        return {None, None};
    // The lowest bar, too, is to have a height above the end of the axis.
    return {&direction == &Heights() ? at / 2 : at, behind > 0 ? behind : at};
}

void TKxBarSeries::Scan(TKxSeriesDirection& direction)
{
    constexpr double zero = 0;
    const double* const base = &direction == &Heights() ? &zero : nullptr;
    const auto scan = [&](const double* from, auto extentOf) {
        ExtentsOf(direction).Scan(direction, IdxNeeded(direction), from, extentOf);
    };
    scan(IsLog(direction.Axis) ? nullptr : base, [&](int i) { return ExtentOf(direction, i); });
    // Nothing positive at a logarithmic axis: a range all the same, or it would be looked for at each paint.
    if (direction.IsEmptyRange())
        scan(base, [&](int i) {
            const double at = CoordinateOf(direction, i);
            return TKxExtent{at, at};
        });
    Modified();
}

void TKxBarSeries::Follow(TKxSeriesDirection& direction, int index)
{
    const bool isFollowed = !RangesNeedRecalc() && dynamic_cast<TKxLiveVector*>(direction.Data);
    const TKxExtentChange change =
        ExtentsOf(direction).Follow(direction, index, ExtentOf(direction, index), IdxNeeded(direction), isFollowed);
    if (change == ecMoved)
        Modified();
    else if (change == ecScan)
        Scan(direction);
}

void TKxBarSeries::FollowChange(TKxSeriesDirection& direction, int index)
{
    Follow(direction, index);
    TellAbove();
    if (&direction == &Edges()) {
        // The room of a block depends on the edge before.
        if (FShow3DBars)
            RangesModified();
        return;
    }
    // With a value its bar may be new, and the edges of it.
    for (const int edge : {index, index + 1})
        if (edge <= FPointsCount && edge < Edges().Count()) {
            Follow(Edges(), edge);
            CalculatePoint(edge);
        }
}

void TKxBarSeries::CalculatePoints()
{
    const std::array dependsOn{IsLog(FX.Axis), IsLog(FY.Axis)};
    if (dependsOn != FScannedAs && !RangesNeedRecalc())
        RangesModified();
    FScannedAs = dependsOn;
    TKxLineSeries::CalculatePoints();
}

void TKxBarSeries::CalculatePoint(int index)
{
    if (index < 0 || index >= FPoints.GetCount() || !FX.Axis || !FY.Axis)
        return;
    FPoints.Write()[static_cast<std::size_t>(index)] = {
        index < FX.Count() ? FX.Axis->RealToIntPosition(GetX(index)) : 0,
        index < FY.Count() ? FY.Axis->RealToIntPosition(GetY(index)) : 0};
}

void TKxBarSeries::CalculateAllPoints()
{
    for (int i = 0; i < FPoints.GetCount(); ++i)
        CalculatePoint(i);
}

int TKxBarSeries::FindPoint(int x, int y, int tolerance) const
{
    if (!GetShown() || !World())
        return -1;
    const TPoint origin = World()->DataRect().TopLeft();
    const std::int64_t left = std::int64_t{x} - origin.X, top = std::int64_t{y} - origin.Y;
    const std::int64_t across = FBarHorizontal ? top : left, along = FBarHorizontal ? left : top;
    const auto points = FPoints.Values();
    for (int i = std::min(FPointsCount, FPoints.GetCount() - 1) - 1; i >= 0; --i) {
        const TPoint first = points[static_cast<std::size_t>(i)], second = points[static_cast<std::size_t>(i) + 1];
        const auto [from, to] = FBarHorizontal ? std::minmax(first.Y, second.Y) : std::minmax(first.X, second.X);
        const std::int32_t value = FBarHorizontal ? first.X : first.Y;
        if (from != MissingPosition && value != MissingPosition && across >= from && across <= to &&
            std::abs(along - value) <= tolerance)
            return i;
    }
    return -1;
}

TKxSampleForm TKxBarSeries::SampleForm() const
{
    TKxSampleForm form;
    form.Kind = skBars;
    form.Horizontal = FBarHorizontal;
    form.Solid = FShow3DBars;
    return form;
}

void TKxBarSeries::WriteToIni(TKxIniList& list, const std::string& section)
{
    TKxLineSeries::WriteToIni(list, section);
    list.WriteBool(section, "Show3DBars", FShow3DBars);
    list.WriteBool(section, "BarHorizontal", FBarHorizontal);
    list.WriteBool(section, "ShiftOverlays", FShiftOverlays);
    list.WriteBool(section, "StackOverlays", FStackOverlays);
    list.WriteReal(section, "DepthPercent", FDepthPercent);
    list.WriteReal(section, "BarsGapPercent", FBarsGapPercent);
}

void TKxBarSeries::ReadFromIni(TKxIniList& list, const std::string& section)
{
    TKxLineSeries::ReadFromIni(list, section);
    SetShow3DBars(list.ReadBool(section, "Show3DBars", FShow3DBars));
    SetBarHorizontal(list.ReadBool(section, "BarHorizontal", FBarHorizontal));
    SetShiftOverlays(list.ReadBool(section, "ShiftOverlays", FShiftOverlays));
    SetStackOverlays(list.ReadBool(section, "StackOverlays", FStackOverlays));
    SetDepthPercent(list.ReadReal(section, "DepthPercent", FDepthPercent));
    SetBarsGapPercent(list.ReadReal(section, "BarsGapPercent", FBarsGapPercent));
}

}  // namespace plotkit
