// The job of KxPairing is which values of two vectors belong together while each drops its oldest ones on its own.
#pragma once

#include <cstdint>

#include "data/KxVector.h"

namespace plotkit {

/// Pairs are counted from where both vectors were filled or cleared as a whole, or else from where the first value of
/// one stood when the other was; vectors that are new here count as filled together unless their numbers of values
/// contradict. A vector that is one append ahead of the other has dropped more values; the partners
/// of those are left out.
class TKxPairing
{
public:
    /// Looks at both vectors. How many of the first pairs went since the last look.
    int Follow(const TKxCustomRealVector* x, const TKxCustomRealVector* y)
    {
        if (!x || !y)
            return *this = {}, 0;
        if (x->FilledAt() != FX.FilledAt || y->FilledAt() != FY.FilledAt)
            Begin(*x, *y);
        return x->Dropped() == FX.Dropped && y->Dropped() == FY.Dropped ? 0 : Advance(*x, *y);
    }
    /// How many of the oldest values have no partner.
    int XSkip() const { return FX.Skip; }
    int YSkip() const { return FY.Skip; }

private:
    static constexpr std::uint64_t NeverFilled = ~std::uint64_t{0};

    struct TSide
    {
        std::uint64_t FilledAt = NeverFilled, Base = 0, Dropped = 0;
        int Skip = 0;
        bool IsNew = false;  ///< filled since the other one was

        bool IsFilled(const TKxCustomRealVector& vector) const { return vector.FilledAt() != FilledAt; }
        void Begin(const TKxCustomRealVector& vector, bool fromFill);
        std::uint64_t Gone() const { return Dropped - Base; }
        void SkipTo(std::uint64_t gone);
    };

    void Begin(const TKxCustomRealVector& x, const TKxCustomRealVector& y);
    int Advance(const TKxCustomRealVector& x, const TKxCustomRealVector& y);

    TSide FX, FY;
    std::uint64_t FGone = 0;  ///< pairs
};

}  // namespace plotkit
