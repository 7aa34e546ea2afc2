// The job of SeriesKind is the options that say what stands at the points: error bars, bars, arrows.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace plotkit {

/// A column beside abscissae and ordinates, as the command line names it.
struct TExtraName
{
    std::string Option;
    std::string Name;
    std::size_t Ordinate = 0;  ///< whose it is, from 0
    int Place = 0;             ///< of errors: x+, x-, y+, y-; of arrows: in X, in Y
};

struct TSeriesKind
{
    bool HasErrors = false, HasArrows = false, HasBars = false;
    bool Horizontal = false, Stacked = false, Shifted = false, Solid = false;  ///< of bars
    double Gap = 0, Depth = 50;                                                ///< percent of a bar's width
    std::vector<TExtraName> Columns;
};

/// What the command line holds before it is understood.
struct TKindTexts
{
    std::vector<std::string> Errors;
    std::string Bars, Arrows;
};

void AddKindOptions(CLI::App& app, TKindTexts& texts);
/// EConvertError that names the option.
TSeriesKind ReadKind(const CLI::App& command, const TKindTexts& texts);

}  // namespace plotkit
