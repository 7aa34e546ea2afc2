// The job of CalculatedClasses is to list the classes of this folder that a reader can make.
#pragma once

#include <span>

#include "host/Property.h"

namespace plotkit {

std::span<const TClassInfo* const> CalculatedClasses();

}  // namespace plotkit
