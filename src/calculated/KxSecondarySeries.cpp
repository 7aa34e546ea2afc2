#include "calculated/KxSecondarySeries.h"

#include <algorithm>
#include <string>
#include <utility>

#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"

namespace plotkit {

namespace {

bool IsUsed(const TKxAxis& axis, TKxSeriesList& list)
{
    return std::any_of(list.begin(), list.end(), [&axis](TKxPlottable* series) {
        return series->UsesAxis(axis) || IsUsed(axis, series->Childs());
    });
}

TKxAxis* SpareAxis(const TComponent& owner, const TKxSeries& parent, TKx2DGraph& graph)
{
    TKxAxis* found = nullptr;
    for (TComponent* const component : owner.Components()) {
        auto* const axis = dynamic_cast<TKxAxis*>(component);
        if (axis && GraphOf(*axis) == &graph && axis->Orientation() == AxVertical && axis != parent.GetYAxis() &&
            !IsUsed(*axis, graph.GetSeriesList()))
            found = axis;
    }
    return found;
}

TKxAxis* NewAxis(TComponent& owner, TKx2DGraph& graph)
{
    const std::string base = "SecondaryAxis";
    int number = 1;
    while (owner.FindComponent(base + std::to_string(number)))
        ++number;
    auto* const axis = new TKxAxis(&owner);
    axis->SetParent(&graph);
    axis->SetPosition(AxRightPos);
    axis->SetName(base + std::to_string(number));
    return axis;
}

}  // namespace

TKxAxis* TKxSecondaryAxis::Take(const TKxSeries& parent, TComponent* owner)
{
    TKx2DGraph* const graph = parent.GetXAxis() ? GraphOf(*parent.GetXAxis()) : nullptr;
    if (!graph || !parent.GetYAxis())
        return nullptr;
    if (!owner)
        owner = parent.GetXAxis()->Owner();
    TKxAxis* axis = graph->GetShareYAxes() ? parent.GetYAxis() : nullptr;
    if (!axis && owner)
        axis = SpareAxis(*owner, parent, *graph);
    if (!axis)
        axis = NewAxis(owner ? *owner : *graph, *graph);
    FWasSlaveAxis = axis->GetIsSlaveAxis();
    axis->SetIsSlaveAxis(false);
    return axis;
}

void TKxSecondaryAxis::GiveBack(TKxAxis* axis)
{
    if (std::exchange(FWasSlaveAxis, false) && axis && !axis->IsDestroying())
        axis->SetIsSlaveAxis(true);
}

bool TKxSecondaryAxis::StandsWith(const TKxAxis& axis, const TKxSeries& parent)
{
    return !parent.GetXAxis() || GraphOf(axis) == GraphOf(*parent.GetXAxis());
}

}  // namespace plotkit
