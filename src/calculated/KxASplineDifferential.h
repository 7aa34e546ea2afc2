// The job of KxASplineDifferential is the slope of the smooth curve near the points of another series.
#pragma once

#include "calculated/KxApproxSplineLine.h"
#include "calculated/KxSecondarySeries.h"

namespace plotkit {

class TKxApproxSplineSecondary : public TKxSecondarySeries<TKxApproxSplineFunction>
{
public:
    using TKxSecondarySeries<TKxApproxSplineFunction>::TKxSecondarySeries;
    ~TKxApproxSplineSecondary() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }
};

class TKxASplineDifferential : public TKxApproxSplineSecondary
{
public:
    using TKxApproxSplineSecondary::TKxApproxSplineSecondary;
    ~TKxASplineDifferential() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    std::string GetFormula() const override;
    double GetY(double x) override { return FSpline.Slope(x); }
    std::string CalculationID() const override;
    const TKxRealPosArray& GetMinima() const override { return FSpline.DiffMinima(); }
    const TKxRealPosArray& GetMaxima() const override { return FSpline.DiffMaxima(); }

protected:
    void CalculateFunction() override;
};

}  // namespace plotkit
