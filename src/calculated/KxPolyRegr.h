// The job of KxPolyRegr is to fit a polynomial to points by least squares.
#pragma once

#include <cstdint>
#include <span>

#include "foundation/KxConsts.h"

namespace plotkit {

struct TKxPolynomRegessionResults
{
    std::int32_t Order = 2;  ///< of the polynomial, set by the caller
    TKxRealArray Coeffs;     ///< lowest power first, `Order` + 1 of them
    double AverageX = 0;
    double AverageY = 0;
    double VarianceX = 0;
    double VarianceY = 0;
    double r2 = 0;            ///< 1 - `ChiSquare` / sum of (y - mean)^2; 0 for equal ordinates
    double QRel = 0;          ///< root of `ChiSquare` / (number of points - `Order`)
    double ChiSquare = 0;     ///< sum of squared residuals
    TKxRealArray CoeffRests;  ///< what the rounding to doubles took from `Coeffs`
};

/// How many coefficients are kept: `order` + 1, but for orders so high that no points determine them.
std::size_t CoefficientCount(std::int32_t order);

/// Fits the points with start <= x <= stop; those with a value that is missing or infinite take no part. The normal
/// equations are summed and solved with about 106 bits, for abscissae counted from their middle, which has the same
/// solution. EMathError "Not enough data!" for fewer than `Order` + 1 points, and the messages of
/// `CholeskyDecomposition` where the points do not determine the polynomial, or where it cannot be told by coefficients
/// of powers of x: on failure statistics and coefficients are 0. ERangeError for an order below 0.
void PolynomRegression(double start, double stop, std::span<const double> x, std::span<const double> y,
                       TKxPolynomRegessionResults& results);
/// Every sum weighted, the normal equations with the weights as they are, all else with their absolute values, whose
/// sum stands for the number of points.
void PolynomRegressionWithWeight(double start, double stop, std::span<const double> x, std::span<const double> y,
                                 std::span<const double> weights, TKxPolynomRegessionResults& results);

/// The fitted polynomial by Horner's rule over the coefficients and their rests: right also where powers of x far from
/// 0 nearly cancel.
double RegressionValue(const TKxPolynomRegessionResults& results, double x);

}  // namespace plotkit
