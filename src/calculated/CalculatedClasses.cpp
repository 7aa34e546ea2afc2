#include "calculated/CalculatedClasses.h"

#include <array>

#include "calculated/KxFittedLine.h"

namespace plotkit {

namespace {

constexpr std::array<const TClassInfo*, 1> Classes{
    &TKxFittedLine::Class,
};

}  // namespace

std::span<const TClassInfo* const> CalculatedClasses()
{
    return Classes;
}

}  // namespace plotkit
