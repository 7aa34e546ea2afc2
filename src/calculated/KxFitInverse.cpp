#include "calculated/KxFitInverse.h"

#if __has_include("calculated/KxAkima.h")
#include "calculated/KxAkima.h"
#else
#include "host/Errors.h"
#endif

namespace plotkit {

#if __has_include("calculated/KxAkima.h")
TKxMisfit::TInverse FitInverse(std::span<const double> x, std::span<const double> y)
{
    const auto inverse = std::make_shared<TKxAkima>();
    inverse->RecalculateCoeffs(-1.7e308, 1.7e308, y, x, std::nullopt);
    return [inverse](double ordinate) { return inverse->Interpolate(ordinate); };
}
#else
TKxMisfit::TInverse FitInverse(std::span<const double>, std::span<const double>)
{
    throw EMathError("no interpolation");
}
#endif

}  // namespace plotkit
