#include "series/KxSeriesDirection.h"

#include <algorithm>
#include <cmath>

#include "graph/KxAxis.h"

namespace plotkit {

void TKxSeriesDirection::SetData(TKxCustomRealVector* data)
{
    Data = data;
    Known.Clear();
    FFollowed = dynamic_cast<TKxLiveVector*>(data) != nullptr;
    Forget();
}

TKxAxisMapping TKxSeriesDirection::PointMapping() const
{
    return Mapping ? *Mapping : Axis->Mapping();
}

void TKxSeriesDirection::Scan(int count)
{
    const int end = std::clamp(count, 0, Count());
    TKxPlacedExtremes found;
    if (end > TKxKnownValues::Few)
        found = Known.Extremes(*Data, Skip, end);
    else if (Data)
        found = PlacedExtremesOf(Values().first(static_cast<std::size_t>(end)));
    MinIndex = found.MinIndex;
    MaxIndex = found.MaxIndex;
    FKnown = count;
    Range.SetStartStop(found.Min, found.Max);
}

bool TKxSeriesDirection::HasValues(int count) const
{
    if (!Data)
        return false;
    const auto values = Values().first(static_cast<std::size_t>(std::clamp(count, 0, Count())));
    return std::any_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); });
}

bool TKxSeriesDirection::RenewExtreme(int index, int count)
{
    if (!FFollowed || FKnown != count || index < 0 || index >= std::min(count, Count()))
        return false;
    const double value = Value(index);
    const double start = index == MinIndex ? value : Range.GetStart();
    const double stop = index == MaxIndex ? value : Range.GetStop();
    if (!std::isfinite(value) || start > Range.GetStart() || stop < Range.GetStop() || start > stop)
        return false;
    Range.SetStartStop(start, stop);
    return true;
}

bool TKxSeriesDirection::WidenBy(int index, double value)
{
    if (index == FKnown)
        ++FKnown;
    else if (index > FKnown)
        Forget();
    if (!std::isfinite(value))
        return false;
    // A scan would take the first of two equal extremes.
    if ((value == Range.GetStart() && index < MinIndex) || (value == Range.GetStop() && index < MaxIndex))
        Forget();
    const TRangeChangedResult moved = Range.IfRangeChanged(value);
    if (moved == rgMinChanged || moved == rgBothChanged)
        MinIndex = index;
    if (moved == rgMaxChanged || moved == rgBothChanged)
        MaxIndex = index;
    return moved != rgNotChanged;
}

bool TKxSeriesDirection::WidenAll(int first, int end)
{
    end = std::min(end, Count());
    if (first < 0 || first >= end)
        return false;
    const double start = Range.GetStart(), stop = Range.GetStop();
    if (FKnown >= end) {
        const bool holds = HoldsExtreme(first, end);
        if (holds)
            Range.SetStartStop(start, stop);
        return holds;
    }
    FKnown = first <= FKnown ? end : -1;
    const auto values = Values().subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(end - first));
    const TKxPlacedExtremes found = PlacedExtremesOf(values);
    // A scan would take the first of two equal extremes.
    if ((found.Min == start && first < MinIndex) || (found.Max == stop && first < MaxIndex))
        Forget();
    if (found.Min < start)
        MinIndex = first + found.MinIndex;
    if (found.Max > stop)
        MaxIndex = first + found.MaxIndex;
    const bool hasMoved = found.Min < start || found.Max > stop;
    if (hasMoved)
        Range.SetStartStop(std::min(start, found.Min), std::max(stop, found.Max));
    return hasMoved;
}

bool TKxSeriesDirection::Drop(int count)
{
    FKnown = FKnown < 0 ? -1 : std::max(FKnown - count, 0);
    const bool isKept = MinIndex >= count && MaxIndex >= count;
    MinIndex = std::max(MinIndex - count, -1);
    MaxIndex = std::max(MaxIndex - count, -1);
    return isKept;
}

bool TKxSeriesDirection::HasMoved() const
{
    return Axis && Mapping != Axis->Mapping();
}

bool TKxSeriesDirection::IsMoving() const
{
    return HasMoved() || (Axis && Axis->GetVisible() && Axis->NeedsCalculate());
}

void TKxSeriesDirection::EnterAxis()
{
    Range.OnChanged = TRangeChangedEvent::Bind<&TKxAxis::ValuesRangeChanged>(Axis);
    Axis->ValueRanges().Add(&Range);
}

void TKxSeriesDirection::LeaveAxis()
{
    Range.OnChanged = nullptr;
    if (Axis)
        Axis->ValueRanges().Remove(&Range);
}

}  // namespace plotkit
