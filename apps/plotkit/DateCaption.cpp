#include "plotkit/DateCaption.h"

#include "graph/KxAxis.h"
#include "graph/KxDateTimeTicks.h"

namespace plotkit {

void RefreshDateCaption(TKx2DGraph& graph, const std::string& name)
{
    // Calculating may find new ranges, which only the axis then knows of.
    constexpr int mostPasses = 4;
    TKxAxis* axis = graph.GetPrimaryXAxis();
    if (!axis || axis->GetScaling() != AxDateTime)
        return;
    for (int pass = 0; pass < mostPasses && (graph.NeedsCalculate() || axis->NeedsCalculate()); ++pass)
        graph.Calculate();
    const std::string dates = DatesBeside(axis->DTRegion(), {axis->GetStart(), axis->GetStop()});
    axis->SetUserCaption(dates.empty() ? name : name + " (" + dates + ")");
}

}  // namespace plotkit
