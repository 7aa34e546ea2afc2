#include "series/KxPairing.h"

#include <algorithm>
#include <limits>

namespace plotkit {

namespace {

int AsInt(std::uint64_t n)
{
    return static_cast<int>(std::min<std::uint64_t>(n, std::numeric_limits<int>::max()));
}

/// Whether two vectors that nobody followed got their values side by side. If not, one was filled from what the other
/// had left.
bool CameInStep(const TKxCustomRealVector& x, const TKxCustomRealVector& y)
{
    const auto xCount = static_cast<std::uint64_t>(x.GetCount()), yCount = static_cast<std::uint64_t>(y.GetCount());
    const std::uint64_t xGone = x.Dropped() - x.DroppedAtFill(), yGone = y.Dropped() - y.DroppedAtFill();
    if (xCount == 0 || yCount == 0 || xGone + xCount == yGone + yCount)
        return true;
    return xCount != yCount && xGone + xCount > yGone && yGone + yCount > xGone;
}

}  // namespace

void TKxPairing::TSide::Begin(const TKxCustomRealVector& vector, bool fromFill)
{
    Base = fromFill ? vector.DroppedAtFill() : Dropped;
    FilledAt = vector.FilledAt();
    Dropped = Base;
    Skip = 0;
}

void TKxPairing::TSide::SkipTo(std::uint64_t gone)
{
    Skip = AsInt(gone - Gone());
}

void TKxPairing::Begin(const TKxCustomRealVector& x, const TKxCustomRealVector& y)
{
    const bool isFirstLook = FX.FilledAt == NeverFilled && FY.FilledAt == NeverFilled;
    if (isFirstLook && !CameInStep(x, y)) {
        FX.Dropped = x.Dropped();
        FY.Dropped = y.Dropped();
        FX.Begin(x, false);
        FY.Begin(y, false);
        return;
    }
    const bool isXFilled = FX.IsFilled(x), isYFilled = FY.IsFilled(y);
    FX.Begin(x, isXFilled || FX.IsNew);
    FY.Begin(y, isYFilled || FY.IsNew);
    const bool areBothNew = (isXFilled || FX.IsNew) && (isYFilled || FY.IsNew);
    FX.IsNew = isXFilled && !areBothNew;
    FY.IsNew = isYFilled && !areBothNew;
    FGone = 0;
}

int TKxPairing::Advance(const TKxCustomRealVector& x, const TKxCustomRealVector& y)
{
    FX.Dropped = x.Dropped();
    FY.Dropped = y.Dropped();
    const std::uint64_t before = FGone;
    FGone = std::max(FX.Gone(), FY.Gone());
    FX.SkipTo(FGone);
    FY.SkipTo(FGone);
    return AsInt(FGone - before);
}

}  // namespace plotkit
