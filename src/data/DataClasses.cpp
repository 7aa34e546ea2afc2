#include "data/DataClasses.h"

#include <array>

#include "data/KxDBVector.h"
#include "data/KxVector.h"

namespace plotkit {

namespace {

constexpr std::array<const TClassInfo*, 3> Classes{&TKxRealVector::Class, &TKxLiveVector::Class, &TKxDBVector::Class};

}  // namespace

std::span<const TClassInfo* const> DataClasses()
{
    return Classes;
}

}  // namespace plotkit
