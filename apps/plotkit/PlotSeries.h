// The job of PlotSeries is to make the series of a graph: curves, points with error bars, bars, arrows.
#pragma once

#include "data/KxVector.h"
#include "graph/KxGraph2D.h"
#include "host/Form.h"
#include "plotkit/ColourScheme.h"
#include "plotkit/GraphBuilder.h"

namespace plotkit {

/// A series for each ordinate, with vectors of its own, into `plot`.
void AddSeries(TPlot& plot, const TColumnChoice& choice, const TOptions& options, const TColourScheme& scheme);

/// A vector of the form with the values; it tells of its changes when the table is followed.
TKxRealVector* NewVector(TForm& form, const TArray<double>& values, const TOptions& options);

}  // namespace plotkit
