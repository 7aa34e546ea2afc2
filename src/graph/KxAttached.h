// The job of KxAttached is what the graph panel and the layout of its axes ask of a legend.
#pragma once

#include "graph/KxAxisTypes.h"
#include "host/WindowControl.h"

namespace plotkit {

class TKxIniList;

/// A control that lists the items of the graph it stands in. A descendant enters itself with the graph's `Attach`. It
/// has a window, so that it stands in front of the plotting area, which covers the whole graph.
class TKxAttachedLegend : public TWindowControl
{
public:
    using TWindowControl::TWindowControl;

    /// Series, their captions or their styles changed.
    virtual void ItemsModified() = 0;
    /// The side of the graph that the legend takes room from.
    virtual TKxAxisPos GetInGraphPosition() const = 0;
    /// Room on either side of the legend, 1/96 inch.
    virtual int GetOutsideGap() const = 0;

    /// Look and place, in 1/96 inches. Missing keys keep what is set.
    virtual void SaveOutfit(const std::string& section, TKxIniList& list) = 0;
    virtual void LoadOutfit(const std::string& section, TKxIniList& list) = 0;
    /// The layout of the axes begins: the legend takes the size it needs. False when it has nothing to show and needs
    /// no room.
    virtual bool FitToGraph() { return true; }
};

}  // namespace plotkit
