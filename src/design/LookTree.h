// The job of LookTree is the outline of a graph: the parts whose looks can be changed, as a reader of the graph sees
// them.
#pragma once

#include <string>
#include <vector>

#include "host/Component.h"

namespace plotkit {

class TKx2DGraph;

struct TLookNode
{
    TComponent* Component = nullptr;
    std::string Text;  ///< UTF-8, never empty
    std::vector<TLookNode> Parts;
};

/// The graph with its axes, series (those calculated from another one below it), legends and labels.
TLookNode LookTree(TKx2DGraph& graph);

/// What a part is called in lists and messages: "X axis: Time", "Line: Temperature", "Label: ...".
std::string LookName(const TComponent& component);

/// The part at a pixel of the graph: a label or legend, else the series drawn within `reach` device pixels, else an
/// axis, else the graph.
TComponent& LookPartAt(TKx2DGraph& graph, int x, int y, int reach);

/// All components of that outline, from the top.
std::vector<TComponent*> LookParts(TKx2DGraph& graph);

}  // namespace plotkit
