// The job of KxSeriesGrowth is to know which points of a series have come since it was drawn.
#pragma once

#include "data/KxVector.h"

namespace plotkit {

/// Of a series that, since it was drawn, has got points at its end and is otherwise as it was.
class TKxSeriesGrowth
{
public:
    void Forget() { FCount = 0; }
    void Drawn(int count, const TKxCustomRealVector* xs, const TKxCustomRealVector* ys)
    {
        FCount = count;
        FX = TAge(xs);
        FY = TAge(ys);
    }
    /// The points that are drawn; 0 when more may have changed.
    int Count() const { return FCount; }
    /// False when values changed that nobody told of.
    bool HasHeardAll(const TKxCustomRealVector* xs, const TKxCustomRealVector* ys) const
    {
        return TAge(xs).IsGrownFrom(FX) && TAge(ys).IsGrownFrom(FY);
    }
    void Tell() { FHasGrown = true; }
    bool TakeTold() { return std::exchange(FHasGrown, false); }

private:
    struct TAge
    {
        TAge() = default;
        explicit TAge(const TKxCustomRealVector* vector)
            : Version(vector ? vector->Version() : 0),
              EditedAt(vector ? vector->EditedAt() : 0),
              Dropped(vector ? vector->Dropped() : 0)
        {}
        bool IsGrownFrom(const TAge& before) const { return EditedAt <= before.Version && Dropped == before.Dropped; }

        std::uint64_t Version = 0, EditedAt = 0, Dropped = 0;
    };

    TAge FX, FY;
    int FCount = 0;
    bool FHasGrown = false;
};

}  // namespace plotkit
