// The job of KxApproxSplineLine is the smooth curve near the points of another series.
#pragma once

#include "calculated/KxApproxSpline.h"
#include "calculated/KxInterpolatedLine.h"

namespace plotkit {

/// The smoothing spline of the parent's points.
class TKxApproxSplineFunction : public TKxInterpolatedFunction
{
public:
    using TKxInterpolatedFunction::TKxInterpolatedFunction;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// Multiplies all weights: the larger it is, the nearer the curve comes to the points.
    double GetWeightFactor() const { return FSpline.GetWeightFactor(); }
    void SetWeightFactor(double factor);
    const TKxApproxSpline& Spline() const { return FSpline; }

    void WriteToIni(TKxIniList& list, const std::string& section) override;
    void ReadFromIni(TKxIniList& list, const std::string& section) override;

protected:
    void RecalculateCoeffs() { TKxInterpolatedFunction::RecalculateCoeffs(FSpline); }

    TKxApproxSpline FSpline;
};

class TKxApproxSplineLine : public TKxApproxSplineFunction
{
public:
    using TKxApproxSplineFunction::TKxApproxSplineFunction;
    ~TKxApproxSplineLine() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    std::string GetFormula() const override;
    double GetY(double x) override { return FSpline.Interpolate(x); }
    std::string CalculationID() const override;
    const TKxRealPosArray& GetMinima() const override { return FSpline.Minima(); }
    const TKxRealPosArray& GetMaxima() const override { return FSpline.Maxima(); }

protected:
    void CalculateFunction() override;
};

}  // namespace plotkit
