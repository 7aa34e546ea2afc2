#include "host/ClipGeometry.h"

#include <array>
#include <cmath>
#include <cstdlib>

namespace plotkit {

namespace {

/// Keeps [0, 1] of a line where p·t <= q (Liang and Barsky, 1984).
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

double DistanceOf(TVectorPoint a, TVectorPoint b)
{
    return std::sqrt((b.X - a.X) * (b.X - a.X) + (b.Y - a.Y) * (b.Y - a.Y));
}

TVectorPoint Pulled(TVectorPoint p, const TVectorBox& box)
{
    return {std::clamp(p.X, box.Left, box.Right), std::clamp(p.Y, box.Top, box.Bottom)};
}

/// One side of a box: a coordinate times a sign is at most a limit.
struct TSide
{
    bool IsX;
    double Sign;
    double Limit;

    double Beyond(TVectorPoint p) const { return Sign * ((IsX ? p.X : p.Y) - Limit); }
    TVectorPoint Crossing(TVectorPoint from, TVectorPoint to) const
    {
        const double beyond = Beyond(from);
        TVectorPoint at = from + (to - from) * (beyond / (beyond - Beyond(to)));
        (IsX ? at.X : at.Y) = Limit;
        return at;
    }
};

void CutAt(const TSide& side, std::span<const TVectorPoint> corners, std::vector<TVectorPoint>& kept)
{
    kept.clear();
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const TVectorPoint from = corners[i], to = corners[i + 1 == corners.size() ? 0 : i + 1];
        const bool isInside = side.Beyond(from) <= 0;
        if (isInside)
            kept.push_back(from);
        if (isInside != (side.Beyond(to) <= 0))
            kept.push_back(side.Crossing(from, to));
    }
}

/// Whether b lies on the way from a to c, both steps short enough to be multiplied.
bool IsOnTheWay(TPoint a, TPoint b, TPoint c)
{
    constexpr std::int64_t longest = 1 << 30;
    const std::int64_t ux = std::int64_t{b.X} - a.X, uy = std::int64_t{b.Y} - a.Y;
    const std::int64_t vx = std::int64_t{c.X} - b.X, vy = std::int64_t{c.Y} - b.Y;
    if (std::max({std::abs(ux), std::abs(uy), std::abs(vx), std::abs(vy)}) > longest)
        return false;
    return ux * vy == uy * vx && ux * vx + uy * vy > 0;
}

void Keep(TPoint p, std::vector<TPoint>& kept)
{
    if (!kept.empty() && kept.back() == p)
        return;
    if (kept.size() > 1 && IsOnTheWay(kept[kept.size() - 2], kept.back(), p))
        kept.back() = p;
    else
        kept.push_back(p);
}

void KeepColumn(std::span<const TPoint> column, std::vector<TPoint>& kept)
{
    Keep(column.front(), kept);
    if (column.size() > 2) {
        const auto [low, high] =
            std::minmax_element(column.begin(), column.end(), [](TPoint a, TPoint b) { return a.Y < b.Y; });
        Keep(*std::min(low, high), kept);
        Keep(*std::max(low, high), kept);
    }
    Keep(column.back(), kept);
}

}  // namespace

std::optional<std::pair<TVectorPoint, TVectorPoint>> CutLine(TVectorPoint from, TVectorPoint to, const TVectorBox& box)
{
    double first = 0, last = 1;
    const TVectorPoint by = to - from;
    const bool isInside =
        Narrow(-by.X, from.X - box.Left, first, last) && Narrow(by.X, box.Right - from.X, first, last) &&
        Narrow(-by.Y, from.Y - box.Top, first, last) && Narrow(by.Y, box.Bottom - from.Y, first, last);
    if (!isInside)
        return std::nullopt;
    return std::pair(first > 0 ? Pulled(from + by * first, box) : from, last < 1 ? Pulled(from + by * last, box) : to);
}

std::vector<TCutPiece> CutPolyline(std::span<const TVectorPoint> points, const TVectorBox& box)
{
    std::vector<TCutPiece> pieces;
    TCutPiece piece;
    const auto end = [&](bool isCut) {
        piece.CutLast = isCut;
        if (piece.Points.size() > 1)
            pieces.push_back(std::move(piece));
        piece = {};
    };
    double length = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const TVectorPoint from = points[i - 1], to = points[i];
        const double step = DistanceOf(from, to);
        if (const auto part = CutLine(from, to, box); part && part->first != part->second) {
            if (part->first != from)
                end(true);
            if (piece.Points.empty()) {
                piece.Points.push_back(part->first);
                piece.CutFirst = i > 1 || part->first != from;
                piece.Start = length + DistanceOf(from, part->first);
            }
            piece.Points.push_back(part->second);
            if (part->second != to)
                end(true);
        } else if (from != to) {
            end(true);
        }
        length += step;
    }
    end(false);
    return pieces;
}

std::vector<TVectorPoint> CutPolygon(std::span<const TVectorPoint> corners, const TVectorBox& box)
{
    std::vector<TVectorPoint> cut(corners.begin(), corners.end()), kept;
    const std::array sides{TSide{true, 1, box.Right}, TSide{true, -1, box.Left}, TSide{false, 1, box.Bottom},
                           TSide{false, -1, box.Top}};
    for (const TSide& side : sides) {
        CutAt(side, cut, kept);
        cut.swap(kept);
    }
    return cut;
}

void KeepVisiblePoints(std::span<const TPoint> points, bool solid, std::vector<TPoint>& kept)
{
    kept.clear();
    for (std::size_t first = 0; first < points.size();) {
        std::size_t end = first + 1;
        while (solid && end < points.size() && points[end].X == points[first].X)
            ++end;
        KeepColumn(points.subspan(first, end - first), kept);
        first = end;
    }
}

double LengthOf(std::span<const TVectorPoint> points)
{
    double length = 0;
    for (std::size_t i = 1; i < points.size(); ++i)
        length += DistanceOf(points[i - 1], points[i]);
    return length;
}

TVectorBox BoundsOf(std::span<const TVectorPoint> points)
{
    if (points.empty())
        return {0, 0, -1, -1};
    TVectorBox box{points[0].X, points[0].Y, points[0].X, points[0].Y};
    for (const TVectorPoint& p : points)
        box = {std::min(box.Left, p.X), std::min(box.Top, p.Y), std::max(box.Right, p.X), std::max(box.Bottom, p.Y)};
    return box;
}

}  // namespace plotkit
