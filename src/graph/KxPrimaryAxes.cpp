#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"

namespace plotkit {

namespace {

TKxAxis* LastAxisAt(const TComponent& owner, TKxAxisPos position)
{
    TKxAxis* found = nullptr;
    for (TComponent* component : owner.Components())
        if (auto* axis = dynamic_cast<TKxAxis*>(component); axis && axis->GetPosition() == position)
            found = axis;
    return found;
}

TKxAxis* NewAxis(TComponent& owner, TKx2DGraph& graph, TKxAxisPos position, const std::string& baseName)
{
    int number = 1;
    while (owner.FindComponent(baseName + std::to_string(number)))
        ++number;
    auto* axis = new TKxAxis(&owner);
    axis->SetParent(&graph);
    axis->SetPosition(position);
    axis->SetName(baseName + std::to_string(number));
    return axis;
}

}  // namespace

TComponent& TKx2DGraph::AxesOwner()
{
    return Owner() ? *Owner() : *this;
}

std::vector<TKxAxis*> TKx2DGraph::AxesInside()
{
    std::vector<TKxAxis*> axes;
    for (TComponent* component : AxesOwner().Components())
        if (auto* axis = dynamic_cast<TKxAxis*>(component); axis && axis->Parent() == this)
            axes.push_back(axis);
    return axes;
}

TKxAxis* TKx2DGraph::GetPrimaryXAxis()
{
    if (!FPrimaryXAxis)
        WindowNeeded();
    return FPrimaryXAxis;
}

TKxAxis* TKx2DGraph::GetPrimaryYAxis()
{
    if (!FPrimaryYAxis)
        WindowNeeded();
    return FPrimaryYAxis;
}

void TKx2DGraph::SetPrimaryXAxis(TKxAxis* axis)
{
    if (FPrimaryXAxis == axis)
        return;
    if (FPrimaryXAxis)
        StopWatching(FPrimaryXAxis);
    FPrimaryXAxis = axis;
    WatchFor(axis);
    if (axis)
        axis->SetPosition(AxBottomPos);
    Modified();
}

void TKx2DGraph::SetPrimaryYAxis(TKxAxis* axis)
{
    if (FPrimaryYAxis == axis)
        return;
    if (FPrimaryYAxis)
        StopWatching(FPrimaryYAxis);
    FPrimaryYAxis = axis;
    WatchFor(axis);
    if (axis)
        axis->SetPosition(AxLeftPos);
    Modified();
}

void TKx2DGraph::FindPrimaryAxes()
{
    TComponent& owner = AxesOwner();
    if (!FPrimaryXAxis)
        SetPrimaryXAxis(LastAxisAt(owner, AxBottomPos));
    if (!FPrimaryXAxis)
        SetPrimaryXAxis(NewAxis(owner, *this, AxBottomPos, "XAxis"));
    if (!FPrimaryYAxis)
        SetPrimaryYAxis(LastAxisAt(owner, AxLeftPos));
    if (FPrimaryYAxis)
        return;
    TKxAxis* axis = NewAxis(owner, *this, AxLeftPos, "YAxis");
    axis->SetMajorTickLength(-axis->GetMajorTickLength());
    axis->SetTickLength(-axis->GetTickLength());
    SetPrimaryYAxis(axis);
}

void TKx2DGraph::CreateWindow()
{
    FindPrimaryAxes();
    TPanel::CreateWindow();
}

}  // namespace plotkit
