// The job of FitWish is a curve that the user wants drawn through a series, as a word on the command line and in looks.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plotkit {

enum TFitKind
{
    fkLinear,      ///< Value: the offset, when it is fixed
    fkPolynomial,  ///< Value: the order
    fkAkima,
    fkSmooth,  ///< Value: half the width of the smoothing window
    fkSpline,  ///< Value: the weight of the points
    fkDerivative,
    fkIntegral,
    fkFormula
};

/// Abscissae between which points take part.
struct TFitRange
{
    double Start = 0, Stop = 0;

    friend bool operator==(const TFitRange&, const TFitRange&) = default;
};

/// Start value of a formula's coefficient.
struct TStartValue
{
    char Letter = 'a';
    double Value = 0;

    friend bool operator==(const TStartValue&, const TStartValue&) = default;
};

struct TFitWish
{
    TFitKind Kind = fkLinear;
    std::optional<double> Value;
    std::string Formula;
    std::string Column;  ///< ordinates that it is for, by name or number; empty: all of them
    std::optional<TFitRange> Range;
    std::vector<TStartValue> Start;    ///< of a formula
    std::vector<std::string> Results;  ///< that labels in the graph show

    friend bool operator==(const TFitWish&, const TFitWish&) = default;
};

/// "linear", "linear:OFFSET", "poly:ORDER", "akima", "smooth:RANGE", "spline:WEIGHT", "derivative", "integral", else a
/// formula in x; behind any of them "@COLUMN". EConvertError saying what is wrong.
TFitWish ParseFit(std::string_view text);
/// The text that reads back as the same curve.
std::string FitText(const TFitWish& wish);

/// "a=1,b=0.5". EConvertError.
std::vector<TStartValue> ParseStartValues(std::string_view text);
std::string StartValuesText(const std::vector<TStartValue>& values);

/// "Slope,R". EConvertError for an empty name.
std::vector<std::string> ParseResultNames(std::string_view text);
std::string ResultNamesText(const std::vector<std::string>& names);

}  // namespace plotkit
