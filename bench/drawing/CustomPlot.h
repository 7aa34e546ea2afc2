// The job of CustomPlot is QCustomPlot as the drawing benchmarks see it.
#pragma once

#include "drawing/Plot.h"

namespace bench {

TLibrary CustomPlot();
/// With its hint that lets it draw wide lines piece by piece.
TLibrary HintedCustomPlot();

}  // namespace bench
