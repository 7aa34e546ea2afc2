#include "calculated/KxLinRegr.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "calculated/LineSums.h"
#include "host/Errors.h"

namespace plotkit {

namespace {

constexpr double Unknown = 1.7e308;
// Between these the squares of distances lose nothing to underflow and overflow.
constexpr double SmallestSquare = 1e-250;
constexpr double LargestSquare = 1e250;
// With weights beyond these the points have to be in units of their own; a smaller sum of weights has too few digits.
constexpr double LightestSum = 1e-40, HeaviestSum = 1e40;
constexpr double SmallestSum = 1e-250;
// How much of a slope, in units of the points, may be lost to underflow.
constexpr double LargestLoss = 0x1p-50;

/// The routines differ in which of these they have.
struct TLineProblem
{
    TLinePoints Points;
    bool HasFixedOffset = false;

    bool IsWeighted() const { return Points.Weights.has_value(); }
};

double CheckedQuotient(TDoubleDouble dividend, TDoubleDouble divisor)
{
    if (divisor.High == 0)
        throw EMathError("Floating point division by zero");
    return (dividend / divisor).High;
}

void RequireFinite(double value)
{
    if (!std::isfinite(value))
        throw EMathError("Floating point overflow");
}

void FillStatistics(const TLineProblem& problem, const TLineMoments& moments, TKxLinearRegessionResults& results)
{
    const double weight = moments.Weight.High;
    if (weight > 1) {
        results.VarianceX = moments.XX.High / (weight - 1);
        results.VarianceY = moments.YY.High / (weight - 1);
    }
    if (moments.YY.High > 0)
        results.Determination = 1 - results.ChiSquare / moments.YY.High;
    if (problem.HasFixedOffset)
        return;
    if (results.VarianceY > 0)
        results.R = std::clamp(std::sqrt(results.VarianceX) * results.Slope / std::sqrt(results.VarianceY), -1.0, 1.0);
}

void FitFreeOffset(const TLineProblem& problem, const TLineMoments& moments, TKxLinearRegessionResults& results)
{
    if (!problem.IsWeighted() && moments.Count < 2)
        throw EMathError("Not enough data!");
    if (!problem.IsWeighted() && moments.XX.High == 0) {
        results.Slope = results.Offset = Unknown;
        results.Determination = results.R = 1;
        return;
    }
    CheckedQuotient(moments.XY, moments.XX);
    const TDoubleDouble slope = moments.XY / moments.XX;
    results.Slope = slope.High;
    results.Offset = (moments.MeanY - slope * moments.MeanX).High;
    RequireFinite(results.Offset);
    // Nothing but rounding is left of the residuals of two points.
    if (problem.IsWeighted() || moments.Count > 2)
        results.ChiSquare = SquaredResiduals(problem.Points, {moments.MeanX, moments.MeanY, slope});
    FillStatistics(problem, moments, results);
    const double weight = moments.Weight.High;
    if (!(weight > 2))
        return;
    results.DeltaSlope = std::sqrt(results.ChiSquare / ((weight - 2) * moments.XX.High));
    const TDoubleDouble part = moments.MeanX * moments.MeanX / moments.XX;
    results.DeltaOffset = std::sqrt((1 / weight + part.High) * results.ChiSquare / (weight - 2));
}

void FitFixedOffset(const TLineProblem& problem, const TLineMoments& moments, TKxLinearRegessionResults& results)
{
    const TDoubleDouble squares = moments.XX + moments.Weight * moments.MeanX * moments.MeanX;
    const TDoubleDouble above = moments.MeanY - TDoubleDouble(results.Offset);
    const TDoubleDouble products = moments.XY + moments.Weight * moments.MeanX * above;
    CheckedQuotient(products, squares);
    const TDoubleDouble slope = products / squares;
    results.Slope = slope.High;
    RequireFinite(results.Slope);
    results.ChiSquare = SquaredResiduals(problem.Points, {0, results.Offset, slope});
    FillStatistics(problem, moments, results);
    const double weight = moments.Weight.High;
    if (weight > 1)
        results.DeltaSlope = std::sqrt(results.ChiSquare / ((weight - 1) * squares.High));
}

/// In the units of the points.
void Fit(const TLineProblem& problem, const TLineMoments& moments, TKxLinearRegessionResults& results)
{
    results = {.DeltaSlope = Unknown,
               .Offset = problem.HasFixedOffset ? results.Offset : 0,
               .DeltaOffset = problem.HasFixedOffset ? 0 : Unknown};
    if (problem.HasFixedOffset && moments.Count < 1)
        throw EMathError("Not enough data!");
    if (problem.IsWeighted() && moments.Weight.High == 0)
        throw EMathError("Floating point division by zero");
    if (problem.IsWeighted() && moments.Weight.High < SmallestSum)
        throw EMathError("Floating point underflow");
    results.AverageX = moments.MeanX.High;
    results.AverageY = moments.MeanY.High;
    if (problem.HasFixedOffset)
        FitFixedOffset(problem, moments, results);
    else
        FitFreeOffset(problem, moments, results);
}

int ExponentOf(double least, double most)
{
    const double largest = std::max(std::fabs(least), std::fabs(most));
    return largest > 0 && std::isfinite(largest) ? std::ilogb(largest) : 0;
}

bool NeedsScaling(const TLineMoments& moments, double offset)
{
    const auto isSafe = [](double largest) {
        return largest == 0 || (largest * largest > SmallestSquare && largest * largest < LargestSquare);
    };
    if (moments.Count == 0 || !(moments.Weight.High > 0))
        return false;
    if (moments.Weight.High < LightestSum || moments.Weight.High > HeaviestSum)
        return true;
    const double ranges[] = {std::max(std::fabs(moments.LeastX), std::fabs(moments.MostX)),
                             std::max(std::fabs(moments.LeastY), std::fabs(moments.MostY)),
                             moments.MostX / 2 - moments.LeastX / 2, moments.MostY / 2 - moments.LeastY / 2, offset};
    return !std::all_of(std::begin(ranges), std::end(ranges), isSafe);
}

void ToUnits(int x, int y, TKxLinearRegessionResults& results)
{
    const double slope = results.Slope;
    const auto scale = [](double& value, int exponent) {
        if (value != Unknown)
            value = std::ldexp(value, exponent);
    };
    scale(results.Slope, y - x);
    scale(results.DeltaSlope, y - x);
    scale(results.Offset, y);
    scale(results.DeltaOffset, y);
    scale(results.AverageX, x);
    scale(results.AverageY, y);
    scale(results.VarianceX, 2 * x);
    scale(results.VarianceY, 2 * y);
    scale(results.ChiSquare, 2 * y);
    RequireFinite(results.Slope);
    RequireFinite(results.Offset);
    if (slope != Unknown && std::fabs(std::ldexp(results.Slope, x - y) - slope) > LargestLoss)
        throw EMathError("Floating point underflow");
}

void Solve(TLineProblem problem, TKxLinearRegessionResults& results)
{
    TLineMoments moments = MomentsOf(problem.Points);
    const double offset = problem.HasFixedOffset ? results.Offset : 0;
    if (!NeedsScaling(moments, offset))
        return Fit(problem, moments, results);
    const int x = ExponentOf(moments.LeastX, moments.MostX);
    const int y = ExponentOf(std::min(moments.LeastY, offset), std::max(moments.MostY, offset));
    problem.Points.XExponent = x;
    problem.Points.YExponent = y;
    moments = MomentsOf(problem.Points);
    results.Offset = std::ldexp(results.Offset, -y);
    Fit(problem, moments, results);
    ToUnits(x, y, results);
}

}  // namespace

void LinReg(double start, double stop, std::span<const double> x, std::span<const double> y,
            TKxLinearRegessionResults& results)
{
    Solve({{start, stop, x, y}}, results);
}

void LinRegWithWeight(double start, double stop, std::span<const double> x, std::span<const double> y,
                      std::span<const double> weights, TKxLinearRegessionResults& results)
{
    Solve({{start, stop, x, y, weights}}, results);
}

void OfsReg(double start, double stop, std::span<const double> x, std::span<const double> y,
            TKxLinearRegessionResults& results)
{
    Solve({{start, stop, x, y}, true}, results);
}

void OfsRegWithWeight(double start, double stop, std::span<const double> x, std::span<const double> y,
                      std::span<const double> weights, TKxLinearRegessionResults& results)
{
    Solve({{start, stop, x, y, weights}, true}, results);
}

}  // namespace plotkit
