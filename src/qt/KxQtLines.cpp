#include "qt/KxQtLines.h"

#include <algorithm>
#include <cmath>

#include "host/ClipGeometry.h"

namespace plotkit {

namespace {

constexpr TVectorBox Drawable{-FarPixel, -FarPixel, FarPixel, FarPixel};

TVectorPoint Real(QPointF p)
{
    return {p.x(), p.y()};
}

QPointF Real(TVectorPoint p)
{
    return {p.X, p.Y};
}

template <class TTo, class TFrom>
TTo Converted(const TFrom& points)
{
    TTo converted;
    converted.reserve(static_cast<decltype(converted.size())>(points.size()));
    for (const auto& point : points)
        converted.push_back(Real(point));
    return converted;
}

void AddColumn(std::span<const TPoint> column, QPolygon& kept)
{
    const auto add = [&kept](TPoint p) { kept << QPoint(p.X, p.Y); };
    if (column.size() <= 4) {
        std::for_each(column.begin(), column.end(), add);
        return;
    }
    const auto [low, high] =
        std::minmax_element(column.begin(), column.end(), [](TPoint a, TPoint b) { return a.Y < b.Y; });
    add(column.front());
    add(*std::min(low, high));
    add(*std::max(low, high));
    add(column.back());
}

}  // namespace

bool AnyFar(std::span<const TPoint> points)
{
    return std::any_of(points.begin(), points.end(), IsFar);
}

TRect Near(const TRect& box)
{
    const auto side = [](std::int32_t value) { return std::clamp(value, -FarPixel, FarPixel); };
    return {side(box.Left), side(box.Top), side(box.Right), side(box.Bottom)};
}

QLineF ExactLine(TPoint from, TPoint to, bool mirrored)
{
    const double dx = double{1} * to.X - from.X, dy = double{1} * to.Y - from.Y;
    const bool xMajor = std::abs(dx) >= std::abs(dy);
    const double slope = xMajor ? dy / dx : dx / dy;
    const double nudge = mirrored && !xMajor && slope < 0 ? -1.0 / 128 : 1.0 / 128;
    const double minor = 0.5 + nudge - (slope > 0 ? slope / 2 : 0);
    const QPointF shift =
        xMajor ? QPointF(dx < 0, minor + (dx < 0 ? slope : 0)) : QPointF(minor + (dy < 0 ? slope : 0), dy < 0);
    return {QPointF(from.X, from.Y) + shift, QPointF(to.X, to.Y) + shift};
}

std::optional<QLineF> CutLine(const QLineF& line)
{
    const auto cut = CutLine(Real(line.p1()), Real(line.p2()), Drawable);
    return cut ? std::optional(QLineF(Real(cut->first), Real(cut->second))) : std::nullopt;
}

std::vector<QPolygonF> CutPolyline(const QPolygonF& points)
{
    std::vector<QPolygonF> parts;
    for (const TCutPiece& piece : CutPolyline(Converted<std::vector<TVectorPoint>>(points), Drawable))
        parts.push_back(Converted<QPolygonF>(piece.Points));
    return parts;
}

QPolygonF CutPolygon(const QPolygonF& points)
{
    return Converted<QPolygonF>(CutPolygon(Converted<std::vector<TVectorPoint>>(points), Drawable));
}

QPolygon WithoutHiddenPoints(std::span<const TPoint> points)
{
    QPolygon kept;
    kept.reserve(static_cast<qsizetype>(points.size()));
    for (std::size_t first = 0; first < points.size();) {
        std::size_t end = first + 1;
        while (end < points.size() && points[end].X == points[first].X)
            ++end;
        AddColumn(points.subspan(first, end - first), kept);
        first = end;
    }
    return kept;
}

}  // namespace plotkit
