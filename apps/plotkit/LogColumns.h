// The job of LogColumns is to fit the chosen columns to logarithmic axes, which have no place for what is not positive.
#pragma once

#include <string>
#include <vector>

#include "plotkit/ColumnChoice.h"
#include "plotkit/Options.h"

namespace plotkit {

/// Makes the values that are not positive missing where the options ask for a logarithmic axis, in columns of their
/// own. Returns a line for each column that lost some. EConvertError with the option when an axis has no positive
/// value.
std::vector<std::string> FitToLogScales(TColumnChoice& choice, const TOptions& options);

}  // namespace plotkit
