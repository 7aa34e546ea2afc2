// The job of KxInterpolatedLine is the curve through the points of another series.
#pragma once

#include "calculated/KxAkima.h"
#include "calculated/KxCalculatedSeries.h"

namespace plotkit {

/// A calculated series whose curve has extrema, which are among its results.
class TKxInterpolatedFunction : public TKxCalculatedSeries
{
public:
    using TKxCalculatedSeries::TKxCalculatedSeries;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// Of the last calculation that succeeded.
    virtual const TKxRealPosArray& GetMinima() const = 0;
    virtual const TKxRealPosArray& GetMaxima() const = 0;
    void WriteResults(TKxIniList& list, const std::string& section) override;

protected:
    /// From the parent's points within the calculation interval.
    void RecalculateCoeffs(TKxIntPolynom& curve) const;
    /// The running integral of the curve over the display interval becomes the line.
    void GetRunningIntegral(TKxIntPolynom& curve);
};

/// Akima's curve through the parent's points. Off linear X axes smoothing measures in decades.
class TKxAkimaFunction : public TKxInterpolatedFunction
{
public:
    using TKxInterpolatedFunction::TKxInterpolatedFunction;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// Whether the ordinates are smoothed before.
    bool GetDoSmoothing() const { return FAkima.GetDoSmoothing(); }
    void SetDoSmoothing(bool smooth);
    bool IsDoSmoothingStored() const { return GetDoSmoothing() || GetSmoothRange() != 0; }
    /// Half width of the smoothing window. Another one switches smoothing on.
    double GetSmoothRange() const { return FAkima.GetSmoothRange(); }
    void SetSmoothRange(double range);
    const TKxAkima& Akima() const { return FAkima; }

    void WriteToIni(TKxIniList& list, const std::string& section) override;
    void ReadFromIni(TKxIniList& list, const std::string& section) override;

protected:
    void RecalculateCoeffs();

    TKxAkima FAkima;
};

class TKxInterpolatedLine : public TKxAkimaFunction
{
public:
    using TKxAkimaFunction::TKxAkimaFunction;
    ~TKxInterpolatedLine() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    std::string GetFormula() const override;
    double GetY(double x) override { return FAkima.Interpolate(x); }
    std::string CalculationID() const override;
    const TKxRealPosArray& GetMinima() const override { return FAkima.Minima(); }
    const TKxRealPosArray& GetMaxima() const override { return FAkima.Maxima(); }

protected:
    void CalculateFunction() override;
};

}  // namespace plotkit
