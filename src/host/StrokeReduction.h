// The job of StrokeReduction is to leave out those points of a line that nobody sees under the width of its pen.
#pragma once

#include <span>
#include <vector>

#include "host/Types.h"

namespace plotkit {

/// What is kept of a line. Points that follow each other in one column of `column` pixels and go only to the right or
/// only to the left there stay while they are four or fewer. Of more, a curve keeps those that stand more than an
/// eighth of the column away from the line through the others. What turns up and down more than twice keeps its lowest
/// and highest point, both neighbours of one that stands out by half the height, and its first and last point where the
/// line goes on further than a column away. No point moves, none is further from the line through the rest than a
/// column. With columns of fewer than two pixels all points stay.
void KeepColumns(std::span<const TPoint> points, int column, std::vector<TPoint>& kept);

}  // namespace plotkit
