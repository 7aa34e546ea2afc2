#include "graph/KxDrawingWorld.h"

#include <cstdlib>

#include "graph/KxGraph2D.h"
#include "host/CheckedMath.h"
#include "host/Errors.h"
#include "host/PixelMath.h"
#include "host/Restore.h"

namespace plotkit {

constinit const TClassInfo TKxDrawingWorld::Class{"TKxDrawingWorld", &TGraphicControl::Class};

TKxDrawingWorld::TKxDrawingWorld(TComponent* owner) : TGraphicControl(owner), FGraph(dynamic_cast<TKx2DGraph*>(owner))
{
    if (!FGraph)
        throw EComponentError("Component must be owned by TKx2DGraph");
    SetParentColor(false);
    SetParent(FGraph);
}

TKxDrawingWorld::~TKxDrawingWorld()
{
    BeginDestroy();
}

namespace {

/// Owners in the order in which they first appear, the series of each by creation.
void Reorder(TKxSeriesList& list)
{
    if (list.Count() < 2)
        return;
    struct TEntry
    {
        TKxPlottable* Series;
        std::size_t Group;
        int Index;
    };
    std::vector<const TComponent*> owners;
    std::vector<TEntry> entries;
    for (TKxPlottable* series : list) {
        const auto known = std::find(owners.begin(), owners.end(), series->Owner());
        const auto group = static_cast<std::size_t>(known - owners.begin());
        if (known == owners.end())
            owners.push_back(series->Owner());
        entries.push_back({series, group, series->ComponentIndex()});
    }
    std::stable_sort(entries.begin(), entries.end(), [](const TEntry& a, const TEntry& b) {
        return a.Group != b.Group ? a.Group < b.Group : a.Index < b.Index;
    });
    std::vector<TKxPlottable*> ordered;
    for (const TEntry& entry : entries)
        ordered.push_back(entry.Series);
    list.Assign(std::move(ordered));
}

}  // namespace

void TKxDrawingWorld::ReorderSeriesList()
{
    Reorder(FSeriesList);
    for (TKxPlottable* series : FSeriesList)
        Reorder(series->Childs());
}

bool TKxDrawingWorld::GraphIsReady() const
{
    return FGraph->PrimaryXAxis() && FGraph->PrimaryYAxis() && FGraph->NotUpdating() && !FGraph->NeedsCalculate();
}

void TKxDrawingWorld::Paint()
{
    RefreshMarkers();  // the graph may have moved
    RefreshOverlay();
    if (GraphIsReady()) {
        if (FMarkersShown)
            PaintMarkers(Canvas());
        DrawSeries();
    }
    // Together with the markers drawn before the series, these leave a trace only where a series crosses a marker; the
    // markers that are seen stand in the overlay.
    if (FMarkersShown)
        PaintMarkers(Canvas());
}

void TKxDrawingWorld::PaintPart()
{
    const TRestore part(FPaintsPart, true);
    Paint();
}

std::optional<TRect> TKxDrawingWorld::ChangedPart()
{
    if (!GraphIsReady())
        return std::nullopt;
    RefreshOverlay();  // what stands there may read the new points
    TRect changed;
    if (!AddGrownParts(FSeriesList, changed))
        return std::nullopt;
    return MoveBox(changed, FDataRect.TopLeft());
}

bool TKxDrawingWorld::AddGrownParts(const TKxSeriesList& list, TRect& changed) const
{
    for (TKxPlottable* series : list) {
        const auto part = series->GrownPart();
        if (!part || !AddGrownParts(series->Childs(), changed))
            return false;
        changed = changed.United(*part);
    }
    return true;
}

void TKxDrawingWorld::DrawSeries()
{
    TCanvas& canvas = Canvas();
    canvas.Pen.Mode = dmCopy;
    canvas.SetClipRect(FDataRect);
    SetCanvasOrigin(FDataRect.TopLeft());
    DrawSeriesList(FSeriesList);
    SetCanvasOrigin({});
    Canvas().RemoveClip();
}

void TKxDrawingWorld::DrawSeriesList(const TKxSeriesList& list)
{
    const bool onNothing = FGraph->PaintingToMetafile() && GetColor() == clButtonFace;
    for (int i = 0; i < list.Count(); ++i) {
        TKxPlottable& series = *list[i];
        TCanvas& canvas = Canvas();
        canvas.Brush.SetStyle(bsSolid);
        canvas.Brush.SetColor(onNothing ? clWhite : GetColor());
        if (series.GetShown()) {
            series.DrawLine();
            if (series.HasPointSymbols())
                series.DrawPoints();
        } else {
            series.PrepareHidden();
        }
        DrawSeriesList(series.Childs());
    }
}

bool TKxDrawingWorld::NearStart(int x) const
{
    return std::abs(std::int64_t{x} - FStartMarkerX) <= Px(1);
}

bool TKxDrawingWorld::NearStop(int x) const
{
    return std::abs(std::int64_t{x} - FStopMarkerX) <= Px(1);
}

void TKxDrawingWorld::PaintMarker(TCanvas& canvas, int x) const
{
    canvas.MoveTo(x, 0);
    canvas.LineTo(x, GetHeight());
}

void TKxDrawingWorld::PaintMarkers(TCanvas& canvas) const
{
    canvas.Pen = {GetColor(), psSolid, 3, dmXor};
    PaintMarker(canvas, FStartMarkerX);
    PaintMarker(canvas, FStopMarkerX);
}

TRecording TKxDrawingWorld::ForOverlay(void (TKxDrawingWorld::*paint)(TCanvas&) const)
{
    TRecording drawn;
    const TCanvas& overlay = OverlayCanvas();
    TCanvas canvas(drawn, overlay.Measurer(), overlay.Scale());
    canvas.SetOrigin(overlay.Origin());
    canvas.SetWindowClip(overlay.WindowClip());
    (this->*paint)(canvas);
    return drawn;
}

void TKxDrawingWorld::ReplaceInOverlay(TRecording& drawn, TRecording by)
{
    if (drawn == by)
        return;
    // Drawn again just as it was, whatever moved since: only then it removes itself.
    drawn.Replay(OverlayCanvas().Device());
    drawn = std::move(by);
    drawn.Replay(OverlayCanvas().Device());
}

void TKxDrawingWorld::ShowStartStopMarkers()
{
    if (FMarkersShown)
        return;
    CancelZoom();
    FMarkersShown = true;
    FMarkerScale = PixelScale();
    RefreshMarkers();
}

void TKxDrawingWorld::HideStartStopMarkers()
{
    if (MarkersStandInOverlay())
        ReplaceInOverlay(FDrawnMarkers, {});
    FMarkersShown = false;
    FDraggingStart = FDraggingStop = false;
}

void TKxDrawingWorld::LeaveOverlay()
{
    HideStartStopMarkers();
    CancelZoom();
    ReplaceInOverlay(FDrawnForeign, {});
}

bool TKxDrawingWorld::MarkersStandInOverlay() const
{
    // A new resolution has emptied the overlay.
    return FMarkersShown && FMarkerScale == PixelScale();
}

void TKxDrawingWorld::RefreshMarkers()
{
    if (MarkersStandInOverlay())
        ReplaceInOverlay(FDrawnMarkers,
                         FGraph->IsShowing() ? ForOverlay(&TKxDrawingWorld::PaintMarkers) : TRecording());
}

void TKxDrawingWorld::RefreshOverlay()
{
    if (OnPaintOverlay || !FDrawnForeign.Commands.empty())
        ReplaceInOverlay(FDrawnForeign,
                         FGraph->IsShowing() ? ForOverlay(&TKxDrawingWorld::PaintForeign) : TRecording());
}

void TKxDrawingWorld::SetStartMarkerX(int x)
{
    FStartMarkerX = x;
    RefreshMarkers();
    OnMarkerMoved();
}

void TKxDrawingWorld::SetStopMarkerX(int x)
{
    FStopMarkerX = x;
    RefreshMarkers();
    OnMarkerMoved();
}

void TKxDrawingWorld::SetBounds(int left, int top, int width, int height)
{
    TGraphicControl::SetBounds(left, top, width, height);
    RefreshMarkers();
}

void TKxDrawingWorld::SetColor(TColor color)
{
    TGraphicControl::SetColor(color);
    RefreshMarkers();
}

void TKxDrawingWorld::CMScaleChanged()
{
    TGraphicControl::CMScaleChanged();
    FZooming = false;
    FDrawnZoomRect.Clear();
    FDrawnMarkers.Clear();
    FDrawnForeign.Clear();
    const double factor = PixelScale() / FMarkerScale;
    FStartMarkerX = RoundToInt(FStartMarkerX * factor);
    FStopMarkerX = RoundToInt(FStopMarkerX * factor);
    FMarkerScale = PixelScale();
    RefreshMarkers();
}

}  // namespace plotkit
