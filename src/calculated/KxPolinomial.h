// The job of KxPolinomial is the series of a polynomial that is fitted to its parent's points.
#pragma once

#include "calculated/KxCalculatedSeries.h"
#include "calculated/KxPolyRegr.h"

namespace plotkit {

class TKxPolynomLine : public TKxCalculatedSeries
{
public:
    explicit TKxPolynomLine(TComponent* owner);
    ~TKxPolynomLine() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    int GetOrder() const { return FResults.Order; }
    /// At least 2.
    void SetOrder(int order);
    /// The factor of the i-th power. ERangeError "Polynomial: Index of variable out of range" above `Order` and below
    /// 0.
    double GetCoeff(int i) const;
    /// Of the last calculation that succeeded.
    const TKxPolynomRegessionResults& Results() const { return FResults; }

    std::string CalculationID() const override { return "Polynomial Regression"; }
    std::string GetFormula() const override;
    double GetY(double x) override { return RegressionValue(FResults, x); }
    void WriteResults(TKxIniList& list, const std::string& section) override;
    void WriteToIni(TKxIniList& list, const std::string& section) override;
    void ReadFromIni(TKxIniList& list, const std::string& section) override;

protected:
    void CalculateFunction() override;

private:
    TKxPolynomRegessionResults FResults;
};

}  // namespace plotkit
