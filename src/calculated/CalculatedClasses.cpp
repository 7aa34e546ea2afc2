#include "calculated/CalculatedClasses.h"

#include <array>

#include "calculated/KxASplineIntegral.h"
#include "calculated/KxApproxSplineLine.h"
#include "calculated/KxIntegral.h"
#include "calculated/KxLinearRegression.h"

namespace plotkit {

namespace {

constexpr std::array<const TClassInfo*, 7> Classes{
    &TKxLinearRegressionLine::Class, &TKxInterpolatedLine::Class,    &TKxDifferential::Class,    &TKxIntegral::Class,
    &TKxApproxSplineLine::Class,     &TKxASplineDifferential::Class, &TKxASplineIntegral::Class,
};

}  // namespace

std::span<const TClassInfo* const> CalculatedClasses()
{
    return Classes;
}

}  // namespace plotkit
