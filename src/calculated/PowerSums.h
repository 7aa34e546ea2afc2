// The job of PowerSums is to sum what a polynomial fit needs over many points, with about 95 correct bits and the
// vector instructions of the processor at hand.
//
// Abscissae count from the middle of the used ones; all values are scaled by powers of two to at most 1. Both is exact:
// an abscissa is carried as a sum of two doubles, so the sums are those of the data as they are.
#pragma once

#include <span>
#include <vector>

#include "calculated/DoubleDouble.h"

namespace plotkit {

/// Points take part when start <= x <= stop and x, y and the weight are numbers and finite. Without weights all
/// weigh 1.
struct TFitPoints
{
    double Start = 0;
    double Stop = 0;
    std::span<const double> X;
    std::span<const double> Y;
    std::span<const double> Weights;
    bool IsWeighted = false;
    bool AbsoluteWeights = false;  ///< weights count without their sign

    std::size_t Length() const;
};

/// x = Centre + t 2^XExponent, y = v 2^YExponent, weight = w 2^WeightExponent.
struct TFitFrame
{
    std::size_t Count = 0;  ///< of the points that take part and have a weight
    double Centre = 0;
    int XExponent = 0;
    int YExponent = 0;
    int WeightExponent = 0;
    double LargestT = 0;  ///< largest |t|
    bool HasNegativeWeights = false;
};

/// One pass over the points.
TFitFrame FrameOf(const TFitPoints& points);

struct TPowerSums
{
    std::vector<TDoubleDouble> Powers;    ///< sums of w t^k for k = 0 ... 2 order
    std::vector<TDoubleDouble> Products;  ///< sums of w v t^k for k = 0 ... order
};

/// One pass over the points.
TPowerSums SumPowers(const TFitPoints& points, const TFitFrame& frame, std::size_t order);

struct TSquareSums
{
    double X = 0;          ///< of w (t - mean t)^2
    double Y = 0;          ///< of w (v - mean v)^2
    double Residuals = 0;  ///< of w (v - p(t))^2
};

/// One pass over the points, for p with these coefficients, lowest power first. p is evaluated to more than a double,
/// so that nearly exact fits show no rounding of their own.
TSquareSums SumSquares(const TFitPoints& points, const TFitFrame& frame, double meanT, double meanV,
                       std::span<const TDoubleDouble> coefficients);

}  // namespace plotkit
