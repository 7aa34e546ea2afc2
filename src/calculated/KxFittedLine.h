// The job of KxFittedLine is the series that fits a function of the application, or a typed one, to its parent's
// points.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "calculated/KxCalculatedSeries.h"
#include "calculated/KxFittingFkt.h"
#include "calculated/KxSimplexFit.h"

namespace plotkit {

class TKxFittedLine : public TKxCalculatedSeries
{
public:
    explicit TKxFittedLine(TComponent* owner);
    ~TKxFittedLine() override { BeginDestroy(); }

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// Whether errors of abscissae count as well as those of ordinates.
    bool GetDoCovariance() const { return FDoCovariance; }
    void SetDoCovariance(bool doCovariance);
    /// A fit makes one step more. Set by a handler of `OnIteration`, it lowers the steps that are left to the fit,
    /// which has its former `Iterations` afterwards.
    int GetIterations() const { return FIterations; }
    void SetIterations(int iterations);
    /// How many coefficients there are; -1 at the start, later 0 at least. Keeps the coefficients that stay.
    int GetOrder() const { return FOrder; }
    void SetOrder(int order);
    /// The callback, or what was compiled from `Expression`. Setting none brings back the latter.
    const TKxFittingFkt& GetFittingFunction() const { return FCallback ? FCallback : FTyped; }
    void SetFittingFunction(const TKxFittingFkt& function);
    bool HasCallback() const { return bool(FCallback); }
    /// The coefficients: where the next fit starts, after a fit its result. Another length sets `Order`.
    const TKxRealArray& GetVariables() const { return FVariables; }
    void SetVariables(const TKxRealArray& variables);
    /// In a program with typed formulas also the function and `Order`, unless a callback was given. What is wrong with
    /// the text is told when the line is calculated.
    const std::string& GetExpression() const { return FExpression; }
    virtual void SetExpression(const std::string& expression);

    /// The best misfit reached.
    double ChiSquare() const { return FChiSquare; }
    /// Of the last fit.
    const TKxFitStatistics& Statistics() const { return FStatistics; }
    int PointCount() const { return static_cast<int>(FFitX.size()); }

    std::string GetFormula() const override { return FExpression; }
    double GetY(double x) override;
    std::string CalculationID() const override { return "Nonlinear Regression"; }
    void WriteResults(TKxIniList& list, const std::string& section) override;
    void WriteToIni(TKxIniList& list, const std::string& section) override;
    void ReadFromIni(TKxIniList& list, const std::string& section) override;

    std::vector<double> GetStreamedCoefficients() const;
    void SetStreamedCoefficients(std::span<const double> values);
    bool HasCoefficients() const { return !FVariables.IsEmpty(); }

    /// After every step of a fit. The handler may read the coefficients and `ChiSquare`, set `Iterations`, and let the
    /// window paint, which shows the curve so far; it must not destroy the series.
    TEvent<TKxFittedLine&> OnIteration;

protected:
    void CalculateFunction() override;
    void GetYs(std::span<const double> xs, std::span<double> ys) override;
    /// Fits the coefficients to the parent's points. When that fails they are as before.
    void DoFit();
    /// Takes the points between two abscissae into the fit.
    void SetPrms(double xMin, double xMax, const TKxCustomRealVector& x, const TKxCustomRealVector& y,
                 const TKxCustomRealVector* w);

private:
    void SetPrms(double xMin, double xMax, std::span<const double> xs, std::span<const double> ys,
                 const TKxCustomRealVector* w);
    bool HasData() const;
    void CompileExpression();
    void ResizeVariables();
    void Iterate(TKxSimplexFit& simplex);
    TKxFitPoints FitPoints() const { return {FFitX, FFitY, FFitW}; }
    std::pair<double, double> PlaceholderSpan(bool isX) const;
    double PlaceholderY(double x) const;
    void DrawPlaceholder();

    TKxFittingFkt FCallback, FTyped;
    std::string FExpression, FExpressionError;
    TKxRealArray FVariables;
    std::vector<double> FFitX, FFitY, FFitW;
    TKxMisfit::TInverse FInverse;
    TKxFitStatistics FStatistics;
    double FChiSquare = 0;
    int FIterations = 300, FOrder = -1, FStepsLeft = 0;
    bool FDoCovariance = false, FIsFitting = false;
};

}  // namespace plotkit
