#include "graph/KxZoomFrame.h"

#include <algorithm>

namespace plotkit {

namespace {

constexpr int StepsAcross = 40;

void Slide(std::int32_t& from, std::int32_t& to, int by, int lowest, int highest)
{
    by = std::clamp(by, std::min(lowest - from, 0), std::max(highest - to, 0));
    from += by;
    to += by;
}

void Widen(std::int32_t& from, std::int32_t& to, int by, int lowest, int highest)
{
    // At least two pixels stay, a rectangle without extent zooms to nothing.
    by = std::max(by, -(to - from - 2) / 2);
    from = std::max(from - by, lowest);
    to = std::min(to + by, highest);
}

}  // namespace

TKxZoomFrame::TKxZoomFrame(TKx2DGraph& graph)
    : TComponent(nullptr),
      FGraph(&graph),
      FPainting(std::make_unique<TEventChain<TCanvas&>>(graph.World(), graph.World().OnPaintOverlay,
                                                        TEvent<TCanvas&>::Bind<&TKxZoomFrame::Paint>(this)))
{
    WatchFor(FGraph);
}

TKxZoomFrame::~TKxZoomFrame()
{
    SetShown(false);
    BeginDestroy();
}

void TKxZoomFrame::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == opRemove && component == FGraph)
        FGraph = nullptr;
}

TSize TKxZoomFrame::Steps() const
{
    const TRect data = FGraph->World().DataRect();
    return {std::max(data.Width() / StepsAcross, 1), std::max(data.Height() / StepsAcross, 1)};
}

void TKxZoomFrame::SetShown(bool shown)
{
    if (!FGraph || FShown == shown)
        return;
    const TRect data = FGraph->World().DataRect();
    FBox = {data.Left + data.Width() / 4, data.Top + data.Height() / 4, data.Right - data.Width() / 4,
            data.Bottom - data.Height() / 4};
    FShown = shown && FBox.Width() > 2 && FBox.Height() > 2;
    FGraph->World().RefreshOverlay();
}

void TKxZoomFrame::MoveBy(int right, int down)
{
    if (!FGraph || !FShown)
        return;
    const TRect data = FGraph->World().DataRect();
    Slide(FBox.Left, FBox.Right, right * Steps().Width, data.Left, data.Right - 1);
    Slide(FBox.Top, FBox.Bottom, down * Steps().Height, data.Top, data.Bottom - 1);
    FGraph->World().RefreshOverlay();
}

void TKxZoomFrame::GrowBy(int horizontally, int vertically)
{
    if (!FGraph || !FShown)
        return;
    const TRect data = FGraph->World().DataRect();
    Widen(FBox.Left, FBox.Right, horizontally * Steps().Width, data.Left, data.Right - 1);
    Widen(FBox.Top, FBox.Bottom, vertically * Steps().Height, data.Top, data.Bottom - 1);
    FGraph->World().RefreshOverlay();
}

void TKxZoomFrame::Zoom()
{
    if (!FGraph || !FShown)
        return;
    const TRect box = FBox;
    SetShown(false);
    FGraph->ZoomTo(box);
    FGraph->Modified();
}

void TKxZoomFrame::Paint(TCanvas& canvas)
{
    if (!FShown || !FGraph)
        return;
    canvas.Pen = TPen();
    canvas.Brush = TBrush();
    canvas.FocusRect(FBox);
}

}  // namespace plotkit
