// The job of LogColumns is to fit the chosen columns to logarithmic axes, which have no place for what is not positive.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "plotkit/ColumnChoice.h"
#include "plotkit/Options.h"

namespace plotkit {

/// Makes the values that are not positive missing where the options ask for a logarithmic axis, in columns of their
/// own. Returns a line for each column that lost some. EConvertError with the option when an axis has no positive
/// value.
std::vector<std::string> FitToLogScales(TColumnChoice& choice, const TOptions& options);

/// Whether an axis with this scale shows positive values alone.
bool NeedsPositive(TScaleChoice scale);
/// Makes all others missing.
void KeepPositive(std::span<double> values);

}  // namespace plotkit
