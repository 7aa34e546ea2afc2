// The job of GraphBuilder is to make a form with the graph of the chosen columns.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "graph/KxAxisTypes.h"
#include "graph/KxGraph2D.h"
#include "host/Form.h"
#include "plotkit/ColumnChoice.h"
#include "plotkit/Options.h"
#include "plotkit/fit/PlottedFit.h"

namespace plotkit {

class TKxCustomRealVector;
class TKxNotCalculatedSeries;
class TKxRealVector;

struct TPlot
{
    std::unique_ptr<TForm> Form;
    TKx2DGraph* Graph = nullptr;                  ///< owned by the form
    std::vector<TKxNotCalculatedSeries*> Series;  ///< one per ordinate, owned by the form
    std::vector<TKxCustomRealVector*> Extras;     ///< one per extra column, owned by the form
    TKxRealVector* Weights = nullptr;             ///< of the points of all series; owned by the form
    TFitOptions Fit;                              ///< the fits that are there
    std::vector<TPlottedFit> Fits;                ///< in the order of the options, one per ordinate that a fit is for
    std::shared_ptr<TFitNews> News;
    /// What the caption of a date axis starts with, when the program makes it.
    std::optional<std::string> DateName;
    std::string DateCaption;         ///< what the program made it last; another one is the user's
    std::vector<std::string> Notes;  ///< what of the options could not be used
};

/// A form of the options' size, filled by one graph with a series per ordinate. The vectors of the series are
/// their own; their arrays are those of the columns, not copied; vectors of a file that is followed tell of their
/// changes. With fits it has been painted once, and has those that the look keeps where the options name none.
/// EConvertError naming the option: a logarithmic scale where no value is positive; errors of LoadLook and SetFits.
TPlot BuildPlot(const TColumnChoice& choice, const TOptions& options);

/// Gives the plot the look that a file keeps; what the options say goes before. Returns
/// what could not be used; errors as those of LoadLook.
std::vector<std::string> DressPlot(TPlot& plot, const TOptions& options, const std::string& lookFile);

/// `scAuto` follows what the values are.
TKxAxScaling ScalingOf(TScaleChoice scale, bool isDateTime);

/// Points up to which symbols are drawn unless the options say otherwise.
inline constexpr std::size_t MostPointsWithSymbols = 200;

}  // namespace plotkit
