#include "series/KxSeries.h"

#include "foundation/KxLargeIni.h"
#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/Timer.h"

namespace plotkit {

namespace {

constexpr int OrderInterval = 100;  // milliseconds
constexpr int SampleCount = 10;

constexpr std::array SeriesProperties{
    Sub<&TKxSeries::GetLineStyle>("LineStyle"),
    Property<&TKxSeries::GetIncludeInLegend, &TKxSeries::SetIncludeInLegend>("IncludeInLegend"),
    Property<&TKxSeries::GetCaption, &TKxSeries::SetCaption>("Caption"),
};

TKxValueIChangedEvent XEvent(TKxSeries* series)
{
    return TKxValueIChangedEvent::Bind<&TKxSeries::FOnXIChanged>(series);
}

TKxValueIChangedEvent YEvent(TKxSeries* series)
{
    return TKxValueIChangedEvent::Bind<&TKxSeries::FOnYIChanged>(series);
}

}  // namespace

constinit const TClassInfo TKxSeries::Class{"TKxSeries", &TComponent::Class, SeriesProperties};

/// While designing, the graph and its legends follow the order of the series on the form.
class TKxOrderWatch
{
public:
    explicit TKxOrderWatch(const TKxSeries& series) : FSeries(series), FLastIndex(series.ComponentIndex()) {}

private:
    void Look()
    {
        const int index = FSeries.ComponentIndex();
        if (std::exchange(FLastIndex, index) == index || !FSeries.GetXAxis())
            return;
        if (TKx2DGraph* const graph = GraphOf(*FSeries.GetXAxis()))
            graph->Modified();
    }

    const TKxSeries& FSeries;
    int FLastIndex;
    TTimer FTimer{OrderInterval, TEvent<>::Bind<&TKxOrderWatch::Look>(this)};
};

TKxSeries::TKxSeries(TComponent* owner) : TKxStyledSeries(owner)
{
    FAreaStyle.SetVisible(false);
    if (IsDesigning() && dynamic_cast<TControl*>(owner))
        FOrderWatch = std::make_unique<TKxOrderWatch>(*this);
}

TKxSeries::~TKxSeries()
{
    BeginDestroy();
    if (World())
        World()->SeriesList().Remove(this);
    if (FX.Data)
        FX.Data->ChangedList().Remove(XEvent(this));
    if (FY.Data)
        FY.Data->ChangedList().Remove(YEvent(this));
    if (FWeight)
        FWeight->ChangedList().Remove(FWeightEvent);
    for (TKxSeriesDirection* direction : {&FX, &FY}) {
        direction->LeaveAxis();
        if (direction->Axis)
            direction->Axis->RedoRanges();
    }
    while (FChilds.Count() > 0) {
        TKxPlottable* const child = FChilds[FChilds.Count() - 1];
        FChilds.Remove(child);
        delete child;
    }
    if (TKx2DGraph* const graph = Graph())
        graph->Invalidate();
}

TKx2DGraph* TKxSeries::Graph() const
{
    return FX.Axis ? GraphOf(*FX.Axis) : nullptr;
}

bool TKxSeries::GraphIsUpdating() const
{
    const TKx2DGraph* const graph = Graph();
    return graph && !graph->NotUpdating();
}

void TKxSeries::AttachToGraph(TKx2DGraph& graph)
{
    SetWorld(&graph.World());
    if (!IsCalculated()) {
        World()->SeriesList().Remove(this);
        World()->SeriesList().Add(this);
    }
    FBackColor = graph.GetDataColor();
    graph.Modified();
}

void TKxSeries::LinkAxis(TKxSeriesDirection& direction, TKxAxis* axis)
{
    if (axis == direction.Axis)
        return;
    direction.LeaveAxis();
    direction.Axis = axis;
    WatchFor(axis);
    if (World())
        World()->SeriesList().Remove(this);
    if (TKx2DGraph* const graph = axis ? GraphOf(*axis) : nullptr)
        AttachToGraph(*graph);
    else
        Modified();
    if (axis && dynamic_cast<TKxLiveVector*>(direction.Data))
        direction.EnterAxis();
    for (TKxPlottable* const item : std::vector(FChilds.Items()))
        if (auto* const child = FChilds.IndexOf(item) < 0 ? nullptr : dynamic_cast<TKxSeries*>(item))
            child->ParentAxesChanged();
}

void TKxSeries::SetXAxis(TKxAxis* axis)
{
    LinkAxis(FX, axis);
}

void TKxSeries::SetYAxis(TKxAxis* axis)
{
    LinkAxis(FY, axis);
}

bool TKxSeries::LinkData(TKxSeriesDirection& direction, TKxCustomRealVector* vector, const TKxValueIChangedEvent& event)
{
    if (vector == direction.Data)
        return false;
    if (direction.Data)
        direction.Data->ChangedList().Remove(event);
    direction.LeaveAxis();
    direction.SetData(vector);
    FPairing = {};
    FIsPlain = !HasOwnPointRule();
    WatchFor(vector);
    if (vector && direction.Axis) {
        vector->ChangedList().AddForDrops(event);
        direction.EnterAxis();
    }
    return true;
}

void TKxSeries::SetXData(TKxCustomRealVector* vector)
{
    if (!LinkData(FX, vector, XEvent(this)))
        return;
    if (IsDesigning() && vector && vector->GetCount() == 0)
        for (int i = 0; i < SampleCount; ++i)
            vector->SetValue(i, Host().Random() * 10 + 10 * i);
    DataLinked();
}

void TKxSeries::SetYData(TKxCustomRealVector* vector)
{
    if (!LinkData(FY, vector, YEvent(this)))
        return;
    if (IsDesigning() && vector && vector->GetCount() == 0) {
        const double slope = Host().Random() * 10;
        for (int i = 0; i < SampleCount; ++i)
            vector->SetValue(i, Host().Random() * 10 + i * slope);
    }
    DataLinked();
}

void TKxSeries::DataLinked()
{
    // Vectors are in step now; at the next note one of them will be ahead.
    FollowPairs();
    if (IsDesigning())
        DsgnUpdate();
    else
        RangesModified();
}

void TKxSeries::SetWeight(TKxCustomRealVector* vector)
{
    if (FWeight && FWeight != vector)
        FWeight->ChangedList().Remove(FWeightEvent);
    FWeight = vector;
    WatchFor(vector);
    FWeightEvent = TKxValueIChangedEvent::Bind<&TKxSeries::FOnWeightChanged>(this);
    if (FWeight)
        FWeight->ChangedList().Add(FWeightEvent);
    FChildsNeedRecalc = true;
    if (World())
        World()->Invalidate();
}

void TKxSeries::FOnWeightChanged(int, bool)
{
    FChildsNeedRecalc = true;
    if (World())
        World()->Invalidate();
}

void TKxSeries::Modified()
{
    // A range that widens makes no drawn point another; where it moves an axis the graph is told by that.
    if (FOnlyGrows)
        return;
    FGrowth.Forget();
    FPointsNeedRecalc = true;
    FHasTold = true;
    FDrawnLine.Forget();
    UpdateLegend();
    if (World())
        World()->Invalidate();
}

void TKxSeries::ChildModified()
{
    FRangesNeedRecalc = true;
    Modified();
}

void TKxSeries::RangesModified()
{
    FChildsNeedRecalc = true;
    FRangesNeedRecalc = true;
    FX.Forget();
    FY.Forget();
    Modified();
}

void TKxSeries::DsgnUpdate()
{
    if (!IsDesigning())
        return;
    RangesModified();
    CalculatePoints();
    if (TKx2DGraph* const graph = Graph())
        graph->Modified();
}

void TKxSeries::Loaded()
{
    TKxStyledSeries::Loaded();
    // An axis may have got its parent after it was linked.
    for (const TKxSeriesDirection* direction : {&FX, &FY}) {
        TKx2DGraph* const graph = direction->Axis ? GraphOf(*direction->Axis) : nullptr;
        if (graph && (World() != &graph->World() || World()->SeriesList().IndexOf(this) < 0))
            AttachToGraph(*graph);
    }
    RangesModified();
}

void TKxSeries::Notification(TComponent* component, TOperation operation)
{
    TKxStyledSeries::Notification(component, operation);
    if (operation != opRemove)
        return;
    for (TKxPlottable* const child : std::vector(FChilds.Items()))
        if (child == component)
            FChilds.Remove(child);
    if (component == FWeight) {
        FWeight = nullptr;
        if (!IsDestroying())
            FOnWeightChanged(-1, true);
    }
    bool axisGone = false, dataGone = false;
    for (TKxSeriesDirection* direction : {&FX, &FY}) {
        if (component == direction->Axis) {
            direction->Axis = nullptr;
            direction->Range.OnChanged = nullptr;
            axisGone = true;
        }
        if (component == direction->Data) {
            direction->SetData(nullptr);
            dataGone = true;
        }
    }
    if (IsDestroying() || (!axisGone && !dataGone))
        return;
    RangesModified();
    if (!dataGone)
        return;
    CalculatePoints();
    if (TKx2DGraph* const graph = Graph())
        graph->Modified();
}

}  // namespace plotkit
