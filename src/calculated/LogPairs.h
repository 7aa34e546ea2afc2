// The job of LogPairs is the decimal logarithms of points that stand on logarithmic axes.
#pragma once

#include <optional>
#include <span>
#include <vector>

namespace plotkit {

struct TLogPairs
{
    std::vector<double> X, Y, Weights;
};

/// Logarithms in one direction or both. A pair that lacks one, or the value it is made of, is left out with its weight;
/// pairs count as far as the shortest of the spans.
TLogPairs LogPairsOf(std::span<const double> x, bool xIsLog, std::span<const double> y, bool yIsLog,
                     std::optional<std::span<const double>> weights);

}  // namespace plotkit
