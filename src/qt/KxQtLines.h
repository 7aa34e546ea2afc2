// The job of KxQtLines is the geometry behind lines: exact pixels, cutting far away points, dropping hidden ones.
#pragma once

#include <QLineF>
#include <QPolygonF>
#include <optional>
#include <span>
#include <vector>

#include "host/Types.h"

namespace plotkit {

/// Coordinates up to here are drawn as they are; further ones are cut off first, since a painter counts in fractions of
/// pixels.
inline constexpr std::int32_t FarPixel = 1 << 23;

inline bool IsFar(TPoint p)
{
    return p.X > FarPixel || p.X < -FarPixel || p.Y > FarPixel || p.Y < -FarPixel;
}
bool AnyFar(std::span<const TPoint> points);
/// The box with its sides pulled in to what can be drawn.
TRect Near(const TRect& box);

/// Where a painter's one-pixel line with flat ends must run so that it sets the pixels from `from` up to, not
/// including, `to`, at most 0.52 pixels off the ideal line. The points differ. `mirrored` nudges steep rising lines to
/// the other side, which makes closed outlines symmetric.
QLineF ExactLine(TPoint from, TPoint to, bool mirrored = false);

/// The part of a line within FarPixel; nothing when there is none.
std::optional<QLineF> CutLine(const QLineF& line);
/// The parts of a polyline within FarPixel.
std::vector<QPolygonF> CutPolyline(const QPolygonF& points);
/// The part of a closed polygon within FarPixel, with edges along that border.
QPolygonF CutPolygon(const QPolygonF& points);

/// Of consecutive points in one pixel column the first, lowest, highest and last, in their order: a solid one-pixel
/// line through them sets the same pixels.
QPolygon WithoutHiddenPoints(std::span<const TPoint> points);

}  // namespace plotkit
