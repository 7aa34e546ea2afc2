#include "plotkit/KeptView.h"

namespace plotkit {
namespace {

std::optional<TKxZoomState> ZoomOf(const TKxAxis* axis)
{
    return axis && axis->CanZoomBack() ? std::optional(axis->ZoomState()) : std::nullopt;
}

void Give(const std::optional<TKxZoomState>& zoom, TKxAxis* axis)
{
    if (zoom && axis)
        axis->SetZoomState(*zoom);
}

}  // namespace

TKeptView::TKeptView(TKx2DGraph& graph) : FX(ZoomOf(graph.GetPrimaryXAxis())), FY(ZoomOf(graph.GetPrimaryYAxis())) {}

void TKeptView::GiveTo(TKx2DGraph& graph) const
{
    Give(FX, graph.GetPrimaryXAxis());
    Give(FY, graph.GetPrimaryYAxis());
}

}  // namespace plotkit
