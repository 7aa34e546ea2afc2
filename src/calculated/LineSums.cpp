#include "calculated/LineSums.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>

#include "calculated/PreciseLanes.h"

namespace plotkit {

namespace {

constexpr std::size_t StripsPerBlock = 32;
constexpr double Largest = std::numeric_limits<double>::max();

/// The value or 0. Branches in a loop keep compilers from making it vector code.
PLOTKIT_INLINE double Masked(double value, std::uint64_t mask)
{
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(value) & mask);
}

/// One strip in the units of the points; where a point takes no part it weighs nothing and stands at 0.
struct TWeighedStrip
{
    TLanes X, Y, W;
};

class TLoader
{
public:
    explicit TLoader(const TLinePoints& points)
        : FX(points.X.data()),
          FY(points.Y.data()),
          FW(points.Weights ? points.Weights->data() : nullptr),
          FLength(points.Length()),
          FStart(points.Start),
          FStop(points.Stop),
          FXFactor(std::ldexp(1.0, -points.XExponent)),
          FYFactor(std::ldexp(1.0, -points.YExponent))
    {
        const std::size_t first = FLength / StripLength * StripLength;
        std::fill_n(FLastX.Values, StripLength, std::numeric_limits<double>::quiet_NaN());
        std::copy(FX + first, FX + FLength, FLastX.Values);
        std::copy(FY + first, FY + FLength, FLastY.Values);
        if (FW)
            std::copy(FW + first, FW + FLength, FLastW.Values);
    }

    std::size_t Strips() const { return (FLength + StripLength - 1) / StripLength; }

    template <bool IsWeighted>
    PLOTKIT_INLINE void Load(std::size_t number, TWeighedStrip& strip) const
    {
        const std::size_t first = number * StripLength;
        const bool isWhole = first + StripLength <= FLength;
        const double* const xs = isWhole ? FX + first : FLastX.Values;
        const double* const ys = isWhole ? FY + first : FLastY.Values;
        const double* const ws = isWhole && IsWeighted ? FW + first : FLastW.Values;
        const double start = FStart, stop = FStop, xFactor = FXFactor, yFactor = FYFactor;
        for (std::size_t i = 0; i < StripLength; ++i) {
            const double x = xs[i], y = ys[i];
            const double w = IsWeighted ? __builtin_fabs(ws[i]) : 1;
            const std::uint64_t in = std::uint64_t{x >= start} & std::uint64_t{x <= stop} &
                                     std::uint64_t{__builtin_fabs(x) <= Largest} &
                                     std::uint64_t{__builtin_fabs(y) <= Largest} & std::uint64_t{w <= Largest};
            const std::uint64_t mask = 0 - in;
            strip.X[i] = Masked(x * xFactor, mask);
            strip.Y[i] = Masked(y * yFactor, mask);
            strip.W[i] = Masked(w, mask);
        }
    }

private:
    const double* FX;
    const double* FY;
    const double* FW;
    std::size_t FLength;
    double FStart, FStop;
    double FXFactor, FYFactor;
    TLanes FLastX, FLastY, FLastW;
};

/// Adds the second half to the first, and so on, so that no sum waits for the one before.
template <std::size_t Half>
PLOTKIT_INLINE void AddHalves(TPreciseLanes& lanes)
{
    for (std::size_t i = 0; i < Half; ++i) {
        const TDoubleDouble sum = TwoSum(lanes.High[i], lanes.High[i + Half]);
        lanes.High[i] = sum.High;
        lanes.Low[i] += lanes.Low[i + Half] + sum.Low;
    }
    if constexpr (Half > 1)
        AddHalves<Half / 2>(lanes);
}

/// The lanes are used up.
PLOTKIT_INLINE TDoubleDouble Total(TPreciseLanes& lanes)
{
    AddHalves<StripLength / 2>(lanes);
    return TwoSum(lanes.High[0], lanes.Low[0]);
}

PLOTKIT_INLINE double Total(const TLanes& lanes)
{
    double sums[8] = {};
    for (std::size_t first = 0; first < StripLength; first += 8)
        for (std::size_t i = 0; i < 8; ++i)
            sums[i] += lanes[first + i];
    return ((sums[0] + sums[4]) + (sums[1] + sums[5])) + ((sums[2] + sums[6]) + (sums[3] + sums[7]));
}

PLOTKIT_INLINE void AddTo(TPreciseLanes& sums, std::size_t i, double term)
{
    const TDoubleDouble sum = TwoSum(sums.High[i], term);
    sums.High[i] = sum.High;
    sums.Low[i] += sum.Low;
}

struct TExtremes
{
    TLanes Least, Most;

    TExtremes()
    {
        std::fill_n(Least.Values, StripLength, std::numeric_limits<double>::infinity());
        std::fill_n(Most.Values, StripLength, -std::numeric_limits<double>::infinity());
    }
    PLOTKIT_INLINE void Take(std::size_t i, double value, bool counts)
    {
        const double least = counts ? value : Least[i], most = counts ? value : Most[i];
        Least[i] = least < Least[i] ? least : Least[i];
        Most[i] = most > Most[i] ? most : Most[i];
    }
    double LeastOfAll() const { return *std::min_element(std::begin(Least.Values), std::end(Least.Values)); }
    double MostOfAll() const { return *std::max_element(std::begin(Most.Values), std::end(Most.Values)); }
};

/// Sums of one block, about a point near its means.
struct TBlockSums
{
    TPreciseLanes W, X, Y, XX, YY, XY;
};

PLOTKIT_INLINE TLineMoments MomentsOfBlock(TBlockSums& sums, double aboutX, double aboutY)
{
    TLineMoments block;
    block.Weight = Total(sums.W);
    const TDoubleDouble x = Total(sums.X) / block.Weight, y = Total(sums.Y) / block.Weight;
    block.MeanX = TDoubleDouble(aboutX) + x;
    block.MeanY = TDoubleDouble(aboutY) + y;
    block.XX = Total(sums.XX) - x * x * block.Weight;
    block.YY = Total(sums.YY) - y * y * block.Weight;
    block.XY = Total(sums.XY) - x * y * block.Weight;
    return block;
}

void Unite(TLineMoments& all, const TLineMoments& block)
{
    const TDoubleDouble weight = all.Weight + block.Weight;
    const TDoubleDouble share = block.Weight / weight;
    const TDoubleDouble x = block.MeanX - all.MeanX, y = block.MeanY - all.MeanY;
    const TDoubleDouble reduced = all.Weight * share;
    all.XX += block.XX + x * x * reduced;
    all.YY += block.YY + y * y * reduced;
    all.XY += block.XY + x * y * reduced;
    all.MeanX += x * share;
    all.MeanY += y * share;
    all.Weight = weight;
}

template <bool IsWeighted>
struct TMomentKernel
{
    const TLoader& Loader;
    TLineMoments Moments = {};
    TExtremes X = {}, Y = {};
    TWeighedStrip Strips[StripsPerBlock] = {};

    template <class TArithmetic>
    PLOTKIT_INLINE void Run()
    {
        const std::size_t count = Loader.Strips();
        for (std::size_t first = 0; first < count; first += StripsPerBlock)
            RunBlock(first, std::min(count - first, StripsPerBlock));
    }

    PLOTKIT_INLINE void RunBlock(std::size_t first, std::size_t count)
    {
        TLanes used, w, x, y;
        for (std::size_t s = 0; s < count; ++s) {
            TWeighedStrip strip;  // of its own: what may be part of the kernel is no vector code
            Loader.template Load<IsWeighted>(first + s, strip);
            for (std::size_t i = 0; i < StripLength; ++i) {
                used[i] += strip.W[i] > 0 ? 1 : 0;
                w[i] += strip.W[i];
                x[i] += strip.W[i] * strip.X[i];
                y[i] += strip.W[i] * strip.Y[i];
                X.Take(i, strip.X[i], strip.W[i] > 0);
                Y.Take(i, strip.Y[i], strip.W[i] > 0);
            }
            Strips[s] = strip;
        }
        Moments.Count += static_cast<std::size_t>(Total(used));
        const double weight = Total(w);
        if (weight > 0)
            SumBlock(count, Total(x) / weight, Total(y) / weight);
    }

    PLOTKIT_INLINE void SumBlock(std::size_t count, double aboutX, double aboutY)
    {
        TBlockSums sums;
        for (std::size_t s = 0; s < count; ++s) {
            const TWeighedStrip& strip = Strips[s];
            for (std::size_t i = 0; i < StripLength; ++i) {
                const double w = strip.W[i];
                const double x = strip.X[i] - aboutX, y = strip.Y[i] - aboutY;
                const double wx = w * x, wy = w * y;
                AddTo(sums.W, i, w);
                AddTo(sums.X, i, wx);
                AddTo(sums.Y, i, wy);
                AddTo(sums.XX, i, wx * x);
                AddTo(sums.YY, i, wy * y);
                AddTo(sums.XY, i, wx * y);
            }
        }
        Unite(Moments, MomentsOfBlock(sums, aboutX, aboutY));
    }

    TLineMoments Result()
    {
        Moments.LeastX = X.LeastOfAll(), Moments.MostX = X.MostOfAll();
        Moments.LeastY = Y.LeastOfAll(), Moments.MostY = Y.MostOfAll();
        if (Moments.LeastX == Moments.MostX)
            Moments.XX = Moments.XY = 0;
        if (Moments.LeastY == Moments.MostY)
            Moments.YY = Moments.XY = 0;
        return Moments;
    }
};

template <bool IsWeighted>
struct TResidualKernel
{
    const TLoader& Loader;
    const TLine Line;
    TPreciseLanes Squares = {};

    template <class TArithmetic>
    PLOTKIT_INLINE void Run()
    {
        const TLine line = Line;
        TWeighedStrip strip;
        for (std::size_t s = 0; s < Loader.Strips(); ++s) {
            Loader.template Load<IsWeighted>(s, strip);
            for (std::size_t i = 0; i < StripLength; ++i) {
                const TDoubleDouble x = TwoSum(strip.X[i], -line.X.High), y = TwoSum(strip.Y[i], -line.Y.High);
                const TDoubleDouble product = TArithmetic::Product(line.Slope.High, x.High);
                const double rest = (y.Low - line.Y.Low) - product.Low -
                                    (line.Slope.High * (x.Low - line.X.Low) + line.Slope.Low * x.High);
                const double residual = (y.High - product.High) + rest;
                AddTo(Squares, i, strip.W[i] * residual * residual);
            }
        }
    }
};

}  // namespace

std::size_t TLinePoints::Length() const
{
    const std::size_t length = std::min(X.size(), Y.size());
    return Weights ? std::min(length, Weights->size()) : length;
}

TLineMoments MomentsOf(const TLinePoints& points)
{
    const TLoader loader(points);
    const auto run = [](auto&& kernel) {
        Run(kernel);
        return kernel.Result();
    };
    return points.Weights ? run(TMomentKernel<true>{loader}) : run(TMomentKernel<false>{loader});
}

double SquaredResiduals(const TLinePoints& points, const TLine& line)
{
    const TLoader loader(points);
    const auto run = [](auto&& kernel) {
        Run(kernel);
        return Total(kernel.Squares).High;
    };
    return points.Weights ? run(TResidualKernel<true>{loader, line}) : run(TResidualKernel<false>{loader, line});
}

}  // namespace plotkit
