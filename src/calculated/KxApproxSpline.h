// The job of KxApproxSpline is the smoothing spline that passes near measured points, the nearer the larger their
// weights.
#pragma once

#include "calculated/KxInterpol.h"

namespace plotkit {

class TKxApproxSpline : public TKxIntPolynom
{
public:
    /// Multiplies all weights, and is the weight where none are given.
    double GetWeightFactor() const { return FWeightFactor; }
    void SetWeightFactor(double factor) { FWeightFactor = factor; }

    using TKxIntPolynom::RecalculateCoeffs;
    /// The curve s that makes the sum of W (y - s)^2 and the integral of s''^2 smallest, W = |w| `WeightFactor`. Points
    /// of weight 0 take part and raise "Floating point division by zero"; at least six abscissae have to differ. Beyond
    /// the last node the curve goes on straight, with the slope at the node before. Raises what `CalcSmoothingSpline`
    /// and `RequireJoints` raise.
    void RecalculateCoeffs(double xMin, double xMax, std::span<const double> x, std::span<const double> y,
                           std::optional<std::span<const double>> w) override;

    /// The weights of the nodes.
    const TKxRealArray& W() const { return FW; }

private:
    std::size_t Gather(double xMin, double xMax, std::span<const double> x, std::span<const double> y,
                       std::optional<std::span<const double>> w);
    std::size_t MergeEqualAbscissae(std::size_t taken);
    void CalcCoeffs(std::size_t n);
    static void Require(std::size_t nodes);

    TKxRealArray FW;
    double FWeightFactor = 1;
};

}  // namespace plotkit
