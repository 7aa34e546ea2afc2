// The job of FitOptions is all that the user wants calculated from the ordinates of a graph.
#pragma once

#include "plotkit/fit/FitWish.h"

namespace plotkit {

class TKxIniList;

/// As somebody types it: numbers, or dates.
struct TTypedRange : TFitRange
{
    bool IsDate = false;
};

struct TFitOptions
{
    std::vector<TFitWish> Fits;
    /// What is said of all of them goes to each when they are drawn.
    std::vector<TStartValue> Start;
    std::optional<TTypedRange> Range;
    std::vector<std::string> Results;
    std::string Weights;  ///< column; empty: none
    /// Without `Fits`, those of the look are meant.
    bool TakeFromLook = true;
};

/// "A..B" with numbers or dates, A below B; `dayFirst` decides dates that are written two ways. EConvertError.
TTypedRange ParseFitRange(const std::string& text, std::optional<bool> dayFirst);

/// The section of a look that holds the fits and their weights; none where there are no fits.
void WriteFits(TKxIniList& list, const TFitOptions& fits);
/// `notes` get a line for each fit that cannot be read.
TFitOptions ReadFits(const TKxIniList& list, std::vector<std::string>& notes);

}  // namespace plotkit
