// The job of KxLineRuns is to take the points of a line apart: at missing ones, and into pieces that devices like.
#pragma once

#include <algorithm>
#include <span>

#include "graph/KxDraw.h"
#include "host/PixelMath.h"

namespace plotkit {

/// Calls `draw` for each longest run of at least two points that are not missing.
template <class TDraw>
void ForEachRun(std::span<const TPoint> points, TDraw draw)
{
    auto at = points.begin();
    while (at != points.end()) {
        const auto first = std::find_if(at, points.end(), [](TPoint point) { return point != MissingPoint; });
        at = std::find(first, points.end(), MissingPoint);
        if (at - first > 1)
            draw(std::span<const TPoint>(first, at));
    }
}

/// The same for the pieces of the runs; each begins where the one before ends.
template <class TDraw>
void ForEachPiece(std::span<const TPoint> points, TDraw draw)
{
    constexpr std::size_t Longest = 2000;
    ForEachRun(points, [&](std::span<const TPoint> run) {
        for (std::size_t start = 0; start < run.size(); start += Longest - 1)
            draw(run.subspan(start, std::min(Longest, run.size() - start)));
    });
}

/// Around the points that are not missing, right and bottom exclusive; empty when there are none.
inline TRect BoxAroundPresent(std::span<const TPoint> points)
{
    TRect box;
    for (const TPoint& p : points)
        if (p != MissingPoint)
            box = box.United({p.X, p.Y, AddPixels(p.X, 1), AddPixels(p.Y, 1)});
    return box;
}

/// An empty box stays empty.
inline TRect WidenedBox(const TRect& box, int by)
{
    if (box.IsEmpty())
        return box;
    return {AddPixels(box.Left, -by), AddPixels(box.Top, -by), AddPixels(box.Right, by), AddPixels(box.Bottom, by)};
}

}  // namespace plotkit
