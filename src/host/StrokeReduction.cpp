#include "host/StrokeReduction.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace plotkit {

namespace {

constexpr std::size_t FewPoints = 4;
/// A curve with a peak or a step in the column turns no more often.
constexpr int MostTurns = 2;
/// In parts of a column.
constexpr int Slack = 8;
/// Of the height of a column: a point that stands out by more is seen alone.
constexpr int LonelyPart = 2;

/// The end of the points that stand in the column of the first one and keep to one direction.
std::size_t ColumnEnd(std::span<const TPoint> points, std::size_t first, int column)
{
    const std::int64_t x = points[first].X, left = x - (x % column + column) % column, right = left + column;
    bool isRising = false, isFalling = false;
    std::size_t end = first + 1;
    for (; end < points.size() && points[end].X >= left && points[end].X < right; ++end) {
        isRising = isRising || points[end].X > points[end - 1].X;
        isFalling = isFalling || points[end].X < points[end - 1].X;
        if (isRising && isFalling)
            break;
    }
    return end;
}

/// How often a line turns up or down, by more than `slack`.
int TurnsOf(std::span<const TPoint> points, std::int64_t slack)
{
    int turns = -1, direction = 0;
    std::int64_t low = points.front().Y, high = low;
    for (const TPoint& p : points) {
        low = std::min<std::int64_t>(low, p.Y);
        high = std::max<std::int64_t>(high, p.Y);
        const int next = direction <= 0 && p.Y - low > slack ? 1 : direction >= 0 && high - p.Y > slack ? -1 : 0;
        if (next == 0)
            continue;
        direction = next;
        low = high = p.Y;
        ++turns;
    }
    return turns;
}

/// Squared, of `p` from the line between two points.
double DistanceOf(TPoint p, TPoint from, TPoint to)
{
    const double x = double{1} * to.X - from.X, y = double{1} * to.Y - from.Y;
    const double px = double{1} * p.X - from.X, py = double{1} * p.Y - from.Y;
    const double length = x * x + y * y;
    const double part = length > 0 ? std::clamp((px * x + py * y) / length, 0.0, 1.0) : 0;
    const double dx = px - part * x, dy = py - part * y;
    return dx * dx + dy * dy;
}

/// Adds those points that matter (Douglas and Peucker, 1973), but for the first one.
void AddCorners(std::span<const TPoint> points, double slack, std::vector<TPoint>& kept)
{
    constexpr double rounding = 1e-6;  // or points of a straight line would stay
    double furthest = slack * slack + rounding;
    std::size_t corner = 0;
    for (std::size_t i = 1; i + 1 < points.size(); ++i)
        if (const double distance = DistanceOf(points[i], points.front(), points.back()); distance > furthest) {
            furthest = distance;
            corner = i;
        }
    if (corner == 0)
        return kept.push_back(points.back());
    AddCorners(points.first(corner + 1), slack, kept);
    AddCorners(points.subspan(corner), slack, kept);
}

/// Goes through a line from column to column.
class TColumns
{
public:
    TColumns(std::span<const TPoint> points, int column, std::vector<TPoint>& kept)
        : FPoints(points), FColumn(column), FKept(kept)
    {}

    void Keep()
    {
        for (std::size_t first = 0, end = 0; first < FPoints.size(); first = end) {
            end = ColumnEnd(FPoints, first, FColumn);
            KeepColumn(first, end);
        }
    }

private:
    void KeepColumn(std::size_t first, std::size_t end)
    {
        const auto points = FPoints.subspan(first, end - first);
        if (points.size() <= FewPoints) {
            for (std::size_t i = first; i < end; ++i)
                Add(i);
        } else if (TurnsOf(points, FColumn / Slack) > MostTurns) {
            KeepPasses(first, end);
        } else {
            Add(first);
            AddCorners(points, FColumn / Slack, FKept);
            FNext = end;
        }
    }

    /// The strokes of a column that turns often lie on each other: what goes from one end of it to the other stands for
    /// all of them.
    void KeepPasses(std::size_t first, std::size_t end)
    {
        const auto points = FPoints.subspan(first, end - first);
        const auto [low, high] =
            std::minmax_element(points.begin(), points.end(), [](TPoint a, TPoint b) { return a.Y < b.Y; });
        const std::int64_t height = std::int64_t{high->Y} - low->Y;
        if (!IsNear(first, first - 1))
            Add(first);
        for (const auto extreme : {std::min(low, high), std::max(low, high)}) {
            const std::size_t at = first + static_cast<std::size_t>(extreme - points.begin());
            const bool standsOut = StandsOut(first, end, at, height / LonelyPart);
            if (standsOut && at > 0)
                Add(at - 1);
            Add(at);
            if (standsOut && at + 1 < FPoints.size())
                Add(at + 1);
        }
        if (!IsNear(end - 1, end))
            Add(end - 1);
    }

    /// Whether the line goes on there, and not far away.
    bool IsNear(std::size_t i, std::size_t other) const
    {
        return other < FPoints.size() && std::abs(std::int64_t{FPoints[i].X} - FPoints[other].X) <= FColumn;
    }

    /// A thin spike, which would become as wide at its foot as the column.
    bool StandsOut(std::size_t first, std::size_t end, std::size_t at, std::int64_t by) const
    {
        for (std::size_t i = first; i < end; ++i)
            if ((i + 1 < at || i > at + 1) && std::abs(std::int64_t{FPoints[i].Y} - FPoints[at].Y) <= by)
                return false;
        return true;
    }

    void Add(std::size_t i)
    {
        if (i < FNext)
            return;
        FKept.push_back(FPoints[i]);
        FNext = i + 1;
    }

    std::span<const TPoint> FPoints;
    int FColumn;
    std::vector<TPoint>& FKept;
    std::size_t FNext = 0;  ///< behind the last point kept
};

}  // namespace

void KeepColumns(std::span<const TPoint> points, int column, std::vector<TPoint>& kept)
{
    kept.clear();
    if (column < 2)
        kept.assign(points.begin(), points.end());
    else
        TColumns(points, column, kept).Keep();
}

}  // namespace plotkit
