// The job of FitResults is the named results of the fits of a plot as text, for people and for other programs.
#pragma once

#include <string>
#include <vector>

#include "plotkit/GraphBuilder.h"
#include "plotkit/fit/FitWish.h"

namespace plotkit {

/// Of a curve that was made for the wish, calculated or not.
std::vector<std::string> ResultNames(TKxCalculatedSeries& curve);
/// Those that a label would show: no texts, no bounds, of many extrema the first.
std::vector<std::string> ResultsForLabels(TKxCalculatedSeries& curve);
/// The result that a user calls `name`: a result's name in any letter case, also of an extremum that there is not yet,
/// or the letter of a coefficient. Empty when there is none.
std::string FindResult(TKxCalculatedSeries& curve, const TFitWish& wish, const std::string& name);
/// The name of a result as rich text.
std::string ResultMarkup(const TFitWish& wish, const std::string& result);
/// As plain text, with the letter of a coefficient.
std::string ReadableName(const TFitWish& wish, const std::string& result);

/// A heading and "name = value" lines for each fit.
std::string ResultsText(const TPlot& plot);
/// An array of objects with "fit", "column" and "results", numbers with all their digits.
std::string ResultsJson(const TPlot& plot);
/// Tab-separated lines: fit, column, result, value.
std::string ResultsTable(const TPlot& plot);

}  // namespace plotkit
