// The job of KxGraphCursor is to read the points of a graph: a hair line at one point, and the nearest point of every
// other series.
#pragma once

#include <memory>
#include <vector>

#include "host/EventChain.h"
#include "series/KxSeriesReader.h"

namespace plotkit {

/// Stands on a point of one series, the current one. Hair line and marks are drawn over the picture and follow it.
/// Without its graph, once that is gone, it reads nothing.
class TKxGraphCursor : public TComponent
{
public:
    explicit TKxGraphCursor(TKx2DGraph& graph);
    ~TKxGraphCursor() override;

    TKx2DGraph* Graph() const { return FGraph; }
    bool GetShown() const { return FShown; }
    /// A cursor that has stood nowhere yet appears in the middle.
    void SetShown(bool shown);

    /// To the series whose point nearest in x is the nearest one to a pixel of the graph panel.
    void MoveTo(TPoint at);
    /// So many points of the current series to the right; left when negative.
    void Step(int points);
    /// At least one point, and, where the abscissae have an order, about so many pixels.
    void StepPixels(int pixels);
    /// To the series drawn behind (1) or before (-1), round and round.
    void StepSeries(int by);
    void GoToEnd(bool right);

    /// One per series that can be read, in drawing order; empty while it is not shown. As last drawn or moved.
    const std::vector<TKxReading>& Readings();
    /// nullptr when there is nothing to read.
    const TKxReading* Current();
    /// The readings changed.
    TEvent<> OnMoved;

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    bool Follow();
    void Stand(int place, int index);
    void Read();
    void Refresh();
    void Paint(TCanvas& canvas);
    void PaintMark(TCanvas& canvas, TPoint at, int half) const;

    TKx2DGraph* FGraph;
    std::unique_ptr<TEventChain<TCanvas&>> FPainting;
    TKxSeriesReader FReader;
    std::vector<TKxReading> FReadings;
    TKxSeries* FSeries = nullptr;  ///< the current one, maybe gone
    int FIndex = -1;
    int FCurrent = -1;  ///< among the readings
    bool FShown = false;
    bool FMoving = false;
    bool FStale = false;  ///< readings of series that are gone
};

}  // namespace plotkit
