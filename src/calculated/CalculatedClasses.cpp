#include "calculated/CalculatedClasses.h"

#include <array>

#include "calculated/KxPolinomial.h"

namespace plotkit {

namespace {

constexpr std::array<const TClassInfo*, 1> Classes{
    &TKxPolynomLine::Class,
};

}  // namespace

std::span<const TClassInfo* const> CalculatedClasses()
{
    return Classes;
}

}  // namespace plotkit
