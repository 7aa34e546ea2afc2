#include "calculated/CalculatedClasses.h"

#include <array>

#include "calculated/KxASplineIntegral.h"
#include "calculated/KxApproxSplineLine.h"
#include "calculated/KxFittedLine.h"
#include "calculated/KxIntegral.h"
#include "calculated/KxLinearRegression.h"
#include "calculated/KxPolinomial.h"

namespace plotkit {

namespace {

constexpr std::array<const TClassInfo*, 9> Classes{
    &TKxLinearRegressionLine::Class, &TKxPolynomLine::Class,     &TKxInterpolatedLine::Class,
    &TKxDifferential::Class,         &TKxIntegral::Class,        &TKxApproxSplineLine::Class,
    &TKxASplineDifferential::Class,  &TKxASplineIntegral::Class, &TKxFittedLine::Class,
};

}  // namespace

std::span<const TClassInfo* const> CalculatedClasses()
{
    return Classes;
}

}  // namespace plotkit
