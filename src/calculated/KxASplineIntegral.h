// The job of KxASplineIntegral is the running integral of the smooth curve near the points of another series.
#pragma once

#include "calculated/KxASplineDifferential.h"

namespace plotkit {

class TKxASplineIntegral : public TKxApproxSplineSecondary
{
public:
    using TKxApproxSplineSecondary::TKxApproxSplineSecondary;
    ~TKxASplineIntegral() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// The points that were calculated are the line: sums are not sampled.
    void CalculateLine() override {}
    std::string GetFormula() const override;
    std::string CalculationID() const override;
    const TKxRealPosArray& GetMinima() const override { return FSpline.IntMinima(); }
    const TKxRealPosArray& GetMaxima() const override { return FSpline.IntMaxima(); }

protected:
    void CalculateFunction() override;
};

}  // namespace plotkit
