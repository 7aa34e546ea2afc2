#include "series/KxLongLine.h"

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

void TKxLongLine::XChanged(const TKxCustomRealVector& x, int index, bool wasDeleted)
{
    FIsDrawn = false;
    FAscent.ValueChanged(x, index, wasDeleted);
}

void TKxLongLine::YChanged(const TKxCustomRealVector& y, int index, bool wasDeleted)
{
    FIsDrawn = false;
    FPyramid.ValueChanged(y, index, wasDeleted);
}

std::optional<TKxLineReduction> TKxLongLine::Line(const TKxCustomRealVector& x, const TKxCustomRealVector& y, int count,
                                                  const TKxAxisMapping& across, const TKxAxisMapping& along)
{
    const auto length = static_cast<std::size_t>(count);
    const auto xs = x.Values().first(length);
    if (xs.empty() || (across.IsLog() && xs.front() <= 0) || !FAscent.Of(x, length).Ascends())
        return std::nullopt;
    return TKxLineReduction(xs, y.Values().first(length), FPyramid.Of(y, length), across, along);
}

std::span<const TPoint> TKxLongLine::Drawn(const TKxLineReduction& line, int left, int right)
{
    if (!FIsDrawn || left != FLeft || right != FRight) {
        FDrawn = line.Points(left, right);
        FLeft = left;
        FRight = right;
        FIsDrawn = true;
    }
    return FDrawn;
}

}  // namespace plotkit
