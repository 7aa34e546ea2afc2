// The job of DateCaption is to say beside a date axis what its labels leave out: the year of days, the day of hours.
#pragma once

#include <string>

#include "graph/KxGraph2D.h"

namespace plotkit {

/// Brings the graph up to date and makes `name`, with these dates in parentheses, the caption of its X axis, whatever
/// that shows now. Nothing for other axes than date-time ones.
void RefreshDateCaption(TKx2DGraph& graph, const std::string& name);

}  // namespace plotkit
