#include "calculated/KxFitInverse.h"

#include "host/Errors.h"

namespace plotkit {

// There is no interpolation in this folder yet.
TKxMisfit::TInverse FitInverse(std::span<const double>, std::span<const double>)
{
    throw EMathError("no interpolation");
}

}  // namespace plotkit
