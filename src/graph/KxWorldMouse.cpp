#include "graph/KxGraph2D.h"

namespace plotkit {

namespace {

TRect BoxOf(TPoint a, TPoint b)
{
    return {std::min(a.X, b.X), std::min(a.Y, b.Y), std::max(a.X, b.X), std::max(a.Y, b.Y)};
}

}  // namespace

void TKxDrawingWorld::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    const auto alive = Lifeline().Watch();
    FGraph->MouseDown(button, shift, x, y);
    if (!alive.expired())
        TGraphicControl::MouseDown(button, shift, x, y);
    if (alive.expired())
        return;
    if (FMarkersShown) {
        if (NearStart(x))
            FDraggingStart = true;
        else if (NearStop(x))
            FDraggingStop = true;
    } else if (FAutoZoom) {
        CancelZoom();  // by another button
        FZooming = true;
        FZoomStart = FZoomEnd = {x, y};
        ReplaceInOverlay(FDrawnZoomRect, ForOverlay(&TKxDrawingWorld::PaintZoomRect));
    }
}

void TKxDrawingWorld::MouseMove(TShiftState shift, int x, int y)
{
    const auto alive = Lifeline().Watch();
    FGraph->MouseMove(shift, x, y);
    if (!alive.expired())
        TGraphicControl::MouseMove(shift, x, y);
    if (alive.expired())
        return;
    if (FMarkersShown)
        DragMarkers(x);
    else if (FAutoZoom && FZooming && FZoomEnd != TPoint{x, y})
        DragZoomRect(x, y);
}

void TKxDrawingWorld::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    const auto alive = Lifeline().Watch();
    FGraph->MouseUp(button, shift, x, y);
    if (!alive.expired())
        TGraphicControl::MouseUp(button, shift, x, y);
    if (alive.expired())
        return;
    if (FMarkersShown)
        FDraggingStart = FDraggingStop = false;
    else if (FAutoZoom && FZooming)
        EndZoom();
}

void TKxDrawingWorld::Click()
{
    const auto alive = Lifeline().Watch();
    FGraph->Click();
    if (!alive.expired())
        TGraphicControl::Click();
}

void TKxDrawingWorld::DblClick()
{
    const auto alive = Lifeline().Watch();
    FGraph->DblClick();
    if (!alive.expired())
        TGraphicControl::DblClick();
}

void TKxDrawingWorld::DragMarkers(int x)
{
    SetCursor(NearStart(x) || NearStop(x) ? crSizeWestEast : crDefault);
    if (x < FDataRect.Left || x > FDataRect.Right)
        return;
    if (FDraggingStart)
        SetStartMarkerX(x);
    else if (FDraggingStop)
        SetStopMarkerX(x);
}

void TKxDrawingWorld::DragZoomRect(int x, int y)
{
    FZoomEnd = {x, y};
    ReplaceInOverlay(FDrawnZoomRect, ForOverlay(&TKxDrawingWorld::PaintZoomRect));
}

void TKxDrawingWorld::PaintZoomRect(TCanvas& canvas) const
{
    canvas.Pen = TPen();
    canvas.Brush = TBrush();
    canvas.FocusRect(BoxOf(FZoomStart, FZoomEnd));
}

void TKxDrawingWorld::CancelZoom()
{
    ReplaceInOverlay(FDrawnZoomRect, {});
    FZooming = false;
}

void TKxDrawingWorld::CancelDrags()
{
    CancelZoom();
    FDraggingStart = FDraggingStop = false;
}

void TKxDrawingWorld::EndZoom()
{
    CancelZoom();
    if (FZoomStart.X != FZoomEnd.X && FZoomStart.Y != FZoomEnd.Y)
        FGraph->ZoomTo(BoxOf(FZoomStart, FZoomEnd));
}

void TKxDrawingWorld::SetAutoZoom(bool autoZoom)
{
    if (!autoZoom)
        CancelZoom();
    FAutoZoom = autoZoom;
}

}  // namespace plotkit
