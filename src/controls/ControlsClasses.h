// The job of ControlsClasses is to list the classes of this folder that a reader can make.
#pragma once

#include <span>

#include "host/Property.h"

namespace plotkit {

std::span<const TClassInfo* const> ControlsClasses();

}  // namespace plotkit
