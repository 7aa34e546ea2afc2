#include "calculated/CalculatedClasses.h"

#include <array>

#include "calculated/KxLinearRegression.h"

namespace plotkit {

namespace {

constexpr std::array<const TClassInfo*, 1> Classes{
    &TKxLinearRegressionLine::Class,
};

}  // namespace

std::span<const TClassInfo* const> CalculatedClasses()
{
    return Classes;
}

}  // namespace plotkit
