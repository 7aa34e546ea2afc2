// The job of KxDifferential is the slope of the curve through the points of another series.
#pragma once

#include "calculated/KxInterpolatedLine.h"
#include "calculated/KxSecondarySeries.h"

namespace plotkit {

class TKxInterpolatedSecondary : public TKxSecondarySeries<TKxAkimaFunction>
{
public:
    using TKxSecondarySeries<TKxAkimaFunction>::TKxSecondarySeries;
    ~TKxInterpolatedSecondary() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }
};

class TKxDifferential : public TKxInterpolatedSecondary
{
public:
    using TKxInterpolatedSecondary::TKxInterpolatedSecondary;
    ~TKxDifferential() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    std::string GetFormula() const override;
    double GetY(double x) override { return FAkima.Slope(x); }
    std::string CalculationID() const override;
    const TKxRealPosArray& GetMinima() const override { return FAkima.DiffMinima(); }
    const TKxRealPosArray& GetMaxima() const override { return FAkima.DiffMaxima(); }

protected:
    void CalculateFunction() override;
};

}  // namespace plotkit
