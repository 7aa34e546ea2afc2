#include "calculated/CalculatedClasses.h"

namespace plotkit {

std::span<const TClassInfo* const> CalculatedClasses()
{
    return {};
}

}  // namespace plotkit
