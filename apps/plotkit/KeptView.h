// The job of KeptView is to keep what a reader zoomed to while the data of the graph, or the graph, change.
#pragma once

#include <optional>

#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"

namespace plotkit {

/// The primary axes; those that are not zoomed go on following their data.
class TKeptView
{
public:
    explicit TKeptView(TKx2DGraph& graph);
    bool IsZoomed() const { return FX || FY; }
    /// To the graph, which has been painted since its data changed or is new, or to one in its place.
    void GiveTo(TKx2DGraph& graph) const;

private:
    std::optional<TKxZoomState> FX, FY;
};

}  // namespace plotkit
