#include "calculated/KxFittedLine.h"

#include <algorithm>
#include <cmath>

#include "calculated/KxFitInverse.h"
#include "calculated/KxTypedFormula.h"
#include "graph/KxAxis.h"
#include "host/Restore.h"

namespace plotkit {

namespace {

constexpr int PlaceholderSamples = 65;

}  // namespace

TKxFittedLine::TKxFittedLine(TComponent* owner) : TKxCalculatedSeries(owner) {}

void TKxFittedLine::SetDoCovariance(bool doCovariance)
{
    if (doCovariance == FDoCovariance)
        return;
    FDoCovariance = doCovariance;
    SettingsChanged();
}

void TKxFittedLine::SetIterations(int iterations)
{
    if (iterations == FIterations)
        return;
    FIterations = iterations;
    if (FIsFitting)
        FStepsLeft = std::min(FStepsLeft, std::max(iterations, 0));
    else
        SettingsChanged();
}

void TKxFittedLine::SetOrder(int order)
{
    if (order == FOrder)
        return;
    FOrder = std::max(order, 0);
    ResizeVariables();
    SettingsChanged();
}

void TKxFittedLine::ResizeVariables()
{
    FVariables.Resize(static_cast<std::size_t>(std::max(FOrder, 0)));
}

void TKxFittedLine::SetFittingFunction(const TKxFittingFkt& function)
{
    if (function == FCallback)
        return;
    FCallback = function;
    CompileExpression();
    SettingsChanged();
}

void TKxFittedLine::SetVariables(const TKxRealArray& variables)
{
    if (variables == FVariables)
        return;
    if (variables.Length() != FVariables.Length())
        SetOrder(static_cast<int>(variables.Length()));
    FVariables = variables;
    SettingsChanged();
}

void TKxFittedLine::SetExpression(const std::string& expression)
{
    if (expression == FExpression)
        return;
    FExpression = expression;
    CompileExpression();
    SettingsChanged();
}

void TKxFittedLine::CompileExpression()
{
    FTyped = {};
    FExpressionError.clear();
    if (FCallback || FExpression.empty() || !FormulaCompiler())
        return;
    try {
        const TKxTypedFormula formula = FormulaCompiler()(FExpression);
        FTyped = formula.Function;
        SetOrder(static_cast<int>(formula.Coefficients.size()));
    } catch (const EConvertError& error) {
        FExpressionError = error.Message();
    }
}

std::vector<double> TKxFittedLine::GetStreamedCoefficients() const
{
    const auto values = FVariables.Span();
    return {values.begin(), values.end()};
}

void TKxFittedLine::SetStreamedCoefficients(std::span<const double> values)
{
    SetVariables(TKxRealArray(std::vector<double>(values.begin(), values.end())));
}

double TKxFittedLine::GetY(double x)
{
    const TKxFittingFkt function = GetFittingFunction();
    if (!function)
        return PlaceholderY(x);
    return function(x, {FVariables.Write(), FVariables.Length()});
}

void TKxFittedLine::GetYs(std::span<const double> xs, std::span<double> ys)
{
    const TKxFittingFkt function = GetFittingFunction();
    if (!function)
        return TKxCalculatedSeries::GetYs(xs, ys);
    function.Run(xs, {FVariables.Write(), FVariables.Length()}, ys.data());
}

bool TKxFittedLine::HasData() const
{
    const TKxNotCalculatedSeries* const parent = GetParentSeries();
    return parent && parent->GetXData() && parent->GetYData() && parent->GetXData()->GetCount() > 0 &&
           parent->GetYData()->GetCount() > 0;
}

void TKxFittedLine::CalculateFunction()
{
    if (GetFittingFunction() && FOrder >= 1) {
        if (!HasData())
            return;
        if (FIterations > 0 && !FIsFitting)
            DoFit();
        GetContinousLine();
        return;
    }
    if (IsDesigning())
        return DrawPlaceholder();
    if (!FExpressionError.empty())
        throw EConvertError(FExpressionError);
    throw EMathError(GetFittingFunction() ? "Simplex Fit: no order set!" : "Fitted Line: no FittingFunction defined");
}

void TKxFittedLine::SetPrms(double xMin, double xMax, const TKxCustomRealVector& x, const TKxCustomRealVector& y,
                            const TKxCustomRealVector* w)
{
    SetPrms(xMin, xMax, x.Values(), y.Values(), w);
}

void TKxFittedLine::SetPrms(double xMin, double xMax, std::span<const double> xs, std::span<const double> ys,
                            const TKxCustomRealVector* w)
{
    FFitX.clear();
    FFitY.clear();
    FFitW.clear();
    const std::span<const double> ws = w ? w->Values() : xs;
    const std::size_t count = std::min({xs.size(), ys.size(), ws.size()});
    for (std::size_t i = 0; i < count; ++i) {
        if (!(xMin <= xs[i] && xs[i] <= xMax) || !std::isfinite(xs[i]) || !std::isfinite(ys[i]) ||
            !std::isfinite(ws[i]))
            continue;
        FFitX.push_back(xs[i]);
        FFitY.push_back(ys[i]);
        if (w)
            FFitW.push_back(ws[i]);
    }
    if (PointCount() < FOrder)
        throw EMathError("Not enough data!");
    FInverse = nullptr;
    if (FDoCovariance) {
        try {
            FInverse = FitInverse(FFitX, FFitY);
        } catch (const EMathError&) {
            FDoCovariance = false;
            throw EMathError("Reciprocal indefinite!");
        }
    }
    // A coefficient of zero would not span the simplex.
    ResizeVariables();
    double* const coefs = FVariables.Write();
    std::replace(coefs, coefs + FVariables.Length(), 0.0, 1.0);
}

void TKxFittedLine::DoFit()
{
    FStepsLeft = FIterations;
    if (FOrder < 1)
        throw EMathError("Simplex Fit: no order set!");
    if (FIterations < 1)
        throw EMathError("Simplex Fit: no iterations set!");
    const TKxRealArray before = FVariables;
    const double chiSquareBefore = FChiSquare;
    const TRestore<int> iterations(FIterations, FIterations);
    const TRestore<bool> fitting(FIsFitting, true);
    try {
        const TKxNotCalculatedSeries& parent = *GetParentSeries();
        SetPrms(GetCalculationStart(), GetCalculationStop(), parent.XValues(), parent.YValues(), GetWeight());
        TKxSimplexFit simplex(TKxMisfit(GetFittingFunction(), FitPoints(), FInverse), FVariables.Span());
        Iterate(simplex);
        if (!std::isfinite(FChiSquare))
            throw EMathError("Floating point overflow");
    } catch (...) {
        FVariables = before;
        FChiSquare = chiSquareBefore;
        throw;
    }
    FStatistics = FitStatistics(FitPoints(), FChiSquare, FDoCovariance);
}

void TKxFittedLine::Iterate(TKxSimplexFit& simplex)
{
    do {
        simplex.Step();
        if (simplex.Best().size() != FVariables.Length())
            return;  // the handler changed the order: the next paint fits again
        FChiSquare = simplex.BestValue();
        std::ranges::copy(simplex.Best(), FVariables.Write());
        OnIteration(*this);
        --FStepsLeft;
    } while (FStepsLeft >= 0 && FChiSquare != 0.0);
}

/// What the parent's data take, or else what the axis shows: a line over all of an axis would keep the axis from
/// following the data.
std::pair<double, double> TKxFittedLine::PlaceholderSpan(bool isX) const
{
    TKxNotCalculatedSeries* const parent = GetParentSeries();
    const TKxAxis* const axis = isX ? GetXAxis() : GetYAxis();
    if (parent) {
        const TRange& data = isX ? parent->XRange() : parent->YRange();
        if (data.GetStart() < data.GetStop())
            return {data.GetStart(), data.GetStop()};
    }
    return axis ? std::pair(axis->GetStart(), axis->GetStop()) : std::pair(0.0, 1.0);
}

double TKxFittedLine::PlaceholderY(double x) const
{
    const auto [start, stop] = PlaceholderSpan(true);
    const auto [low, high] = PlaceholderSpan(false);
    const double t = std::clamp((x - start) / (stop - start), 0.0, 1.0);
    return low + (high - low) * t * t * (3 - 2 * t);
}

/// A gentle S from corner to corner.
void TKxFittedLine::DrawPlaceholder()
{
    const auto [start, stop] = PlaceholderSpan(true);
    std::vector<double> xs, ys;
    for (int i = 0; i < PlaceholderSamples; ++i) {
        xs.push_back(start + i * (stop - start) / (PlaceholderSamples - 1));
        ys.push_back(PlaceholderY(xs.back()));
    }
    SetResult(std::move(xs), std::move(ys));
}

}  // namespace plotkit
