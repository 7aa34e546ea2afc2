#include "graph/GraphClasses.h"

#include <array>

#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "graph/KxLabel.h"
#include "graph/KxLegend.h"
#include "graph/KxResultLabel.h"

namespace plotkit {

namespace {

constexpr std::array<const TClassInfo*, 5> Classes{
    &TKx2DGraph::Class, &TKxAxis::Class, &TKxLabel::Class, &TKxLegend::Class, &TKxResultLabel::Class,
};

}  // namespace

std::span<const TClassInfo* const> GraphClasses()
{
    return Classes;
}

}  // namespace plotkit
