#include "series/KxKnownValues.h"

#include <algorithm>
#include <cmath>

namespace plotkit {

namespace {

std::span<const double> ValuesOf(const TKxCustomRealVector& vector, int skip, int count)
{
    return vector.Values().subspan(static_cast<std::size_t>(skip), static_cast<std::size_t>(count));
}

}  // namespace

void TKxAscent::Clear()
{
    FKnown = 0;
    FFault = 0;
}

bool TKxAscent::Ascends(std::span<const double> values) const
{
    return FFault == 0 && (values.empty() || (std::isfinite(values.front()) && std::isfinite(values.back())));
}

void TKxAscent::Drop(std::size_t count)
{
    FKnown -= std::min(FKnown, count);
    FFault -= std::min(FFault, count);
}

void TKxAscent::Extend(std::span<const double> values)
{
    if (FKnown >= values.size())
        return;
    const std::size_t first = FKnown > 0 ? FKnown - 1 : 0;
    if (const std::size_t fault = LastDescent(values.subspan(first)); fault > 0)
        FFault = first + fault;
    FKnown = values.size();
}

void TKxAscent::Renew(std::span<const double> values, std::size_t i)
{
    const auto descends = [&](std::size_t at) { return at > 0 && at < FKnown && !(values[at - 1] <= values[at]); };
    for (const std::size_t at : {i + 1, i}) {
        if (descends(at))
            FFault = std::max(FFault, at);
        else if (at > 0 && FFault == at)
            return Clear();
    }
}

void TKxKnownValues::Clear()
{
    FAscent.Clear();
    FPyramid.Clear();
    FVersion.reset();
}

void TKxKnownValues::GoTo(std::uint64_t place)
{
    if (place < FPlace)
        Clear();
    const std::uint64_t count = place < FPlace ? 0 : place - FPlace;
    FPlace = place;
    if (count == 0)
        return;
    FAscent.Drop(count);
    FPyramid.Drop(count);
}

void TKxKnownValues::ValueChanged(const TKxCustomRealVector& vector, int skip, int index, bool wasDeleted)
{
    if (!FVersion)
        return;
    const bool heardAll = *FVersion + 1 == vector.Version();
    if (!heardAll || wasDeleted || index < 0)
        return Clear();
    FVersion = vector.Version();
    GoTo(vector.Dropped() + static_cast<std::uint64_t>(skip));
    if (index < skip)
        return;
    const auto i = static_cast<std::size_t>(index - skip);
    const auto values = vector.Values().subspan(static_cast<std::size_t>(skip));
    if (i < FAscent.Known())
        FAscent.Renew(values, i);
    if (i < FPyramid.Known())
        FPyramid.Renew(values, i);
}

void TKxKnownValues::Check(const TKxCustomRealVector& vector, int skip)
{
    if (FVersion && *FVersion < vector.EditedAt())
        Clear();
    GoTo(vector.Dropped() + static_cast<std::uint64_t>(skip));
    FVersion = vector.Version();
}

bool TKxKnownValues::Ascend(const TKxCustomRealVector& vector, int skip, int count)
{
    Check(vector, skip);
    const auto values = ValuesOf(vector, skip, count);
    FAscent.Extend(values);
    return FAscent.Ascends(values);
}

const TKxPyramid& TKxKnownValues::Pyramid(const TKxCustomRealVector& vector, int skip, int count)
{
    Check(vector, skip);
    FPyramid.Extend(ValuesOf(vector, skip, count));
    return FPyramid;
}

TKxPlacedExtremes TKxKnownValues::Extremes(const TKxCustomRealVector& vector, int skip, int count)
{
    const auto values = ValuesOf(vector, skip, count);
    if (!Ascend(vector, skip, count) || values.empty())
        return Pyramid(vector, skip, count).PlacedExtremes(values);
    const auto max = std::lower_bound(values.begin(), values.end(), values.back());
    return {values.front(), values.back(), 0, static_cast<int>(max - values.begin())};
}

}  // namespace plotkit
