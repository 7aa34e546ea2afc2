// The job of KxExtents is the ranges of series whose points reach from one value to another: error bars, stacked bars,
// arrows.
#pragma once

#include <algorithm>
#include <cmath>

#include "graph/KxAxis.h"
#include "series/KxSeriesDirection.h"

namespace plotkit {

inline bool IsLog(const TKxAxis* axis)
{
    return axis && axis->Mapping().IsLog();
}

/// The two values that a point reaches, in any order; what is not finite counts for nothing.
struct TKxExtent
{
    double First, Second;
};

/// What a changed point means for a range.
enum TKxExtentChange : std::uint8_t
{
    ecNone,
    ecMoved,
    ecScan,  ///< an extreme may have moved inward: all points have to be looked at
};

/// The range of one direction, kept from the extents of its points.
class TKxExtents
{
public:
    /// Range and indexes of the first `count` extents, ties to the first; the listener is told once. With `base` that
    /// value is in the range, too.
    template <class TExtentOf>
    void Scan(TKxSeriesDirection& direction, int count, const double* base, TExtentOf extentOf)
    {
        int minIndex = -1, maxIndex = -1;
        double min = base ? *base : 1.7e308, max = base ? *base : -1.7e308;
        for (int i = 0; i < count; ++i) {
            const TKxExtent extent = extentOf(i);
            for (const double value : {extent.First, extent.Second}) {
                if (!std::isfinite(value))
                    continue;
                if (value < min) {
                    min = value;
                    minIndex = i;
                }
                if (value > max) {
                    max = value;
                    maxIndex = i;
                }
            }
        }
        direction.MinIndex = minIndex;
        direction.MaxIndex = maxIndex;
        FKnown = count;
        direction.Range.SetStartStop(min, max);
    }

    /// Point `index` changed, of `count`. `isFollowed`: all changes since the last scan were told, one by one.
    TKxExtentChange Follow(TKxSeriesDirection& direction, int index, const TKxExtent& extent, int count,
                           bool isFollowed);

private:
    TKxExtentChange Widen(TKxSeriesDirection& direction, int index, const TKxExtent& extent);
    bool RenewExtreme(TKxSeriesDirection& direction, int index, const TKxExtent& extent);

    int FKnown = -1;  ///< range and indexes are those of a scan over so many points
};

}  // namespace plotkit
