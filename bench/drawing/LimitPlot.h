// The job of LimitPlot is kernels that do just the work of a picture: no axes, no layout, no generality.
#pragma once

#include "drawing/Plot.h"

namespace bench {

TLibrary Limit();

}  // namespace bench
