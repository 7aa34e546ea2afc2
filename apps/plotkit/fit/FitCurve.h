// The job of FitCurve is to make the calculated series that a wish names, and to say what it is called.
#pragma once

#include <string>

#include "calculated/KxCalculatedSeries.h"
#include "plotkit/fit/FitWish.h"

namespace plotkit {

/// Set up, without a parent. A formula is fitted from its start values.
TKxCalculatedSeries* NewCurve(TComponent* owner, const TFitWish& wish);

/// The settings of the wish, but no start values, for a curve that was made for it.
void SetUpCurve(TKxCalculatedSeries& curve, const TFitWish& wish);
/// A formula's next fit starts from the wish's values, 1 where it names none.
void StartAnew(TKxCalculatedSeries& curve, const TFitWish& wish);

/// As a legend shows it.
std::string CaptionOf(const TFitWish& wish);

/// Whether it is drawn on an axis of its own.
bool HasOwnAxis(const TFitWish& wish);

/// The letters of a formula's coefficients, in their order; none for other fits and where formulas cannot be compiled.
/// EConvertError says where the formula is wrong.
std::string CoefficientsOf(const TFitWish& wish);

}  // namespace plotkit
