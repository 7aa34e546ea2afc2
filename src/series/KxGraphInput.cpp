#include "series/KxGraphInput.h"

#include <cmath>

#include "graph/KxAxis.h"
#include "host/Host.h"
#include "series/KxReadoutText.h"

namespace plotkit {

namespace {

constexpr double NotchFactor = 0.8;
constexpr int Notch = 120;

}  // namespace

TKxGraphInput::TKxGraphInput(TKx2DGraph& graph, const TInteractionOptions& options)
    : TComponent(nullptr),
      FGraph(&graph),
      FOptions(options),
      FNavigator(graph),
      FMarkers(graph),
      FCursor(graph),
      FFrame(graph),
      FZoomedBefore(graph.GetAutoZoom())
{
    WatchFor(FGraph);
    using TSelf = TKxGraphInput;
    const auto hear = [](auto& chain, TComponent& owner, auto& event, auto added) {
        using TChain = typename std::remove_reference_t<decltype(chain)>::element_type;
        chain = std::make_unique<TChain>(owner, event, added);
    };
    TKxDrawingWorld& world = graph.World();
    hear(FMouseDown, world, world.OnMouseDown, TMouseEvent::Bind<&TSelf::MouseDown>(this));
    hear(FMouseMove, world, world.OnMouseMove, TMouseMoveEvent::Bind<&TSelf::MouseMove>(this));
    hear(FMouseUp, world, world.OnMouseUp, TMouseEvent::Bind<&TSelf::MouseUp>(this));
    hear(FPainted, world, world.OnPaintOverlay, TEvent<TCanvas&>::Bind<&TSelf::Painted>(this));
    if (FOptions.Wheel)
        hear(FWheel, world, world.OnMouseWheel, TWheelEvent::Bind<&TSelf::Wheel>(this));
    if (FOptions.ContextMenu)
        hear(FPopup, world, world.OnContextPopup, TEvent<TPoint>::Bind<&TSelf::ContextPopup>(this));
    if (FOptions.Keys) {
        hear(FKeyDown, graph, graph.OnKeyDown, TKeyEvent::Bind<&TSelf::KeyDown>(this));
        hear(FKeyUp, graph, graph.OnKeyUp, TKeyEvent::Bind<&TSelf::KeyUp>(this));
        graph.SetFocus();
    }
    hear(FNavigated, FNavigator, FNavigator.OnChanged, TEvent<>::Bind<&TSelf::Changed>(this));
    hear(FCursorMoved, FCursor, FCursor.OnMoved, TEvent<>::Bind<&TSelf::Changed>(this));
    hear(FMarkerMoved, FMarkers, FMarkers.OnMoved, TEvent<>::Bind<&TSelf::Changed>(this));
    TakeZoomRectangle();
}

TKxGraphInput::~TKxGraphInput()
{
    BeginDestroy();
    if (!FGraph)
        return;
    FGraph->SetAutoZoom(FZoomedBefore);
    FGraph->World().SetCursor(crDefault);
}

void TKxGraphInput::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation != opRemove || component != FGraph)
        return;
    FGraph = nullptr;
    Changed();
}

void TKxGraphInput::TakeZoomRectangle()
{
    // Any button zooms where the plotting area does so by itself.
    if (FGraph && FOptions.ZoomRectangle)
        FGraph->SetAutoZoom(!FPanMode && !FSpace && !FHeld);
}

void TKxGraphInput::Painted(TCanvas&)
{
    if (!FGraph || !FGraph->PrimaryXAxis() || !FGraph->PrimaryYAxis() || FGraph->IsDestroying())
        return;
    const TKxAxisMapping across = FGraph->PrimaryXAxis()->Mapping(), up = FGraph->PrimaryYAxis()->Mapping();
    if (across == FAcross && up == FUp)
        return;
    FAcross = across;
    FUp = up;
    Changed();
}

void TKxGraphInput::SetPanMode(bool panMode)
{
    panMode = panMode && FOptions.Pan;
    if (FPanMode == panMode)
        return;
    FPanMode = panMode;
    TakeZoomRectangle();
    if (FPointer)
        ShowPointer(*FPointer);
    Changed();
}

void TKxGraphInput::ZoomStep(bool in, TKxAxesChoice axes)
{
    FNavigator.ZoomAboutCentre(in ? NotchFactor : 1 / NotchFactor, axes);
}

void TKxGraphInput::SetCursorShown(bool shown)
{
    FCursor.SetShown(shown && FOptions.Cursor);
}

void TKxGraphInput::SetMarkersShown(bool shown)
{
    FMarkers.SetShown(shown && FOptions.Markers);
    if (!FMarkers.GetShown())
        FArrows = arView;
}

std::vector<std::string> TKxGraphInput::StatusLines()
{
    if (!FGraph)
        return {};
    std::vector<std::string> lines = CursorLines(FCursor);
    for (std::string& line : MarkerLines(FMarkers))
        lines.push_back(std::move(line));
    if (lines.empty() && FPointer)
        lines.push_back(PlaceLine(*FGraph, *FPointer));
    return lines;
}

bool TKxGraphInput::HasValues()
{
    return FGraph && (!FCursor.Readings().empty() || FMarkers.GetShown());
}

std::string TKxGraphInput::ValuesText()
{
    if (!FGraph)
        return {};
    const std::string points = CursorTable(FCursor), differences = MarkerTable(FMarkers);
    return points + (points.empty() || differences.empty() ? "" : "\n") + differences;
}

void TKxGraphInput::CopyValues()
{
    if (const std::string text = ValuesText(); !text.empty())
        Host().SetClipboardText(text);
}

bool TKxGraphInput::Drags(TMouseButton button, TPoint at) const
{
    const TKxDrawingWorld& world = FGraph->World();
    if (!FOptions.Pan || !world.DataRect().Contains(at))
        return false;
    const bool onMarker = world.MarkersShown() && (world.NearStart(at.X) || world.NearStop(at.X));
    return button == mbMiddle || (button == mbLeft && (FPanMode || FSpace) && !onMarker);
}

void TKxGraphInput::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    if (!FGraph)
        return;
    if (FOptions.Keys)
        FGraph->SetFocus();
    FFrame.SetShown(false);
    if (FHeld)
        return;
    if (Drags(button, {x, y})) {
        FHeld = button;
        FNavigator.BeginDrag({x, y});
    } else if (button != mbLeft) {
        FHeld = button;
    }
    TakeZoomRectangle();
    ShowPointer({x, y});
    if (button == mbRight && shift.Double && FOptions.History && !FOptions.ContextMenu)
        FNavigator.Back();
}

void TKxGraphInput::MouseMove(TShiftState shift, int x, int y)
{
    if (!FGraph)
        return;
    const TPoint at{x, y};
    ShowPointer(at);
    // Also heard when something else than the pointer moved.
    if (FPointer == at)
        return;
    FPointer = at;
    if (FNavigator.IsDragging())
        return FNavigator.DragTo(at);
    const bool isFree = !shift.Left && !shift.Middle && !shift.Right;
    if (isFree && FCursor.GetShown() && FGraph->World().DataRect().Contains(at))
        FCursor.MoveTo(at);
    else if (!FCursor.GetShown())
        Changed();
}

void TKxGraphInput::MouseUp(TMouseButton button, TShiftState, int x, int y)
{
    if (!FGraph || FHeld != button)
        return;
    FHeld.reset();
    FNavigator.EndDrag();
    TakeZoomRectangle();
    ShowPointer({x, y});
}

void TKxGraphInput::ShowPointer(TPoint at)
{
    TKxDrawingWorld& world = FGraph->World();
    if (FNavigator.IsDragging())
        return world.SetCursor(crHand);
    if (!world.DataRect().Contains(at))
        return world.SetCursor(crDefault);
    const bool pans = FOptions.Pan && (FPanMode || FSpace);
    // With markers the plotting area shows what can be dragged.
    if (!world.MarkersShown() || pans)
        world.SetCursor(pans ? crHand : world.GetAutoZoom() || FCursor.GetShown() ? crCross : crDefault);
}

void TKxGraphInput::Wheel(TShiftState shift, int delta, int x, int y)
{
    if (!FGraph)
        return;
    // The plotting area would have passed it on.
    if (FGraph->OnMouseWheel)
        FGraph->OnMouseWheel(shift, delta, x, y);
    if (!FGraph || shift.Left || shift.Middle || shift.Right)
        return;
    const TRect data = FGraph->World().DataRect();
    const bool isBeside = x < data.Left || x >= data.Right, isBelow = y < data.Top || y >= data.Bottom;
    if (isBeside && isBelow)
        return;
    const bool horizontal = shift.Shift || isBelow, vertical = shift.Ctrl || isBeside;
    const TKxAxesChoice axes = horizontal == vertical ? acAll : horizontal ? acHorizontal : acVertical;
    FNavigator.ZoomAbout({x, y}, std::pow(NotchFactor, static_cast<double>(delta) / Notch), axes);
}

void TKxGraphInput::ContextPopup(TPoint at)
{
    if (!FGraph)
        return;
    // A menu of the graph's own goes first.
    if (FGraph->OnContextPopup || FGraph->GetPopupMenu())
        return FGraph->ContextPopup(at);
    FFrame.SetShown(false);
    OnMenu(at);
}

}  // namespace plotkit
