#include "qt/KxQtLines.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace plotkit {

namespace {

/// Keeps [0, 1] of a line where p·t <= q.
bool Narrow(double p, double q, double& first, double& last)
{
    if (p == 0)
        return q >= 0;
    const double t = q / p;
    if (p < 0)
        first = std::max(first, t);
    else
        last = std::min(last, t);
    return first <= last;
}

/// One side of the border: a coordinate times a sign is at most FarPixel.
struct TSide
{
    bool IsX;
    double Sign;

    double Beyond(QPointF p) const { return Sign * (IsX ? p.x() : p.y()) - FarPixel; }
};

QPolygonF CutAt(const TSide& side, const QPolygonF& corners)
{
    QPolygonF kept;
    for (qsizetype i = 0; i < corners.size(); ++i) {
        const QPointF from = corners[i], to = corners[(i + 1) % corners.size()];
        const double beyondFrom = side.Beyond(from), beyondTo = side.Beyond(to);
        if (beyondFrom <= 0)
            kept << from;
        if ((beyondFrom <= 0) != (beyondTo <= 0))
            kept << from + (to - from) * (beyondFrom / (beyondFrom - beyondTo));
    }
    return kept;
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
    double first = 0, last = 1;
    const bool inside =
        Narrow(-line.dx(), line.x1() + FarPixel, first, last) && Narrow(line.dx(), FarPixel - line.x1(), first, last) &&
        Narrow(-line.dy(), line.y1() + FarPixel, first, last) && Narrow(line.dy(), FarPixel - line.y1(), first, last);
    if (!inside)
        return std::nullopt;
    return QLineF(first > 0 ? line.pointAt(first) : line.p1(), last < 1 ? line.pointAt(last) : line.p2());
}

std::vector<QPolygonF> CutPolyline(const QPolygonF& points)
{
    std::vector<QPolygonF> parts;
    QPolygonF part;
    const auto endPart = [&] {
        if (part.size() > 1)
            parts.push_back(part);
        part.clear();
    };
    for (qsizetype i = 1; i < points.size(); ++i) {
        const auto line = CutLine(QLineF(points[i - 1], points[i]));
        if (!line || line->p1() != points[i - 1])
            endPart();
        if (!line)
            continue;
        if (part.isEmpty())
            part << line->p1();
        part << line->p2();
        if (line->p2() != points[i])
            endPart();
    }
    endPart();
    return parts;
}

QPolygonF CutPolygon(const QPolygonF& points)
{
    QPolygonF cut = points;
    for (const TSide& side : std::array{TSide{true, 1}, TSide{true, -1}, TSide{false, 1}, TSide{false, -1}})
        cut = CutAt(side, cut);
    return cut;
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
