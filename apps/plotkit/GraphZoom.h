// The job of GraphZoom is to let mouse and keys zoom a graph: rectangle, wheel, one view back, the whole view.
#pragma once

#include "graph/KxGraph2D.h"

namespace plotkit {

/// Works on the axes of the form that owns the graph. A rectangle or a turn of the wheel away from the user zooms in,
/// the other turn zooms out, the wheel about the pointer; Backspace or a double click of the right button goes back one
/// view, Home shows everything. Lives no longer than the graph.
class TGraphZoom
{
public:
    /// Takes the graph's OnMouseWheel, OnMouseDown and OnMouseUp and the OnKeyDown of its form.
    explicit TGraphZoom(TKx2DGraph& graph);
    TGraphZoom(const TGraphZoom&) = delete;
    TGraphZoom& operator=(const TGraphZoom&) = delete;

    /// Makes the shown ranges `factor` times as long; what stands at the pixel of the graph keeps its place. Does
    /// nothing outside the data rectangle.
    void ZoomAbout(TPoint at, double factor);
    void ZoomBack();
    void ShowAll();
    /// Each of them, and each release of a button, which may end a zoom rectangle: that zooms when the event is over.
    TEvent<> OnZoomed;

    const TLifeline& Lifeline() const { return FLifeline; }

private:
    void WheelTurned(TShiftState shift, int delta, int x, int y);
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y);
    void MouseUp(TMouseButton, TShiftState, int, int) { OnZoomed(); }
    void KeyDown(int key, TShiftState shift);

    TKx2DGraph& FGraph;
    TLifeline FLifeline;
};

}  // namespace plotkit
