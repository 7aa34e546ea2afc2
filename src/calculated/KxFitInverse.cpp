#include "calculated/KxFitInverse.h"

#include "calculated/KxAkima.h"

namespace plotkit {

TKxMisfit::TInverse FitInverse(std::span<const double> x, std::span<const double> y)
{
    const auto inverse = std::make_shared<TKxAkima>();
    inverse->RecalculateCoeffs(-1.7e308, 1.7e308, y, x, std::nullopt);
    return [inverse](double ordinate) { return inverse->Interpolate(ordinate); };
}

}  // namespace plotkit
