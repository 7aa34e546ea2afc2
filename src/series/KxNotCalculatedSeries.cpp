#include "series/KxNotCalculatedSeries.h"

#include "graph/KxGraph2D.h"

namespace plotkit {

constinit const TClassInfo TKxNotCalculatedSeries::Class{"TKxNotCalculatedSeries", &TKxSeries::Class};

void TKxNotCalculatedSeries::AttachToGraphOfOwner()
{
    if (!Owner())
        return;
    // Asking for an axis may create it among the components.
    for (TComponent* const component : std::vector(Owner()->Components()))
        if (auto* const graph = dynamic_cast<TKx2DGraph*>(component)) {
            SetXAxis(graph->GetPrimaryXAxis());
            SetYAxis(graph->GetPrimaryYAxis());
            SetWorld(&graph->World());
        }
}

}  // namespace plotkit
