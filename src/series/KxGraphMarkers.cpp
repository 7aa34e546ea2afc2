#include "series/KxGraphMarkers.h"

#include <algorithm>
#include <cmath>

#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/PixelMath.h"
#include "host/Restore.h"

namespace plotkit {

namespace {

/// Where a marker waits that is out of view.
constexpr int OutOfView = -100'000;

}  // namespace

TKxGraphMarkers::TKxGraphMarkers(TKx2DGraph& graph)
    : TComponent(nullptr),
      FGraph(&graph),
      FMoved(std::make_unique<TEventChain<>>(graph.World(), graph.World().OnMarkerMoved,
                                             TEvent<>::Bind<&TKxGraphMarkers::MarkerMoved>(this))),
      FPainting(std::make_unique<TEventChain<TCanvas&>>(graph.World(), graph.World().OnPaintOverlay,
                                                        TEvent<TCanvas&>::Bind<&TKxGraphMarkers::PlaceMarkers>(this)))
{
    WatchFor(FGraph);
}

TKxGraphMarkers::~TKxGraphMarkers()
{
    BeginDestroy();
}

void TKxGraphMarkers::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == opRemove && component == FGraph)
        FGraph = nullptr;
}

bool TKxGraphMarkers::GetShown() const
{
    return FGraph && FGraph->World().MarkersShown();
}

const TKxAxis* TKxGraphMarkers::Axis() const
{
    return GetShown() ? FGraph->PrimaryXAxis() : nullptr;
}

int TKxGraphMarkers::PixelOf(TKxMarker marker) const
{
    return marker == mkStart ? FGraph->World().GetStartMarkerX() : FGraph->World().GetStopMarkerX();
}

int TKxGraphMarkers::PixelOf(double abscissa) const
{
    const TRect data = FGraph->World().DataRect();
    const double place = std::nearbyint(PlaceOf(FGraph->PrimaryXAxis()->Mapping(), abscissa));
    return place >= 0 && place < data.Width() ? data.Left + static_cast<int>(place) : OutOfView;
}

bool TKxGraphMarkers::IsInView(TKxMarker marker) const
{
    return FAbscissae[marker] && PixelOf(*FAbscissae[marker]) != OutOfView;
}

void TKxGraphMarkers::SetShown(bool shown)
{
    if (!FGraph || !FGraph->PrimaryXAxis() || shown == GetShown())
        return;
    const TRect data = FGraph->World().DataRect();
    if (!shown) {
        FGraph->World().HideStartStopMarkers();
    } else {
        for (const TKxMarker marker : {mkStart, mkStop})
            if (!IsInView(marker))
                FAbscissae[marker] =
                    ValueAt(FGraph->PrimaryXAxis()->Mapping(), data.Width() * (marker == mkStart ? 1 : 2) / 3);
        FGraph->World().ShowStartStopMarkers();
        FGraph->World().RefreshOverlay();
    }
    OnMoved();
}

void TKxGraphMarkers::SetAbscissa(TKxMarker marker, double abscissa)
{
    if (!std::isfinite(abscissa) || FAbscissae[marker] == abscissa)
        return;
    FAbscissae[marker] = abscissa;
    if (FGraph)
        FGraph->World().RefreshOverlay();
    OnMoved();
}

void TKxGraphMarkers::MoveBy(TKxMarker marker, int pixels)
{
    if (!GetShown() || !FAbscissae[marker] || !FGraph->PrimaryXAxis())
        return;
    const TRect data = FGraph->World().DataRect();
    const TKxAxisMapping mapping = FGraph->PrimaryXAxis()->Mapping();
    // One that waits outside comes in where it went out.
    const double place = std::nearbyint(PlaceOf(mapping, *FAbscissae[marker])) + pixels;
    SetAbscissa(marker, ValueAt(mapping, std::clamp(place, 0.0, std::max(data.Width() - 1.0, 0.0))));
}

void TKxGraphMarkers::MarkerMoved()
{
    if (FPlacing || !GetShown() || !FGraph->PrimaryXAxis())
        return;
    const TKxAxisMapping mapping = FGraph->PrimaryXAxis()->Mapping();
    const int left = FGraph->World().DataRect().Left;
    for (const TKxMarker marker : {mkStart, mkStop})
        if (!FAbscissae[marker] || PixelOf(*FAbscissae[marker]) != PixelOf(marker))
            FAbscissae[marker] = ValueAt(mapping, double{1} * PixelOf(marker) - left);
    OnMoved();
}

void TKxGraphMarkers::PlaceMarkers(TCanvas&)
{
    if (FPlacing || !GetShown() || !FGraph->PrimaryXAxis() || FGraph->IsDestroying())
        return;
    const TRestore placing(FPlacing, true);
    TKxDrawingWorld& world = FGraph->World();
    for (const TKxMarker marker : {mkStart, mkStop}) {
        // Shown by somebody else.
        if (!FAbscissae[marker])
            FAbscissae[marker] =
                ValueAt(FGraph->PrimaryXAxis()->Mapping(), double{1} * PixelOf(marker) - world.DataRect().Left);
        const int pixel = PixelOf(*FAbscissae[marker]);
        if (pixel == PixelOf(marker))
            continue;
        if (marker == mkStart)
            world.SetStartMarkerX(pixel);
        else
            world.SetStopMarkerX(pixel);
    }
}

std::vector<TKxMarkerReading> TKxGraphMarkers::Readings()
{
    std::vector<TKxMarkerReading> readings;
    if (!GetShown() || !FAbscissae[mkStart] || !FAbscissae[mkStop] || !FGraph->PrimaryXAxis())
        return readings;
    FReader.Follow(*FGraph);
    const TKxAxisMapping mapping = FGraph->PrimaryXAxis()->Mapping();
    for (int i = 0; i < FReader.Count(); ++i) {
        const auto at = [&](TKxMarker marker) {
            return FReader.Read(i, FReader.Points(i).Find(PlaceOf(mapping, *FAbscissae[marker])));
        };
        const auto start = at(mkStart), stop = at(mkStop);
        if (start && stop)
            readings.push_back({*start, *stop});
    }
    return readings;
}

}  // namespace plotkit
