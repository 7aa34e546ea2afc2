#include "calculated/CalculatedClasses.h"

#include <array>

#include "calculated/KxFittedLine.h"
#include "calculated/KxLinearRegression.h"

namespace plotkit {

namespace {

constexpr std::array<const TClassInfo*, 2> Classes{
    &TKxLinearRegressionLine::Class,
    &TKxFittedLine::Class,
};

}  // namespace

std::span<const TClassInfo* const> CalculatedClasses()
{
    return Classes;
}

}  // namespace plotkit
