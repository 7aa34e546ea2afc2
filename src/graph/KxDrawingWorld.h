// The job of KxDrawingWorld is the plotting area: it paints the series, zooms with the mouse and carries the two
// markers.
#pragma once

#include "graph/KxPlottable.h"
#include "host/Control.h"
#include "host/Recording.h"

namespace plotkit {

class TKx2DGraph;

class TKxDrawingWorld : public TGraphicControl
{
public:
    /// The owner is the graph and becomes the parent. EComponentError "Component must be owned by TKx2DGraph".
    explicit TKxDrawingWorld(TComponent* owner);
    ~TKxDrawingWorld() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    TKx2DGraph& Graph() const { return *FGraph; }
    /// Top-level series; series add and remove themselves.
    TKxSeriesList& SeriesList() { return FSeriesList; }
    const TKxSeriesList& SeriesList() const { return FSeriesList; }
    /// Where data are drawn, pixels of the panel; right and bottom are exclusive. The positions of points count from
    /// its top left corner. The layout of the axes sets it.
    const TRect& DataRect() const { return FDataRect; }
    void SetDataRect(const TRect& rect) { FDataRect = rect; }

    bool GetAutoZoom() const { return FAutoZoom; }
    /// Whether dragging with the mouse zooms.
    void SetAutoZoom(bool autoZoom);
    /// Whether a zoom rectangle is being dragged.
    bool IsZooming() const { return FZooming; }

    /// Groups the series by owner, in the order in which owners first appear, and sorts each group by creation; the
    /// same for the children of each series.
    void ReorderSeriesList();

    /// Marker lines, x pixel of this control.
    int GetStartMarkerX() const { return FStartMarkerX; }
    void SetStartMarkerX(int x);
    int GetStopMarkerX() const { return FStopMarkerX; }
    void SetStopMarkerX(int x);
    bool MarkersShown() const { return FMarkersShown; }
    void ShowStartStopMarkers();
    void HideStartStopMarkers();
    /// Puts them where they belong now, on a visible graph; paints do so by themselves.
    void RefreshMarkers();
    /// A marker was given another place.
    TEvent<> OnMarkerMoved;

    /// Draws, in exclusive-or mode, what else stands over the picture; pixels of this control.
    TEvent<TCanvas&> OnPaintOverlay;
    /// Asks `OnPaintOverlay` anew, on a visible graph; paints do so by themselves.
    void RefreshOverlay();
    /// Takes away all that stands over the picture: the markers, the rectangle of a zoom that is going on, and what the
    /// overlay event drew.
    void LeaveOverlay();
    /// Lets go of a marker, or of the corner of a zoom rectangle, that the mouse drags.
    void CancelDrags();
    /// Whether `x` lies at most one pixel (1/96 inch) from the marker.
    bool NearStart(int x) const;
    bool NearStop(int x) const;

    /// A series has points at its end that were not drawn yet, and is otherwise as it was.
    void SeriesGrew() { InvalidatePart(); }
    std::optional<TRect> ChangedPart() override;
    /// Whether series are drawn under a clip that leaves a small part of the plotting area.
    bool PaintsPart() const { return FPaintsPart; }

    void SetBounds(int left, int top, int width, int height) override;
    void SetColor(TColor color) override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    void Click() override;
    void DblClick() override;

protected:
    void Paint() override;
    void PaintPart() override;
    void CMScaleChanged() override;

private:
    bool GraphIsReady() const;
    void PaintMarker(TCanvas& canvas, int x) const;
    void PaintMarkers(TCanvas& canvas) const;
    bool MarkersStandInOverlay() const;
    TRecording ForOverlay(void (TKxDrawingWorld::*paint)(TCanvas&) const);
    void PaintForeign(TCanvas& canvas) const { OnPaintOverlay(canvas); }
    void ReplaceInOverlay(TRecording& drawn, TRecording by);
    bool AddGrownParts(const TKxSeriesList& list, TRect& changed) const;
    void DrawSeries();
    void DrawSeriesList(const TKxSeriesList& list);
    void DragMarkers(int x);
    void DragZoomRect(int x, int y);
    void PaintZoomRect(TCanvas& canvas) const;
    void CancelZoom();
    void EndZoom();

    TKx2DGraph* FGraph = nullptr;
    TKxSeriesList FSeriesList;
    TRect FDataRect;
    TPoint FZoomStart, FZoomEnd;
    TRecording FDrawnMarkers, FDrawnZoomRect, FDrawnForeign;  ///< as they stand in the overlay
    int FStartMarkerX = 0;
    int FStopMarkerX = 0;
    double FMarkerScale = 1;  ///< resolution that the markers stand at
    bool FMarkersShown = false;
    bool FDraggingStart = false;
    bool FDraggingStop = false;
    bool FZooming = false;
    bool FPaintsPart = false;
    bool FAutoZoom = false;
};

}  // namespace plotkit
