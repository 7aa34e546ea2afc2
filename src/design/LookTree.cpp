#include "design/LookTree.h"

#include <algorithm>
#include <cmath>

#include "graph/KxAttached.h"
#include "graph/KxAxis.h"
#include "graph/KxCaption.h"
#include "graph/KxGraph2D.h"
#include "graph/KxLabel.h"
#include "graph/KxResultLabel.h"
#include "series/KxNearestPoint.h"

namespace plotkit {

namespace {

template <class TPart>
std::vector<TPart*> PartsIn(TKx2DGraph& graph)
{
    std::vector<TPart*> parts;
    for (TControl* control : graph.Controls())
        if (auto* part = dynamic_cast<TPart*>(control); part && !part->GetName().empty())
            parts.push_back(part);
    return parts;
}

std::string KindOf(const TComponent& component)
{
    // Of series there may be thousands.
    if (const auto* series = dynamic_cast<const TKxSeries*>(&component))
        return series->IsCalculated() ? "Curve" : "Series";
    if (const auto* axis = dynamic_cast<const TKxAxis*>(&component))
        return axis->Orientation() == AxHorizontal ? "X axis" : "Y axis";
    if (dynamic_cast<const TKx2DGraph*>(&component))
        return "Graph";
    if (dynamic_cast<const TKxAttachedLegend*>(&component))
        return "Legend";
    if (dynamic_cast<const TKxResultLabel*>(&component))
        return "Result";
    return dynamic_cast<const TKxCustomLabel*>(&component) ? "Label" : "Series";
}

std::string CaptionOf(const TComponent& component)
{
    const auto* series = dynamic_cast<const TKxPlottable*>(&component);
    const auto* control = series ? nullptr : dynamic_cast<const TControl*>(&component);
    std::string text = series ? series->GetCaption() : control ? control->GetText() : "";
    if (text.find('\\') != text.npos)
        text = GetStrippedString(text);
    std::ranges::replace(text, '\n', ' ');
    return text.empty() ? component.GetName() : text;
}

TLookNode SeriesNode(TKxPlottable& series)
{
    TLookNode node{&series, LookName(series), {}};
    for (TKxPlottable* child : series.Childs().Items())
        node.Parts.push_back(SeriesNode(*child));
    return node;
}

/// Pixels between a place and the line drawn from point `i` to the next one; infinite where there is none.
double DistanceToSegment(TKxSeries& series, int i, double x, double y)
{
    const auto* xs = series.GetXData();
    const auto* ys = series.GetYData();
    const int count = std::min(xs->GetCount(), ys->GetCount());
    if (i < 0 || i + 1 >= count)
        return INFINITY;
    const double x0 = series.RealToIntX(xs->GetValue(i)), y0 = series.RealToIntY(ys->GetValue(i));
    const double dx = series.RealToIntX(xs->GetValue(i + 1)) - x0, dy = series.RealToIntY(ys->GetValue(i + 1)) - y0;
    const double length = dx * dx + dy * dy;
    const double along = length > 0 ? std::clamp(((x - x0) * dx + (y - y0) * dy) / length, 0.0, 1.0) : 0.0;
    return std::hypot(x - x0 - along * dx, y - y0 - along * dy);
}

bool IsAt(TKxSeries& series, int x, int y, int reach)
{
    if (!CanBeRead(series))
        return false;
    if (series.FindPoint(x, y, reach) >= 0)
        return true;
    if (!series.GetLineStyle().GetVisible())
        return false;
    TKxNearestPoint nearest(series);
    if (!nearest.IsOrdered())
        return false;
    const int i = nearest.Find(x - GraphOf(*series.GetXAxis())->World().DataRect().Left);
    return std::min(DistanceToSegment(series, i - 1, x, y), DistanceToSegment(series, i, x, y)) <= reach;
}

/// The series at a pixel that is drawn last, those calculated from others in front of these.
TKxSeries* SeriesAt(TKxSeriesList& list, int x, int y, int reach)
{
    for (int i = list.Count() - 1; i >= 0; --i) {
        if (TKxSeries* child = SeriesAt(list[i]->Childs(), x, y, reach))
            return child;
        if (auto* series = dynamic_cast<TKxSeries*>(list[i]); series && IsAt(*series, x, y, reach))
            return series;
    }
    return nullptr;
}

template <class TPart>
TPart* PartAt(TKx2DGraph& graph, int x, int y)
{
    const auto parts = PartsIn<TPart>(graph);
    const auto hit = std::find_if(parts.rbegin(), parts.rend(), [&](const TPart* part) {
        return part->GetVisible() && part->Bounds().Contains({x, y});
    });
    return hit == parts.rend() ? nullptr : *hit;
}

}  // namespace

std::string LookName(const TComponent& component)
{
    const std::string caption = CaptionOf(component);
    const std::string kind = KindOf(component);
    return caption.empty() || caption == kind ? kind : kind + ": " + caption;
}

TLookNode LookTree(TKx2DGraph& graph)
{
    TLookNode root{&graph, LookName(graph), {}};
    const auto add = [&](auto parts) {
        for (auto* part : parts)
            root.Parts.push_back({part, LookName(*part), {}});
    };
    add(PartsIn<TKxAxis>(graph));
    for (TKxPlottable* series : graph.GetSeriesList().Items())
        root.Parts.push_back(SeriesNode(*series));
    add(PartsIn<TKxAttachedLegend>(graph));
    add(PartsIn<TKxCustomLabel>(graph));
    return root;
}

TComponent& LookPartAt(TKx2DGraph& graph, int x, int y, int reach)
{
    if (auto* label = PartAt<TKxCustomLabel>(graph, x, y))
        return *label;
    if (auto* legend = PartAt<TKxAttachedLegend>(graph, x, y))
        return *legend;
    if (graph.World().DataRect().Contains({x, y}))
        if (TKxSeries* series = SeriesAt(graph.GetSeriesList(), x, y, reach))
            return *series;
    if (auto* axis = PartAt<TKxAxis>(graph, x, y))
        return *axis;
    return graph;
}

std::vector<TComponent*> LookParts(TKx2DGraph& graph)
{
    std::vector<TComponent*> parts{&graph};
    const auto addSeries = [&](const auto& self, TKxSeriesList& list) -> void {
        for (TKxPlottable* series : list.Items()) {
            parts.push_back(series);
            self(self, series->Childs());
        }
    };
    std::ranges::copy(PartsIn<TKxAxis>(graph), std::back_inserter(parts));
    addSeries(addSeries, graph.GetSeriesList());
    std::ranges::copy(PartsIn<TKxAttachedLegend>(graph), std::back_inserter(parts));
    std::ranges::copy(PartsIn<TKxCustomLabel>(graph), std::back_inserter(parts));
    return parts;
}

}  // namespace plotkit
