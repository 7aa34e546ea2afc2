// The job of LineSums is to sum what a straight line through many points needs, with the vector instructions of the
// processor at hand.
#pragma once

#include <optional>
#include <span>

#include "calculated/DoubleDouble.h"

namespace plotkit {

/// Points take part when Start <= x <= Stop and x, y and the weight are numbers and finite. Values count in units of
/// 2^XExponent and 2^YExponent.
struct TLinePoints
{
    double Start = 0, Stop = 0;
    std::span<const double> X, Y;
    std::optional<std::span<const double>> Weights = {};  ///< without sign; all 1 when there are none
    int XExponent = 0, YExponent = 0;

    std::size_t Length() const;
};

/// Of the points that take part; exact zeros where all abscissae, or all ordinates, are one.
struct TLineMoments
{
    std::size_t Count = 0;
    TDoubleDouble Weight;  ///< sum of the weights
    TDoubleDouble MeanX, MeanY;
    TDoubleDouble XX, YY, XY;      ///< sums of products of the distances from the means
    double LeastX = 0, MostX = 0;  ///< of points with a weight
    double LeastY = 0, MostY = 0;
};

/// One pass over the points.
TLineMoments MomentsOf(const TLinePoints& points);

/// y = Y + Slope (x - X).
struct TLine
{
    TDoubleDouble X, Y, Slope;
};

/// The weighted sum of the squares of y minus the line. One pass over the points.
double SquaredResiduals(const TLinePoints& points, const TLine& line);

}  // namespace plotkit
