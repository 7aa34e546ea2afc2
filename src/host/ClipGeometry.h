// The job of ClipGeometry is to cut lines and polygons at a box and to leave out points that nobody can see.
#pragma once

#include <optional>
#include <utility>

#include "host/VectorPath.h"

namespace plotkit {

/// The part of a line inside the box; an end inside it comes back as it is.
std::optional<std::pair<TVectorPoint, TVectorPoint>> CutLine(TVectorPoint from, TVectorPoint to, const TVectorBox& box);

struct TCutPiece
{
    std::vector<TVectorPoint> Points;  ///< two at least
    double Start = 0;                  ///< length of the polyline before the piece
    bool CutFirst = false;             ///< its first point stands on the border of the box, not on the polyline's end
    bool CutLast = false;
};

/// The parts of a polyline inside the box, in order.
std::vector<TCutPiece> CutPolyline(std::span<const TVectorPoint> points, const TVectorBox& box);

/// The part of a closed polygon inside the box, with edges along the border (Sutherland and Hodgman, 1974). Of an
/// outline that crosses itself, edges that run back along the border enclose nothing.
std::vector<TVectorPoint> CutPolygon(std::span<const TVectorPoint> corners, const TVectorBox& box);

/// The points without repeated ones and those in the middle of a straight line; with `solid` also without all but the
/// first, lowest, highest and last of consecutive points in one column. A line through the rest covers the same.
void KeepVisiblePoints(std::span<const TPoint> points, bool solid, std::vector<TPoint>& kept);

double LengthOf(std::span<const TVectorPoint> points);
TVectorBox BoundsOf(std::span<const TVectorPoint> points);

}  // namespace plotkit
