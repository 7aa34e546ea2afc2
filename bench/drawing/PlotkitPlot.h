// The job of PlotkitPlot is Plotkit as the drawing benchmarks see it: a graph in the widget of the Qt host.
#pragma once

#include "drawing/Plot.h"

namespace bench {

TLibrary Plotkit();

}  // namespace bench
