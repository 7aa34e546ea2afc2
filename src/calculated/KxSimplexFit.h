// The job of KxSimplexFit is to fit the coefficients of a function to points by the downhill simplex method (J. A.
// Nelder and R. Mead, The Computer Journal 7, 308, 1965, with a shrink of its own).
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "calculated/KxFittingFkt.h"

namespace plotkit {

/// The points of a fit; none of the values is missing. `W` is empty without weights, otherwise |W| counts.
struct TKxFitPoints
{
    std::span<const double> X, Y, W;
};

/// How badly a function with given coefficients misses points.
class TKxMisfit
{
public:
    /// The abscissa at which the data's own curve reaches an ordinate.
    using TInverse = std::function<double(double)>;

    /// Without `inverse` the sum of squared vertical distances, with one the sum of the products of vertical and
    /// horizontal distances. The points must outlive this object.
    TKxMisfit(TKxFittingFkt function, TKxFitPoints points, TInverse inverse = {});

    /// Infinite where the function has no finite value. What the callback raises is passed on.
    double operator()(std::span<double> coefs) const;

private:
    double BlockSum(std::size_t first, std::size_t count, const double* y) const;

    TKxFittingFkt FFunction;
    TKxFitPoints FPoints;
    TInverse FInverse;
};

/// The simplex of n + 1 vertices in the space of n coefficients.
class TKxSimplexFit
{
public:
    /// Vertex n is `start`, vertex i < n the same with coordinate i multiplied by 2.05.
    TKxSimplexFit(TKxMisfit misfit, std::span<const double> start);

    /// EMathError "Floating point overflow" when a coefficient runs to infinity.
    void Step();

    std::span<const double> Best() const { return {&FSimplex[FBestIndex * FSize], FSize}; }
    double BestValue() const { return FValues[FBestIndex]; }

private:
    std::span<double> Vertex(std::size_t i) { return {&FSimplex[i * FSize], FSize}; }
    void Evaluate(std::size_t vertex);
    void Rank();
    void FindCentroid();
    /// The worst vertex goes to centroid + `factor` times its way from there to the centroid.
    void MoveWorst(double factor);
    void TryExpansion();
    void Contract();
    void Shrink();

    TKxMisfit FMisfit;
    std::size_t FSize;
    std::vector<double> FSimplex;  ///< vertex after vertex
    std::vector<double> FValues, FCentroid, FTrial;
    std::size_t FBestIndex = 0, FWorstIndex = 0, FNextWorstIndex = 0;
};

struct TKxFitStatistics
{
    double MeanX = 0, MeanY = 0, VarianceX = 0, VarianceY = 0, Determination = 0;
};

/// What cannot be computed stays 0.
TKxFitStatistics FitStatistics(TKxFitPoints points, double chiSquare, bool doCovariance);

}  // namespace plotkit
