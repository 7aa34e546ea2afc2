// The job of FitDialog is to ask for what a fit needs beside its kind: a number, or a formula and where it starts.
#pragma once

#include <optional>

#include "plotkit/fit/FitWish.h"

class QWidget;

namespace plotkit {

/// Nothing when the user cancels. `begin` is what the dialog begins with; its kind is that of the result. What is wrong
/// with the user's text is said in the dialog, which then cannot be accepted.
std::optional<TFitWish> AskForFit(QWidget* parent, const TFitWish& begin);

}  // namespace plotkit
