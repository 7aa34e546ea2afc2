// The job of KxSmoothing is to smooth ordinates with a triangular window that moves over the abscissae.
#pragma once

#include "foundation/KxConsts.h"

namespace plotkit {

/// Replaces each Y[i] by the mean of the ordinates around it, weighted with 1 - |X[i] - X[m]| / M as far as that is
/// positive; the window ends on both sides at the first point at distance M or more, and at the ends of the arrays.
/// Pairs with a missing value take no part and stay. Nothing for M <= 0; any order of X will do, ascending X is fast
/// for any M. EMathError "Not enough data!" with fewer than three pairs.
void SmoothVector(double M, TKxRealArray& X, TKxRealArray& Y);
/// The same with distances of decadic logarithms, M in decades. EMathError "Invalid floating point operation" unless
/// all abscissae are positive.
void SmoothVectorLog(double M, TKxRealArray& X, TKxRealArray& Y);

}  // namespace plotkit
