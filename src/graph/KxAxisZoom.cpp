#include "graph/KxAxisZoom.h"

namespace plotkit {

void TKxAxisZoom::ZoomIn(double start, double stop)
{
    if (FViews.empty())
        FViews.push_back(PresentView());
    SetStart(start);
    SetStop(stop);
    FChosen.Known = false;
    FViews.push_back(PresentView());
    FIndex = static_cast<int>(FViews.size());
}

void TKxAxisZoom::ZoomBack()
{
    if (FViews.empty())
        return;
    --FIndex;
    if (FIndex <= 0)
        FIndex = static_cast<int>(FViews.size());
    ShowView(FViews[static_cast<std::size_t>(FIndex) - 1]);
}

void TKxAxisZoom::ShowView(const TKxZoomView& view)
{
    SetStart(view.Start);
    SetStop(view.Stop);
    FChosen = view.Chosen;
}

void TKxAxisZoom::KeepView()
{
    if (FViews.empty())
        FViews.push_back(PresentView());
    FViews.push_back(PresentView());
    FIndex = static_cast<int>(FViews.size());
}

void TKxAxisZoom::ShowExactly(double start, double stop)
{
    ShowView({start, stop, {start, stop, start, stop, FScaling, FStartEnd, FStopEnd, true, true}});
    if (!FViews.empty() && FIndex == static_cast<int>(FViews.size()))
        FViews.back() = PresentView();
}

void TKxAxisZoom::LeaveZoom()
{
    if (!FViews.empty())
        ShowView(FViews.front());
    FViews.clear();
    RedoRanges();
}

void TKxAxisZoom::SetZoomState(const TKxZoomState& state)
{
    FViews = state.Views;
    FIndex = state.Index;
    ShowView(state.Shown);
    if (FViews.empty())
        RedoRanges();
}

}  // namespace plotkit
