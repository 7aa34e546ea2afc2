#include "calculated/CalculatedClasses.h"

#include <array>

#include "calculated/KxIntegral.h"
#include "calculated/KxLinearRegression.h"
#include "calculated/KxPolinomial.h"

namespace plotkit {

namespace {

constexpr std::array<const TClassInfo*, 5> Classes{
    &TKxLinearRegressionLine::Class, &TKxPolynomLine::Class, &TKxInterpolatedLine::Class,
    &TKxDifferential::Class,         &TKxIntegral::Class,
};

}  // namespace

std::span<const TClassInfo* const> CalculatedClasses()
{
    return Classes;
}

}  // namespace plotkit
