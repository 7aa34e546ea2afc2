#include "data/DataClasses.h"

#include <array>

#include "data/KxVector.h"

namespace plotkit {

namespace {

constexpr std::array<const TClassInfo*, 2> Classes{&TKxRealVector::Class, &TKxLiveVector::Class};

}  // namespace

std::span<const TClassInfo* const> DataClasses()
{
    return Classes;
}

}  // namespace plotkit
