// The job of KxGraphMarkers is to hold the two markers of a graph at abscissae and to read the series between them.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "host/EventChain.h"
#include "series/KxSeriesReader.h"

namespace plotkit {

class TKxAxis;

enum TKxMarker : std::uint8_t
{
    mkStart,
    mkStop,
};

/// What a series reads at both markers.
struct TKxMarkerReading
{
    TKxReading Start, Stop;
};

/// The plotting area's markers stand at pixels; here they keep their abscissae on the primary X axis when the view
/// changes, and wait outside when these are out of it. Somebody else may show, hide and drag them.
class TKxGraphMarkers : public TComponent
{
public:
    explicit TKxGraphMarkers(TKx2DGraph& graph);
    ~TKxGraphMarkers() override;

    TKx2DGraph* Graph() const { return FGraph; }
    bool GetShown() const;
    /// Markers that are out of view come to a third and two thirds of the plotting area.
    void SetShown(bool shown);
    /// Nothing while it was never shown.
    std::optional<double> Abscissa(TKxMarker marker) const { return FAbscissae[marker]; }
    void SetAbscissa(TKxMarker marker, double abscissa);
    /// By pixels to the right, inside the plotting area.
    void MoveBy(TKxMarker marker, int pixels);

    /// nullptr while they are hidden.
    const TKxAxis* Axis() const;
    /// One per series that has a point nearest to each marker, in drawing order; empty while they are hidden.
    std::vector<TKxMarkerReading> Readings();
    /// An abscissa changed, or they were shown or hidden here.
    TEvent<> OnMoved;

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    void MarkerMoved();
    void PlaceMarkers(TCanvas&);
    bool IsInView(TKxMarker marker) const;
    int PixelOf(TKxMarker marker) const;
    int PixelOf(double abscissa) const;

    TKx2DGraph* FGraph;
    std::unique_ptr<TEventChain<>> FMoved;
    std::unique_ptr<TEventChain<TCanvas&>> FPainting;
    TKxSeriesReader FReader;
    std::array<std::optional<double>, 2> FAbscissae;
    bool FPlacing = false;
};

}  // namespace plotkit
