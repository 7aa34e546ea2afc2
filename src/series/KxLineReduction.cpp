#include "series/KxLineReduction.h"

#include <algorithm>
#include <cmath>

#include "graph/KxDraw.h"

namespace plotkit {

namespace {

/// The first of [first, end) for which `isBehind`, which stays true once it is.
template <class TBehind>
std::size_t FirstBehind(std::size_t first, std::size_t end, TBehind isBehind)
{
    while (first < end) {
        const std::size_t middle = first + (end - first) / 2;
        if (isBehind(middle))
            end = middle;
        else
            first = middle + 1;
    }
    return first;
}

}  // namespace

std::pair<std::size_t, std::size_t> ColumnsRange(std::span<const double> xs, const TKxAxisMapping& across,
                                                 std::int64_t left, std::int64_t right)
{
    const auto firstBehind = [&](std::int64_t border) {
        return FirstBehind(0, xs.size(), [&](std::size_t i) {
            const std::int32_t column = across.RealToInt(xs[i]);
            return across.Forward ? column >= border : column < border;
        });
    };
    return across.Forward ? std::pair(firstBehind(left), firstBehind(right))
                          : std::pair(firstBehind(right), firstBehind(left));
}

TKxLineReduction::TKxLineReduction(std::span<const double> xs, std::span<const double> ys, const TKxPyramid& pyramid,
                                   const TKxAxisMapping& across, const TKxAxisMapping& along)
    : FXs(xs), FYs(ys), FPyramid(pyramid), FAcross(across), FAlong(along)
{}

TPoint TKxLineReduction::PointAt(std::size_t i) const
{
    return std::isfinite(FYs[i]) ? TPoint{Column(i), FAlong.RealToInt(FYs[i])} : MissingPoint;
}

std::pair<std::size_t, std::size_t> TKxLineReduction::Range(std::int64_t left, std::int64_t right) const
{
    return ColumnsRange(FXs, FAcross, left, right);
}

void TKxLineReduction::Draw(int left, int right, TKxDrawnLine& drawn) const
{
    const bool isSame = drawn.IsCurrent && drawn.Left == left && drawn.Right == right;
    if (isSame && drawn.Count == FXs.size())
        return;
    auto [first, end] = Range(left, right);
    first -= first > 0 ? 1 : 0;
    end += end < FXs.size() ? 1 : 0;
    bool isInRun = isSame && !drawn.Points.empty();
    if (isInRun) {
        first = drawn.Tail;
        drawn.Points.resize(drawn.TailAt);
    } else {
        drawn.Points.clear();
    }
    for (; first < end; isInRun = false) {
        first = FPyramid.FindPresent(FYs, first, end);
        const std::size_t stop = FPyramid.FindMissing(FYs, first, end);
        // A run of one point draws nothing.
        if (isInRun || stop - first > 1) {
            if (!isInRun && !drawn.Points.empty())
                drawn.Points.push_back(MissingPoint);
            AddRun(first, stop, drawn);
        }
        first = stop;
    }
    drawn.Left = left;
    drawn.Right = right;
    drawn.Count = FXs.size();
    drawn.IsCurrent = true;
}

void TKxLineReduction::AddRun(std::size_t first, std::size_t end, TKxDrawnLine& drawn) const
{
    for (std::size_t length = 1; first < end; first += length) {
        length = ColumnEnd(first, end, length) - first;
        drawn.Tail = first;
        drawn.TailAt = drawn.Points.size();
        AddColumn(first, first + length, drawn.Points);
    }
}

/// The end of the column that begins at `first`, which may have `guess` points.
std::size_t TKxLineReduction::ColumnEnd(std::size_t first, std::size_t end, std::size_t guess) const
{
    const std::int32_t column = Column(first);
    const auto isBehind = [&](std::size_t i) { return Column(i) != column; };
    const std::size_t tried = std::min(first + guess, end - 1);
    std::size_t inside = tried, behind = end, step = 1;
    if (isBehind(tried)) {
        behind = tried;
        while (step < behind - first && isBehind(behind - step)) {
            behind -= step;
            step *= 2;
        }
        inside = step < behind - first ? behind - step : first;
    } else {
        while (step < end - inside && !isBehind(inside + step)) {
            inside += step;
            step *= 2;
        }
        behind = step < end - inside ? inside + step : end;
    }
    return FirstBehind(inside + 1, behind, isBehind);
}

void TKxLineReduction::AddColumn(std::size_t first, std::size_t end, std::vector<TPoint>& points) const
{
    if (end - first <= 4) {
        for (std::size_t i = first; i < end; ++i)
            points.push_back(PointAt(i));
        return;
    }
    const TPoint from = PointAt(first);
    const std::int32_t to = FAlong.RealToInt(FYs[end - 1]);
    auto [near, far] = Heights(first, end);
    // The shorter way through both.
    if (std::int64_t{from.Y} + to > std::int64_t{near} + far)
        std::swap(near, far);
    points.insert(points.end(), {from, {from.X, near}, {from.X, far}, {from.X, to}});
}

/// The lowest and highest pixel of points without missing values.
std::pair<std::int32_t, std::int32_t> TKxLineReduction::Heights(std::size_t first, std::size_t end) const
{
    const TKxExtremes extremes = FPyramid.Extremes(FYs, first, end);
    if (FAlong.IsLog() && extremes.Min <= 0)
        return LogHeights(first, end);
    return std::minmax({FAlong.RealToInt(extremes.Min), FAlong.RealToInt(extremes.Max)});
}

/// Values that are not positive all stand at one pixel of a logarithmic axis.
std::pair<std::int32_t, std::int32_t> TKxLineReduction::LogHeights(std::size_t first, std::size_t end) const
{
    TKxExtremes positive;
    for (std::size_t i = first; i < end; ++i)
        if (FYs[i] > 0)
            positive.Add({FYs[i], FYs[i]});
    const std::int32_t none = FAlong.RealToInt(0);
    if (positive.IsEmpty())
        return {none, none};
    return std::minmax({none, FAlong.RealToInt(positive.Min), FAlong.RealToInt(positive.Max)});
}

}  // namespace plotkit
