// The job of KxZoomFrame is a zoom rectangle without a mouse: it is moved and sized step by step.
#pragma once

#include <memory>

#include "graph/KxGraph2D.h"
#include "host/EventChain.h"

namespace plotkit {

/// Drawn over the plotting area while it is shown. Nothing without its graph, once that is gone.
class TKxZoomFrame : public TComponent
{
public:
    explicit TKxZoomFrame(TKx2DGraph& graph);
    ~TKxZoomFrame() override;

    bool GetShown() const { return FShown; }
    /// Appears around the middle half of the plotting area.
    void SetShown(bool shown);
    /// Pixels of the graph panel.
    const TRect& Box() const { return FBox; }
    /// By steps of a fortieth of the plotting area, inside of it.
    void MoveBy(int right, int down);
    /// Both sides move: wider, higher.
    void GrowBy(int horizontally, int vertically);
    /// Zooms to the rectangle and takes it away.
    void Zoom();

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    void Paint(TCanvas& canvas);
    TSize Steps() const;

    TKx2DGraph* FGraph;
    std::unique_ptr<TEventChain<TCanvas&>> FPainting;
    TRect FBox;
    bool FShown = false;
};

}  // namespace plotkit
