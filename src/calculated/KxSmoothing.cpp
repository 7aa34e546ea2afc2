#include "calculated/KxSmoothing.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "host/CheckedMath.h"

namespace plotkit {

namespace {

using TSize = std::size_t;
using TReals = std::span<const double>;

/// The indexes of the first and the last point of a window.
struct TWindow
{
    TSize First, Last;
};

/// Windows of up to this many points are summed one by one.
constexpr TSize FewPoints = 128;

/// A weighted sum and the sum of its weights.
struct TMean
{
    double Sum = 0, Weights = 0;
};

TWindow WindowAround(TSize i, double m, TReals x)
{
    TWindow window{i, i};
    while (window.First > 0 && std::fabs(x[i] - x[window.First]) < m)
        --window.First;
    while (window.Last + 1 < x.size() && std::fabs(x[i] - x[window.Last]) < m)
        ++window.Last;
    return window;
}

double MeanOf(TWindow window, TSize i, double m, TReals x, TReals y)
{
    TMean mean;
    for (TSize k = window.First; k <= window.Last; ++k) {
        const double weight = 1 - std::fabs(x[i] - x[k]) / m;
        if (weight > 0) {
            mean.Sum += weight * y[k];
            mean.Weights += weight;
        }
    }
    return Divide(mean.Sum, mean.Weights);
}

/// Sums over blocks of 16, 32, 64, ... points of ascending abscissae. Within a block that lies on one side of a point
/// the weights are linear in x, so four sums give its share. Nothing is ever subtracted from a sum over points outside
/// the window: one huge ordinate harms its own neighbourhood alone.
class TBlockSums
{
public:
    TBlockSums(double m, TReals x, TReals y) : FM(m), FX(x), FY(y)
    {
        TLevel blocks(x.size() / Smallest);
        for (TSize b = 0; b < blocks.size(); ++b)
            for (TSize k = b * Smallest; k < (b + 1) * Smallest; ++k) {
                const double d = (x[k] - x[b * Smallest]) / m;
                blocks[b].Add({1, d, y[k], d * y[k]}, 0);
            }
        while (!blocks.empty()) {
            FLevels.push_back(blocks);
            const TSize half = Smallest << (FLevels.size() - 1);
            TLevel pairs(blocks.size() / 2);
            for (TSize b = 0; b < pairs.size(); ++b) {
                pairs[b] = blocks[2 * b];
                pairs[b].Add(blocks[2 * b + 1], (x[(2 * b + 1) * half] - x[2 * b * half]) / m);
            }
            blocks = std::move(pairs);
        }
    }

    /// All weights of the window have to be positive or zero.
    double MeanOf(TWindow window, TSize i) const
    {
        TMean mean;
        AddSide(window.First, i, i, mean);
        AddSide(i, window.Last + 1, i, mean);
        return Divide(mean.Sum, mean.Weights);
    }

private:
    static constexpr TSize Smallest = 16;

    /// Sums of 1, d, y and d y, with d the distance from the block's first point in units of the window's half width.
    /// Sums that overflow belong to blocks that are wider than the window.
    struct TBlock
    {
        double N = 0, D = 0, Y = 0, DY = 0;

        void Add(const TBlock& other, double shift)
        {
            N += other.N;
            D += other.D + shift * other.N;
            Y += other.Y;
            DY += other.DY + shift * other.Y;
        }
    };
    using TLevel = std::vector<TBlock>;

    /// Points `k` to before `end`, all on one side of point `i`.
    void AddSide(TSize k, TSize end, TSize i, TMean& mean) const
    {
        const double sign = k < i ? 1 : -1;
        while (k < end) {
            const double weight = 1 - std::fabs(FX[i] - FX[k]) / FM;
            const int level = LargestAt(k, end);
            if (level < 0) {
                mean.Sum += weight * FY[k];
                mean.Weights += weight;
                ++k;
                continue;
            }
            const TBlock& block = FLevels[static_cast<TSize>(level)][k / (Smallest << level)];
            mean.Sum += weight * block.Y + sign * block.DY;
            mean.Weights += weight * block.N + sign * block.D;
            k += Smallest << level;
        }
    }

    /// The largest level with a block that begins at `k` and ends within `end`; -1 for none.
    int LargestAt(TSize k, TSize end) const
    {
        int level = -1;
        for (TSize size = Smallest; k % size == 0 && k + size <= end; size *= 2)
            ++level;
        return level;
    }

    double FM;
    TReals FX, FY;
    std::vector<TLevel> FLevels;
};

/// Ascending abscissae: both ends of the window only ever move forward.
std::vector<double> SmoothedAscending(double m, TReals x, TReals y)
{
    std::vector<double> smoothed(x.size());
    const TBlockSums sums(m, x, y);
    TWindow window{0, 0};
    for (TSize i = 0; i < x.size(); ++i) {
        while (x[i] - x[window.First] >= m)
            ++window.First;
        window.Last = std::max(window.Last, i);
        while (window.Last + 1 < x.size() && x[window.Last + 1] - x[i] < m)
            ++window.Last;
        const bool few = window.Last - window.First < FewPoints;
        smoothed[i] = few ? MeanOf(window, i, m, x, y) : sums.MeanOf(window, i);
    }
    return smoothed;
}

std::vector<double> Smoothed(double m, TReals x, TReals y)
{
    if (std::is_sorted(x.begin(), x.end()))
        return SmoothedAscending(m, x, y);
    std::vector<double> smoothed(x.size());
    for (TSize i = 0; i < x.size(); ++i)
        smoothed[i] = MeanOf(WindowAround(i, m, x), i, m, x, y);
    return smoothed;
}

/// The pairs without a missing value.
struct TPairs
{
    std::vector<double> X, Y;
    std::vector<TSize> Places;
};

TPairs CompletePairs(TReals x, TReals y)
{
    TPairs pairs;
    for (TSize i = 0; i < std::min(x.size(), y.size()); ++i) {
        if (!std::isfinite(x[i]) || !std::isfinite(y[i]))
            continue;
        pairs.X.push_back(x[i]);
        pairs.Y.push_back(y[i]);
        pairs.Places.push_back(i);
    }
    return pairs;
}

/// A power of two that keeps sums within doubles.
double ScaleOf(TReals y)
{
    constexpr double large = 0x1p960, down = 0x1p-64;
    return std::any_of(y.begin(), y.end(), [](double value) { return std::fabs(value) > large; }) ? down : 1;
}

void Smooth(double m, const TKxRealArray& x, TKxRealArray& y, bool logarithmic)
{
    TPairs pairs = CompletePairs(x.Span(), y.Span());
    if (pairs.X.size() < 3)
        throw EMathError("Not enough data!");
    if (!(m > 0))
        return;
    if (logarithmic)
        std::transform(pairs.X.begin(), pairs.X.end(), pairs.X.begin(), Log10);
    const double scale = ScaleOf(pairs.Y);
    for (double& value : pairs.Y)
        value *= scale;
    const std::vector<double> smoothed = Smoothed(m, pairs.X, pairs.Y);
    double* const result = y.Write();
    for (TSize i = 0; i < smoothed.size(); ++i)
        result[pairs.Places[i]] = smoothed[i] / scale;
}

}  // namespace

void SmoothVector(double M, TKxRealArray& X, TKxRealArray& Y)
{
    Smooth(M, X, Y, false);
}

void SmoothVectorLog(double M, TKxRealArray& X, TKxRealArray& Y)
{
    Smooth(M, X, Y, true);
}

}  // namespace plotkit
