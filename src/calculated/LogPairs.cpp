#include "calculated/LogPairs.h"

#include <algorithm>
#include <cmath>

namespace plotkit {

TLogPairs LogPairsOf(std::span<const double> x, bool xIsLog, std::span<const double> y, bool yIsLog,
                     std::optional<std::span<const double>> weights)
{
    TLogPairs pairs;
    std::size_t count = std::min(x.size(), y.size());
    if (weights)
        count = std::min(count, weights->size());
    const auto has = [](double value, bool isLog) { return std::isfinite(value) && (!isLog || value > 0); };
    for (std::size_t i = 0; i < count; ++i) {
        if (!has(x[i], xIsLog) || !has(y[i], yIsLog))
            continue;
        pairs.X.push_back(xIsLog ? std::log10(x[i]) : x[i]);
        pairs.Y.push_back(yIsLog ? std::log10(y[i]) : y[i]);
        if (weights)
            pairs.Weights.push_back((*weights)[i]);
    }
    return pairs;
}

}  // namespace plotkit
