// The job of FitWishes is to say for each fit by itself what the options say of all of them.
#pragma once

#include "plotkit/ColumnChoice.h"
#include "plotkit/SeriesKind.h"
#include "plotkit/fit/FitOptions.h"

namespace plotkit {

/// The ordinates that a fit is for. EConvertError when they are not plotted.
std::vector<std::size_t> OrdinatesOf(const TFitWish& wish, const TColumnChoice& choice);

bool HasOrdinates(const TFitWish& wish, const TColumnChoice& choice);

/// EConvertError for a kind of series that curves cannot be drawn through.
void CheckKind(const TSeriesKind& kind);
/// EConvertError: a fit for ordinates that are not plotted, a wrong formula.
void CheckFit(const TFitWish& wish, const TColumnChoice& choice);

/// The fits with start values, range and results of their own. EConvertError naming the option.
std::vector<TFitWish> WishesOf(const TFitOptions& options, const TColumnChoice& choice);

}  // namespace plotkit
