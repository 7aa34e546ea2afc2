// The job of KxSeriesDirection is one of the two directions of a series: its axis, its values and the range kept of
// them.
#pragma once

#include <algorithm>
#include <optional>
#include <span>

#include "foundation/KxRange.h"
#include "graph/KxAxisMapping.h"
#include "series/KxKnownValues.h"

namespace plotkit {

class TKxAxis;

/// Values that are not finite are missing: they count for no range.
struct TKxSeriesDirection
{
    TKxAxis* Axis = nullptr;
    TKxCustomRealVector* Data = nullptr;
    TRange Range;       ///< smallest and largest value; inverted while there is none
    int MinIndex = -1;  ///< the point that holds the smallest value, -1 for none
    int MaxIndex = -1;
    std::optional<TKxAxisMapping> Mapping;  ///< what the points were made with
    mutable TKxKnownValues Known;           ///< of the vector

    int Skip = 0;  ///< so many of the oldest values have no partner and are passed over

    int Count() const { return Data ? std::max(Data->GetCount() - Skip, 0) : 0; }
    std::span<const double> Values() const
    {
        return Data ? Data->Values().last(static_cast<std::size_t>(Count())) : std::span<const double>();
    }
    double Value(int i) const { return Data->GetValue(i + Skip); }
    bool Ascend(int count) const { return Known.Ascend(*Data, Skip, count); }
    const TKxPyramid& Pyramid(int count) const { return Known.Pyramid(*Data, Skip, count); }
    /// Index `i` of the vector has changed.
    void Note(int i, bool wasDeleted) const { Known.ValueChanged(*Data, Skip, i, wasDeleted); }
    /// The first `count` values went. False when one that holds an extreme was among them.
    bool Drop(int count);
    /// What points are made with.
    TKxAxisMapping PointMapping() const;
    bool IsEmptyRange() const { return Range.GetStart() > Range.GetStop(); }

    /// Stores the vector; what was known of the old one's values is forgotten.
    void SetData(TKxCustomRealVector* data);
    /// Values changed in a way that was not followed one by one.
    void Forget() { FKnown = -1; }

    /// Range and indexes of the first `count` values, ties to the first; the range's listener is told once.
    void Scan(int count);
    /// Whether one of the first `count` values is not missing.
    bool HasValues(int count) const;
    /// Value `index`, which holds an extreme, was set: true when the range of the first `count` values is known without
    /// looking at the others, because no extreme moved inward. It is then set, and the listener told, as `Scan` would.
    bool RenewExtreme(int index, int count);
    /// Widens the range to include value `index`; true when an end moved.
    bool Widen(int index)
    {
        if (index < 0 || index >= Count())
            return false;
        const double value = Data->Values().data()[index + Skip];
        if (index == FKnown && value < Range.GetStop() && value > Range.GetStart()) {
            ++FKnown;
            return false;
        }
        return WidenBy(index, value);
    }
    /// The same for values [first, end) at once; the listener is told once. Of values that are known already, ends that
    /// stand there count as moved.
    bool WidenAll(int first, int end);
    /// Whether that takes a scan of all values: an extreme among them may have moved inward.
    bool NeedsScan(int first, int end) const { return HoldsExtreme(first, end) && FKnown < end; }
    /// Whether the points were made with another mapping than the axis has now.
    bool HasMoved() const;
    /// The same, or the axis has yet to take over a range.
    bool IsMoving() const;
    /// Registers the range with the axis.
    void EnterAxis();
    void LeaveAxis();

private:
    bool HoldsExtreme(int first, int end) const
    {
        return (MinIndex >= first && MinIndex < end) || (MaxIndex >= first && MaxIndex < end);
    }

    bool WidenBy(int index, double value);

    bool FFollowed = false;  ///< the vector tells of its changes
    int FKnown = 0;          ///< range and indexes are those of a scan over so many values; -1: not known
};

}  // namespace plotkit
