// The job of FitBuilder is to draw the curves that the options ask for through the series of a plot.
#pragma once

#include "plotkit/GraphBuilder.h"

namespace plotkit {

/// Makes and takes away calculated series, owned by the plot's form, until the plot has those that `options.Fit` names,
/// with their labels, axes and places in the legend; curves that stay keep their looks. What the options say of all
/// fits is then said of each. Fits that fail are named by `plot.News`. EConvertError naming the option, before anything
/// is changed: a fit for ordinates that are not plotted, a wrong formula, start values, ranges or results that no fit
/// has.
void SetFits(TPlot& plot, const TColumnChoice& choice, const TOptions& options);

/// Gives the curves the settings of their wishes again, behind a look that was made with others.
void RestoreFits(TPlot& plot);

}  // namespace plotkit
