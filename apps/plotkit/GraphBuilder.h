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

namespace plotkit {

class TKxDataSeries;

struct TPlot
{
    std::unique_ptr<TForm> Form;
    TKx2DGraph* Graph = nullptr;         ///< owned by the form
    std::vector<TKxDataSeries*> Series;  ///< one per ordinate, owned by the form
    /// What the caption of a date axis starts with, when the program makes it.
    std::optional<std::string> DateName;
    std::string DateCaption;         ///< what the program made it last; another one is the user's
    std::vector<std::string> Notes;  ///< what of the options could not be used
};

/// A form of the options' size, filled by one graph with a data series per ordinate. The vectors of the series are
/// their own; their arrays are those of the columns, not copied; vectors of a file that is followed tell of their
/// changes. EConvertError naming the option: a logarithmic scale where no value is positive; errors of LoadLook.
TPlot BuildPlot(const TColumnChoice& choice, const TOptions& options);

/// Gives the plot the look that a file keeps; what the options say goes before. Returns
/// what could not be used; errors as those of LoadLook.
std::vector<std::string> DressPlot(TPlot& plot, const TOptions& options, const std::string& lookFile);

/// `scAuto` follows what the values are.
TKxAxScaling ScalingOf(TScaleChoice scale, bool isDateTime);

/// Points up to which symbols are drawn unless the options say otherwise.
inline constexpr std::size_t MostPointsWithSymbols = 200;

}  // namespace plotkit
