#include "plotkit/GraphZoom.h"

#include <cmath>

#include "graph/KxAxis.h"
#include "graph/KxDrawingWorld.h"
#include "host/CheckedMath.h"

namespace plotkit {
namespace {

constexpr double NotchFactor = 0.8;
constexpr int Notch = 120;

template <class TAction>
void ForEachAxis(TKx2DGraph& graph, TAction action)
{
    for (TComponent* component : graph.Owner()->Components())
        if (auto* axis = dynamic_cast<TKxAxis*>(component))
            action(*axis);
}

}  // namespace

TGraphZoom::TGraphZoom(TKx2DGraph& graph) : FGraph(graph)
{
    graph.SetAutoZoom(true);
    graph.OnMouseWheel = TWheelEvent::Bind<&TGraphZoom::WheelTurned>(this);
    graph.OnMouseDown = TMouseEvent::Bind<&TGraphZoom::MouseDown>(this);
    graph.OnMouseUp = TMouseEvent::Bind<&TGraphZoom::MouseUp>(this);
    if (auto* form = dynamic_cast<TWindowControl*>(&graph.Root()))
        form->OnKeyDown = TKeyEvent::Bind<&TGraphZoom::KeyDown>(this);
}

void TGraphZoom::ZoomAbout(TPoint at, double factor)
{
    const TRect data = FGraph.World().DataRect();
    if (data.IsEmpty() || !data.Contains(at))
        return;
    const auto moved = [&](int edge, int centre) { return RoundToInt(centre + (edge - centre) * factor); };
    FGraph.ZoomTo(
        {moved(data.Left, at.X), moved(data.Top, at.Y), moved(data.Right - 1, at.X), moved(data.Bottom - 1, at.Y)});
    OnZoomed();
}

void TGraphZoom::ZoomBack()
{
    ForEachAxis(FGraph, [](TKxAxis& axis) {
        if (axis.CanZoomBack())
            axis.ZoomBack();
    });
    FGraph.Modified();
    OnZoomed();
}

void TGraphZoom::ShowAll()
{
    ForEachAxis(FGraph, [](TKxAxis& axis) { axis.RedoRanges(); });
    FGraph.Modified();
    OnZoomed();
}

void TGraphZoom::WheelTurned(TShiftState, int delta, int x, int y)
{
    ZoomAbout({x, y}, std::pow(NotchFactor, static_cast<double>(delta) / Notch));
}

void TGraphZoom::MouseDown(TMouseButton button, TShiftState shift, int, int)
{
    if (button == mbRight && shift.Double)
        ZoomBack();
}

void TGraphZoom::KeyDown(int key, TShiftState)
{
    if (key == kyBackspace)
        ZoomBack();
    else if (key == kyHome)
        ShowAll();
}

}  // namespace plotkit
