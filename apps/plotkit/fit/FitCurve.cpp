#include "plotkit/fit/FitCurve.h"

#include "calculated/KxApproxSplineLine.h"
#include "calculated/KxDifferential.h"
#include "calculated/KxFittedLine.h"
#include "calculated/KxIntegral.h"
#include "calculated/KxInterpolatedLine.h"
#include "calculated/KxLinearRegression.h"
#include "calculated/KxPolinomial.h"
#include "calculated/KxTypedFormula.h"
#include "host/Errors.h"
#include "host/NumberFormat.h"
#include "plotkit/PlotParts.h"

namespace plotkit {

namespace {

constexpr int MostSteps = 5000;
constexpr int StepsInVain = 100;  // per coefficient

/// A simplex that has shrunk to nothing finds nothing better.
class TSteps
{
public:
    void operator()(TKxFittedLine& line)
    {
        if (line.ChiSquare() != FBest) {
            FBest = line.ChiSquare();
            FInVain = 0;
        } else if (++FInVain > StepsInVain * line.GetOrder()) {
            FInVain = 0;
            line.SetIterations(0);
        }
    }

private:
    double FBest = -1;
    int FInVain = 0;
};

TKxCalculatedSeries* NewSeries(TComponent* owner, TFitKind kind)
{
    switch (kind) {
        case fkLinear:
            return new TKxLinearRegressionLine(owner);
        case fkPolynomial:
            return new TKxPolynomLine(owner);
        case fkAkima:
        case fkSmooth:
            return new TKxInterpolatedLine(owner);
        case fkSpline:
            return new TKxApproxSplineLine(owner);
        case fkDerivative:
            return new TKxDifferential(owner);
        case fkIntegral:
            return new TKxIntegral(owner);
        case fkFormula:
            break;
    }
    auto* const line = new TKxFittedLine(owner);
    line->SetIterations(MostSteps);
    line->OnIteration = TSteps();
    return line;
}

void SetRange(TKxCalculatedSeries& curve, const std::optional<TFitRange>& range)
{
    if (range) {
        curve.SetCalculationStart(range->Start);
        curve.SetCalculationStop(range->Stop);
    }
    curve.SetAutoStart(!range);
    curve.SetAutoStop(!range);
}

}  // namespace

TKxCalculatedSeries* NewCurve(TComponent* owner, const TFitWish& wish)
{
    TKxCalculatedSeries* const curve = NewSeries(owner, wish.Kind);
    SetUpCurve(*curve, wish);
    StartAnew(*curve, wish);
    return curve;
}

void SetUpCurve(TKxCalculatedSeries& curve, const TFitWish& wish)
{
    if (auto* line = dynamic_cast<TKxLinearRegressionLine*>(&curve)) {
        if (wish.Value)
            line->SetFixedOffset(*wish.Value);
        line->SetDoFixedOffset(wish.Value.has_value());
    } else if (auto* polynomial = dynamic_cast<TKxPolynomLine*>(&curve)) {
        polynomial->SetOrder(static_cast<int>(*wish.Value));
    } else if (auto* spline = dynamic_cast<TKxApproxSplineLine*>(&curve)) {
        spline->SetWeightFactor(*wish.Value);
    } else if (auto* akima = dynamic_cast<TKxInterpolatedLine*>(&curve)) {
        akima->SetSmoothRange(wish.Value.value_or(0));
        akima->SetDoSmoothing(wish.Value.has_value());
    } else if (auto* fitted = dynamic_cast<TKxFittedLine*>(&curve)) {
        fitted->SetExpression(wish.Formula);
    }
    SetRange(curve, wish.Range);
}

void StartAnew(TKxCalculatedSeries& curve, const TFitWish& wish)
{
    auto* const line = dynamic_cast<TKxFittedLine*>(&curve);
    if (!line || line->GetOrder() < 1)
        return;
    const std::string letters = CoefficientsOf(wish);
    std::vector<double> values(letters.size(), 1.0);
    for (const TStartValue& start : wish.Start)
        if (const std::size_t place = letters.find(start.Letter); place < values.size())
            values[place] = start.Value;
    line->SetVariables(TKxRealArray(std::move(values)));
}

std::string CaptionOf(const TFitWish& wish)
{
    const std::string value = wish.Value ? FormatGeneral(*wish.Value, 6) : std::string();
    switch (wish.Kind) {
        case fkLinear:
            return wish.Value ? "linear, offset " + value : "linear";
        case fkPolynomial:
            return "polynomial of order " + value;
        case fkAkima:
            return "Akima";
        case fkSmooth:
            return "smoothed over " + value;
        case fkSpline:
            return "smoothing spline";
        case fkDerivative:
            return "derivative";
        case fkIntegral:
            return "integral";
        case fkFormula:
            break;
    }
    return CaptionOf(wish.Formula);
}

bool HasOwnAxis(const TFitWish& wish)
{
    return wish.Kind == fkDerivative || wish.Kind == fkIntegral;
}

std::string CoefficientsOf(const TFitWish& wish)
{
    if (wish.Kind != fkFormula || !FormulaCompiler())
        return {};
    const std::string letters = FormulaCompiler()(wish.Formula).Coefficients;
    if (letters.empty())
        throw EConvertError("no coefficient to be fitted; every letter but x is one");
    return letters;
}

}  // namespace plotkit
