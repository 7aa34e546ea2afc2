#include "calculated/CalculatedClasses.h"

#include <array>

#include "calculated/KxLinearRegression.h"
#include "calculated/KxPolinomial.h"

namespace plotkit {

namespace {

constexpr std::array<const TClassInfo*, 2> Classes{
    &TKxLinearRegressionLine::Class,
    &TKxPolynomLine::Class,
};

}  // namespace

std::span<const TClassInfo* const> CalculatedClasses()
{
    return Classes;
}

}  // namespace plotkit
