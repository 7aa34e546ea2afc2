// The job of KxSmoothingSpline is to compute the cubic smoothing spline of weighted points.
#pragma once

#include <span>

namespace plotkit {

/// Nodes and segments, all of one length.
struct TSplineArrays
{
    std::span<const double> X;  ///< strictly ascending
    std::span<double> Y;        ///< the measured ordinates; afterwards the curve's
    std::span<const double> W;  ///< weights: the residual of node i is penalised with 6 / W[i]
    std::span<double> B, C,
        D;  ///< of the cubic Y + B h + C h^2 + D h^3 that begins at the node; C[last], D[last] are 0
};

/// The natural cubic spline that balances its bending against weighted residuals: C. H. Reinsch, Smoothing by spline
/// functions, Numer. Math. 10 (1967) 177. At least four nodes. The last B repeats the one before.
///
/// The equations are those of the second differences, whose condition grows like the fourth power of the number of
/// points that the curve averages: 10^5 points with light weights are far beyond doubles. They are set up and solved
/// with about 106 bits. EMathError "Floating point division by zero" for a zero weight, "Floating point overflow",
/// "Approximative Spline: Matrix is not positive definite!" for negative weights and where 106 bits are too few.
void CalcSmoothingSpline(const TSplineArrays& arrays);

}  // namespace plotkit
