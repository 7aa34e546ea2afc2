// The job of KxLinearRegression is the straight line through the points of another series, and what is known of it.
#pragma once

#include "calculated/KxCalculatedSeries.h"
#include "calculated/KxLinRegr.h"

namespace plotkit {

/// On logarithmic axes the line is fitted to decimal logarithms; points that have none take no part.
class TKxLinearRegressionLine : public TKxCalculatedSeries
{
public:
    using TKxCalculatedSeries::TKxCalculatedSeries;
    ~TKxLinearRegressionLine() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    bool GetDoFixedOffset() const { return FDoFixedOffset; }
    void SetDoFixedOffset(bool fixed);
    /// The computed offset, or the one that is fixed.
    double GetOffset() const { return FResults.Offset; }
    /// Fixes it.
    void SetFixedOffset(double offset);
    /// Of the last calculation that succeeded, in logarithms where axes are logarithmic.
    const TKxLinearRegessionResults& Results() const { return FResults; }

    /// Two points are a line, however far it is zoomed; ends that stand at those of the axis go with it.
    void CalculateLine() override;
    std::string GetFormula() const override;
    /// NaN where there is no line.
    double GetY(double x) override;
    std::string CalculationID() const override;
    void WriteResults(TKxIniList& list, const std::string& section) override;
    void WriteToIni(TKxIniList& list, const std::string& section) override;
    void ReadFromIni(TKxIniList& list, const std::string& section) override;

protected:
    void CalculateFunction() override;

private:
    TKxLinearRegessionResults FResults;
    bool FDoFixedOffset = false;
};

}  // namespace plotkit
