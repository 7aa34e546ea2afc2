#include "series/KxExtents.h"

namespace plotkit {

TKxExtentChange TKxExtents::Follow(TKxSeriesDirection& direction, int index, const TKxExtent& extent, int count,
                                   bool isFollowed)
{
    if (!isFollowed)
        FKnown = -1;
    if (index != direction.MinIndex && index != direction.MaxIndex)
        return Widen(direction, index, extent);
    return FKnown == count && RenewExtreme(direction, index, extent) ? ecMoved : ecScan;
}

TKxExtentChange TKxExtents::Widen(TKxSeriesDirection& direction, int index, const TKxExtent& extent)
{
    if (index == FKnown)
        ++FKnown;
    else if (index > FKnown)
        FKnown = -1;
    TKxExtentChange change = ecNone;
    for (const double value : {extent.First, extent.Second}) {
        if (!std::isfinite(value))
            continue;
        // A scan would take the first of two equal extremes.
        if ((value == direction.Range.GetStart() && index < direction.MinIndex) ||
            (value == direction.Range.GetStop() && index < direction.MaxIndex))
            FKnown = -1;
        const TRangeChangedResult moved = direction.Range.IfRangeChanged(value);
        if (moved == rgMinChanged || moved == rgBothChanged)
            direction.MinIndex = index;
        if (moved == rgMaxChanged || moved == rgBothChanged)
            direction.MaxIndex = index;
        if (moved != rgNotChanged)
            change = ecMoved;
    }
    return change;
}

/// False when a scan might find another range or other indexes.
bool TKxExtents::RenewExtreme(TKxSeriesDirection& direction, int index, const TKxExtent& extent)
{
    if (!std::isfinite(extent.First) || !std::isfinite(extent.Second))
        return false;
    const auto [low, high] = std::minmax(extent.First, extent.Second);
    const double start = direction.Range.GetStart(), stop = direction.Range.GetStop();
    const bool holdsMin = index == direction.MinIndex, holdsMax = index == direction.MaxIndex;
    if ((holdsMin && low > start) || (holdsMax && high < stop))
        return false;
    if ((!holdsMin && low == start) || (!holdsMax && high == stop))
        return false;
    if (low <= start)
        direction.MinIndex = index;
    if (high >= stop)
        direction.MaxIndex = index;
    direction.Range.SetStartStop(std::min(start, low), std::max(stop, high));
    return true;
}

}  // namespace plotkit
