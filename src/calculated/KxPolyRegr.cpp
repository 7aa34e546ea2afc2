#include "calculated/KxPolyRegr.h"

#include <algorithm>
#include <cmath>

#include "calculated/KxMatrix.h"
#include "calculated/PowerSums.h"
#include "foundation/KxArithm.h"

namespace plotkit {

namespace {

// The sums are good to about 2^-94. A pivot of less than 2^32 times what that can account for would leave coefficients
// with fewer than nine digits.
constexpr double SumsTolerance = 0x1p-62;
// Even with the best abscissae the smallest pivot falls below 4^-order of its sum: no order above has one that counts.
constexpr int HighestOrder = 100;
// Relative error of coefficients after their move to powers of x, and what that may change of the curve.
constexpr double CoefficientError = 0x1p-100;
constexpr double CurveTolerance = 0x1p-20;
// Equal ordinates have a spread too: their own rounding.
constexpr double LeastSpread = 0x1p-33;

[[noreturn]] void RaiseNotDetermined()
{
    throw EMathError("Cholesky Decomposition ([i,i]): Matrix is not positive definite!");
}

void Clear(TKxPolynomRegessionResults& results)
{
    if (results.Order < 0)
        throw ERangeError("Polynomial: Order must not be negative");
    const std::int32_t order = results.Order;
    results = {};
    results.Order = order;
    results.Coeffs.Resize(CoefficientCount(order));
    results.CoeffRests.Resize(CoefficientCount(order));
}

std::vector<TDoubleDouble> SolveNormalEquations(const TPowerSums& sums, std::size_t size)
{
    TKxPreciseMatrix a(size);
    for (std::size_t j = 0; j < size; ++j)
        for (std::size_t k = j; k < size; ++k)
            a(j, k) = sums.Powers[j + k];
    CholeskyDecomposition(a, SumsTolerance);
    std::vector<TDoubleDouble> solution(sums.Products.begin(),
                                        sums.Products.begin() + static_cast<std::ptrdiff_t>(size));
    CholeskySubstitution(a, solution);
    return solution;
}

// From powers of t = (x - centre) 2^-e to powers of x 2^-e, by repeated synthetic division (Horner).
void MoveToOrigin(std::vector<TDoubleDouble>& coefficients, TDoubleDouble centre)
{
    for (std::size_t lowest = 0; lowest + 1 < coefficients.size(); ++lowest)
        for (std::size_t k = coefficients.size() - 1; k-- > lowest;)
            coefficients[k] -= centre * coefficients[k + 1];
}

// The coefficients of powers of x. Refuses them when their errors, or what doubles can hold, would bend the curve
// visibly: `spread` is that of the ordinates, both in the units of the frame.
void StoreCoefficients(std::vector<TDoubleDouble> moved, const TFitFrame& frame, double spread,
                       TKxPolynomRegessionResults& results)
{
    const double centre = std::ldexp(frame.Centre, -frame.XExponent);
    MoveToOrigin(moved, centre);
    const double farthest = std::abs(centre) + frame.LargestT;
    double power = 1;
    double error = 0;
    TKxRealArray coefficients(moved.size());
    TKxRealArray rests(moved.size());
    for (std::size_t k = 0; k < moved.size(); ++k) {
        const int exponent = frame.YExponent - static_cast<int>(k) * frame.XExponent;
        const TDoubleDouble value = ScaleByPowerOfTwo(moved[k], exponent);
        if (!std::isfinite(value.High))
            RaiseNotDetermined();
        const double lost = Abs(moved[k] - ScaleByPowerOfTwo(value, -exponent)).High;
        error += (CoefficientError * std::abs(moved[k].High) + lost) * power;
        power *= farthest;
        coefficients.Write()[k] = value.High;
        rests.Write()[k] = value.Low;
    }
    if (!(error <= CurveTolerance * std::max(spread, LeastSpread)))
        RaiseNotDetermined();
    results.Coeffs = coefficients;
    results.CoeffRests = rests;
}

double QuotientOr0(double dividend, double divisor)
{
    return divisor > 0 ? dividend / divisor : 0;
}

// The statistics back in the units of the data.
void StoreStatistics(const TSquareSums& squares, const TFitFrame& frame, double weight,
                     TKxPolynomRegessionResults& results)
{
    const auto unscaled = [&](double value, int exponent) {
        return std::ldexp(value, exponent + frame.WeightExponent);
    };
    results.r2 = squares.Y > 0 ? 1 - squares.Residuals / squares.Y : 0;
    results.VarianceX = unscaled(QuotientOr0(squares.X, weight - 1), 2 * frame.XExponent);
    results.VarianceY = unscaled(QuotientOr0(squares.Y, weight - 1), 2 * frame.YExponent);
    results.ChiSquare = unscaled(squares.Residuals, 2 * frame.YExponent);
    const double meanResidual =
        std::ldexp(QuotientOr0(squares.Residuals, weight - results.Order), frame.WeightExponent);
    results.QRel = std::ldexp(std::sqrt(meanResidual), frame.YExponent);
}

void Fit(TFitPoints points, TKxPolynomRegessionResults& results)
{
    Clear(results);
    const TFitFrame frame = FrameOf(points);
    const double needed = static_cast<double>(results.Order) + 1;
    const auto count = static_cast<double>(frame.Count);
    if (frame.Count == 0 || (!points.IsWeighted && count < needed))
        throw EMathError("Not enough data!");
    const bool canBeSolved = count >= needed && results.Order <= HighestOrder;
    const auto order = static_cast<std::size_t>(canBeSolved ? results.Order : 1);
    const TPowerSums sums = SumPowers(points, frame, std::max<std::size_t>(order, 1));
    points.AbsoluteWeights = true;
    const TPowerSums means = frame.HasNegativeWeights ? SumPowers(points, frame, 1) : sums;
    const double weight = ScaleByPowerOfTwo(means.Powers[0], frame.WeightExponent).High;
    if (std::trunc(weight) < needed)
        throw EMathError("Not enough data!");
    if (!canBeSolved)
        RaiseNotDetermined();
    const std::vector<TDoubleDouble> coefficients = SolveNormalEquations(sums, order + 1);

    const TDoubleDouble meanT = means.Powers[1] / means.Powers[0];
    const TDoubleDouble meanV = means.Products[0] / means.Powers[0];
    const TSquareSums squares = SumSquares(points, frame, meanT.High, meanV.High, coefficients);
    StoreCoefficients(coefficients, frame, std::sqrt(squares.Y / means.Powers[0].High), results);
    StoreStatistics(squares, frame, weight, results);
    results.AverageX = (frame.Centre + ScaleByPowerOfTwo(meanT, frame.XExponent)).High;
    results.AverageY = ScaleByPowerOfTwo(meanV, frame.YExponent).High;
}

}  // namespace

std::size_t CoefficientCount(std::int32_t order)
{
    return static_cast<std::size_t>(std::min(order, HighestOrder)) + 1;
}

void PolynomRegression(double start, double stop, std::span<const double> x, std::span<const double> y,
                       TKxPolynomRegessionResults& results)
{
    Fit({.Start = start, .Stop = stop, .X = x, .Y = y, .Weights = {}}, results);
}

void PolynomRegressionWithWeight(double start, double stop, std::span<const double> x, std::span<const double> y,
                                 std::span<const double> weights, TKxPolynomRegessionResults& results)
{
    Fit({.Start = start, .Stop = stop, .X = x, .Y = y, .Weights = weights, .IsWeighted = true}, results);
}

double RegressionValue(const TKxPolynomRegessionResults& results, double x)
{
    TDoubleDouble value;
    for (std::size_t k = results.Coeffs.Length(); k-- > 0;) {
        const double rest = k < results.CoeffRests.Length() ? results.CoeffRests[k] : 0;
        value = value * x + TDoubleDouble(results.Coeffs[k], rest);
    }
    if (std::isfinite(value.High))
        return value.High;
    return EvaluatePolynomial(results.Coeffs, x, static_cast<std::int16_t>(results.Coeffs.Length() - 1));
}

}  // namespace plotkit
