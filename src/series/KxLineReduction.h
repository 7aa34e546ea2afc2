// The job of KxLineReduction is to find the few points of a long line that draw all of its pixels.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "graph/KxAxisMapping.h"
#include "series/KxPyramid.h"

namespace plotkit {

/// What a line was drawn through last.
struct TKxDrawnLine
{
    std::vector<TPoint> Points;
    int Left = 0, Right = 0;  ///< of the columns
    std::size_t Count = 0;    ///< of the values
    std::size_t Tail = 0;     ///< the value that begins the last column
    std::size_t TailAt = 0;   ///< its point
    bool IsCurrent = false;   ///< none of these values has changed since, nor where it stands

    void Forget() { IsCurrent = false; }
    void ValueChanged(int index, bool wasDeleted)
    {
        IsCurrent = IsCurrent && !wasDeleted && index >= 0 && static_cast<std::size_t>(index) >= Count;
    }
};

/// Of abscissae that are all finite and ascend those, [first, end), that stand in columns [left, right).
std::pair<std::size_t, std::size_t> ColumnsRange(std::span<const double> xs, const TKxAxisMapping& across,
                                                 std::int64_t left, std::int64_t right);

/// Points from left to right or from right to left; the abscissae are all finite and ascend.
class TKxLineReduction
{
public:
    /// `ys` are as many as `xs` or more, and known to the pyramid.
    TKxLineReduction(std::span<const double> xs, std::span<const double> ys, const TKxPyramid& pyramid,
                     const TKxAxisMapping& across, const TKxAxisMapping& along);

    /// Of each pixel column in [left, right) the first, lowest, highest and last point of every run without missing
    /// values, and one point beside them on both sides; MissingPoint stands between runs. A solid one-pixel line
    /// through them sets the same pixels in these columns as one through all points.
    /// Where only values were appended to a current line, the last column and those behind it are looked at.
    void Draw(int left, int right, TKxDrawnLine& drawn) const;
    /// The points [first, end) that stand in columns [left, right).
    std::pair<std::size_t, std::size_t> Range(std::int64_t left, std::int64_t right) const;
    /// MissingPoint where the value is missing.
    TPoint PointAt(std::size_t i) const;

private:
    std::int32_t Column(std::size_t i) const { return FAcross.RealToInt(FXs[i]); }
    std::size_t ColumnEnd(std::size_t first, std::size_t end, std::size_t guess) const;
    std::pair<std::int32_t, std::int32_t> Heights(std::size_t first, std::size_t end) const;
    std::pair<std::int32_t, std::int32_t> LogHeights(std::size_t first, std::size_t end) const;
    void AddRun(std::size_t first, std::size_t end, TKxDrawnLine& drawn) const;
    void AddColumn(std::size_t first, std::size_t end, std::vector<TPoint>& points) const;

    std::span<const double> FXs, FYs;
    const TKxPyramid& FPyramid;
    TKxAxisMapping FAcross, FAlong;
};

}  // namespace plotkit
