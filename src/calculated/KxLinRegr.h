// The job of KxLinRegr is to fit a straight line y = a + b x to points by least squares.
#pragma once

#include <span>

namespace plotkit {

/// What cannot be computed keeps 0, or 1.7e308 where it says so.
struct TKxLinearRegessionResults
{
    double Slope = 0;        ///< b
    double DeltaSlope = 0;   ///< standard error of b; 1.7e308 where the points leave no freedom
    double Offset = 0;       ///< a; given by the caller for the routines that fix it
    double DeltaOffset = 0;  ///< standard error of a, as for b
    double AverageX = 0;
    double AverageY = 0;
    double VarianceX = 0;
    double VarianceY = 0;
    double Determination = 0;  ///< 1 - `ChiSquare` / sum of (y - mean)^2
    double R = 0;              ///< correlation coefficient
    double ChiSquare = 0;      ///< sum of squared residuals
};

/// All of them use the points with start <= x <= stop whose values, and weight, are numbers and finite; as many as the
/// shortest of the spans has. EMathError "Not enough data!" below two points, with a fixed offset below one;
/// "Floating point division by zero" where the slope cannot be computed; "Floating point overflow" and
/// "Floating point underflow" where doubles cannot hold it.
///
/// Sums are taken in blocks about the mean of each block and put together about the common mean (T. F. Chan,
/// G. H. Golub, R. J. LeVeque, Algorithms for computing the sample variance, Amer. Statist. 37 (1983), eq. 2.1) in
/// numbers of two doubles; residuals are those of the line before its coefficients are rounded.

/// Points that all have one abscissa are no error: `Slope` = `Offset` = 1.7e308, `Determination` = `R` = 1.
void LinReg(double start, double stop, std::span<const double> x, std::span<const double> y,
            TKxLinearRegessionResults& results);
/// Weights count without their sign, their sum for the number of points. There is no least number of points.
void LinRegWithWeight(double start, double stop, std::span<const double> x, std::span<const double> y,
                      std::span<const double> weights, TKxLinearRegessionResults& results);
void OfsReg(double start, double stop, std::span<const double> x, std::span<const double> y,
            TKxLinearRegessionResults& results);
void OfsRegWithWeight(double start, double stop, std::span<const double> x, std::span<const double> y,
                      std::span<const double> weights, TKxLinearRegessionResults& results);

}  // namespace plotkit
