// The job of KxFitInverse is the abscissa at which the data's own curve reaches an ordinate.
#pragma once

#include <span>

#include "calculated/KxSimplexFit.h"

namespace plotkit {

/// The Akima interpolation of abscissae over ordinates; the data are copied. EMathError when it cannot be made, with
/// fewer than three different ordinates for one.
TKxMisfit::TInverse FitInverse(std::span<const double> x, std::span<const double> y);

}  // namespace plotkit
