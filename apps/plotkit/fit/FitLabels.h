// The job of FitLabels is to show results of fits in the plotting area.
#pragma once

#include "plotkit/ColourScheme.h"
#include "plotkit/GraphBuilder.h"

namespace plotkit {

/// Makes and takes away labels until each fit has those that its wish names. New ones are hidden until they are placed.
void KeepLabels(TPlot& plot, const TColourScheme& scheme);
/// Names the labels after their series, so that a look finds them again.
void NameLabels(TPlot& plot);
/// Stacks the labels, when they became other ones, where they stood, at first in a corner of the plotting area: the
/// upper left unless curves pass there. The plot has been painted.
void PlaceLabels(TPlot& plot);
/// Moves them back where the plotting area became another one.
void KeepLabelsInside(TPlot& plot);
void DeleteLabels(TPlot& plot, TPlottedFit& fit);

}  // namespace plotkit
