#include "graph/KxAxisScale.h"

#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"

namespace plotkit {

void TKxAxisScale::TellGraph()
{
    if (TKx2DGraph* graph = GraphOf(*this); graph && !IsDestroying())
        graph->Modified();
}

void TKxAxisScale::SetScaling(TKxAxScaling scaling)
{
    if (FScaling == scaling)
        return;
    FScaling = scaling;
    if (scaling == AxDateTime)
        FTwisted = false;
    FNeedsCalculate = true;
    RedoRanges();
    Invalidate();
}

void TKxAxisScale::SetStart(double start)
{
    if (GetStart() == start)
        return;
    FRange.SetStart(start);
    Modified();
}

void TKxAxisScale::SetStop(double stop)
{
    if (GetStop() == stop)
        return;
    FRange.SetStop(stop);
    Modified();
}

void TKxAxisScale::StorePart(double& part, double value)
{
    if (FAutoTicks)
        return;
    part = value;
    FTicksChanged = true;
    Invalidate();
}

void TKxAxisScale::SetIsSlaveAxis(bool slave)
{
    if (FIsSlaveAxis == slave)
        return;
    FIsSlaveAxis = slave;
    Modified();
    TellGraph();
}

void TKxAxisScale::SetMasterAxis(TKxAxis* master)
{
    if (FMasterAxis == master)
        return;
    if (master && (master == this || master->Orientation() != Orientation() || master->GetIsSlaveAxis()))
        return;
    if (FMasterAxis)
        StopWatching(FMasterAxis);
    FMasterAxis = master;
    FIsSlaveAxis = master != nullptr;
    if (master) {
        WatchFor(master);
        FNeedsCalculate = true;
    }
    Invalidate();
    TellGraph();
}

void TKxAxisScale::Notification(TComponent* component, TOperation operation)
{
    TKxAxisLook::Notification(component, operation);
    if (operation != opRemove || !FMasterAxis || component != FMasterAxis)
        return;
    FMasterAxis = nullptr;
    FIsSlaveAxis = false;
    if (IsDestroying())
        return;
    Invalidate();
    TellGraph();
}

TKxAxisMapping TKxAxisScale::Mapping() const
{
    TKxAxisMapping mapping;
    mapping.Scaling = FScaling;
    mapping.Forward = (Orientation() == AxHorizontal) != FTwisted;
    mapping.PixelLength = FPixelLength;
    mapping.Origin = mapping.IsLog() ? FLogStart : GetStart();
    mapping.UnitsPerPixel = FUnitsPerPixel;
    return mapping;
}

void TKxAxisScale::ValuesRangeChanged(TRange&)
{
    FValuesRange.Reset();
    for (const TRange* range : FValueRanges)
        FValuesRange.Unite(*range);
    if (FValuesRange.GetStart() > FValuesRange.GetStop())
        return;
    FollowEnd<&TRange::SetStart>(FStartEnd, FValuesRange.GetStart());
    FollowEnd<&TRange::SetStop>(FStopEnd, FValuesRange.GetStop());
}

template <auto Set>
void TKxAxisScale::FollowEnd(TKxAxEnd end, double value)
{
    if (end == AxAutoRange) {
        (FRange.*Set)(value);
        FNeedsCalculate = true;
        FChosen.Known = false;
    } else if (end == AxFirstSet) {
        // The upper end has the last word, also when the lower one widened.
        FNeedsCalculate = FRange.IfRangeChanged(value) != rgNotChanged;
    }
}

void TKxAxisScale::RedoRanges()
{
    if (FValueRanges.Count() == 0)
        return;
    ValuesRangeChanged(FValuesRange);
    ForgetZoom();
    Invalidate();
}

}  // namespace plotkit
