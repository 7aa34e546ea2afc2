#include "series/KxKnownValues.h"

#include <algorithm>
#include <cmath>

namespace plotkit {

void TKxAscent::Clear()
{
    FKnown = 0;
    FAscends = true;
}

void TKxAscent::Extend(std::span<const double> values)
{
    if (FKnown >= values.size())
        return;
    FAscends = FAscends && plotkit::Ascends(values.subspan(FKnown > 0 ? FKnown - 1 : 0));
    FKnown = values.size();
}

void TKxAscent::Renew(std::span<const double> values, std::size_t i)
{
    const bool fits = FAscends && std::isfinite(values[i]) && (i == 0 || values[i - 1] <= values[i]) &&
                      (i + 1 >= FKnown || values[i] <= values[i + 1]);
    if (!fits)
        Clear();
}

void TKxKnownValues::Clear()
{
    FAscent.Clear();
    FPyramid.Clear();
    FVersion.reset();
}

void TKxKnownValues::ValueChanged(const TKxCustomRealVector& vector, int index, bool wasDeleted)
{
    if (!FVersion)
        return;
    const bool heardAll = *FVersion + 1 == vector.Version();
    if (!heardAll || wasDeleted || index < 0)
        return Clear();
    FVersion = vector.Version();
    const auto i = static_cast<std::size_t>(index);
    if (i < FAscent.Known())
        FAscent.Renew(vector.Values(), i);
    if (i < FPyramid.Known())
        FPyramid.Renew(vector.Values(), i);
}

void TKxKnownValues::Check(const TKxCustomRealVector& vector)
{
    if (FVersion != vector.Version())
        Clear();
    FVersion = vector.Version();
}

bool TKxKnownValues::Ascend(const TKxCustomRealVector& vector, int count)
{
    Check(vector);
    FAscent.Extend(vector.Values().first(static_cast<std::size_t>(count)));
    return FAscent.Ascends();
}

const TKxPyramid& TKxKnownValues::Pyramid(const TKxCustomRealVector& vector, int count)
{
    Check(vector);
    FPyramid.Extend(vector.Values().first(static_cast<std::size_t>(count)));
    return FPyramid;
}

TKxPlacedExtremes TKxKnownValues::Extremes(const TKxCustomRealVector& vector, int count)
{
    const auto values = vector.Values().first(static_cast<std::size_t>(count));
    if (!Ascend(vector, count) || values.empty())
        return Pyramid(vector, count).PlacedExtremes(values);
    const auto max = std::lower_bound(values.begin(), values.end(), values.back());
    return {values.front(), values.back(), 0, static_cast<int>(max - values.begin())};
}

}  // namespace plotkit
