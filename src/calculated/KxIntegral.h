// The job of KxIntegral is the running integral of the curve through the points of another series.
#pragma once

#include "calculated/KxDifferential.h"

namespace plotkit {

class TKxIntegral : public TKxInterpolatedSecondary
{
public:
    using TKxInterpolatedSecondary::TKxInterpolatedSecondary;
    ~TKxIntegral() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// The points that were calculated are the line: sums are not sampled.
    void CalculateLine() override {}
    std::string GetFormula() const override;
    std::string CalculationID() const override;
    const TKxRealPosArray& GetMinima() const override { return FAkima.IntMinima(); }
    const TKxRealPosArray& GetMaxima() const override { return FAkima.IntMaxima(); }

protected:
    void CalculateFunction() override;
};

}  // namespace plotkit
