#include "calculated/PowerSums.h"

#include <algorithm>

#include "calculated/FitStrips.h"

namespace plotkit {

namespace {

template <bool IsWeighted>
struct TPowerKernel
{
    const TStrips& Strips;
    TFramer Framer;
    std::size_t Order;
    std::vector<TPreciseLanes> Powers = std::vector<TPreciseLanes>(2 * Order + 1);
    std::vector<TPreciseLanes> Products = std::vector<TPreciseLanes>(Order + 1);

    template <class TArithmetic>
    PLOTKIT_INLINE void Run()
    {
        const TStrips& strips = Strips;
        const TFramer framer = Framer;
        const std::size_t order = Order;
        const std::size_t count = strips.Count();
        TPreciseLanes* const powers = Powers.data();
        TPreciseLanes* const products = Products.data();
        TFramedStrip strip;
        for (std::size_t s = 0; s < count; ++s) {
            framer.template Load<TArithmetic, IsWeighted>(strips[s], strip);
            Add(strip.W, powers[0]);
            Add(strip.WV, products[0]);
            AddPowers<TArithmetic>(strip.W, strip.T, powers + 1, 2 * order);
            AddPowers<TArithmetic>(strip.WV, strip.T, products + 1, order);
            if ((s + 1) % StripsPerRenewal == 0) {
                Renew(powers, 2 * order + 1);
                Renew(products, order + 1);
            }
        }
    }
};

template <bool IsWeighted>
struct TSquareKernel
{
    const TStrips& Strips;
    TFramer Framer;
    double MeanT;
    double MeanV;
    std::span<const TDoubleDouble> Coefficients;
    TLanes X = {};
    TLanes Y = {};
    TLanes Residuals = {};

    template <class TArithmetic>
    PLOTKIT_INLINE void Run()
    {
        const TStrips& strips = Strips;
        const TFramer framer = Framer;
        const TDoubleDouble* const coefficients = Coefficients.data();
        const std::size_t order = Coefficients.size() - 1;
        const double meanT = MeanT;
        const double meanV = MeanV;
        TLanes sumX;
        TLanes sumY;
        TLanes sumResiduals;
        TFramedStrip strip;
        TPreciseLanes p;
        for (std::size_t s = 0; s < strips.Count(); ++s) {
            framer.template Load<TArithmetic, IsWeighted>(strips[s], strip);
            for (std::size_t i = 0; i < StripLength; ++i) {
                p.High[i] = coefficients[order].High;
                p.Low[i] = coefficients[order].Low;
            }
            for (std::size_t k = order; k-- > 0;) {
                const TDoubleDouble coefficient = coefficients[k];
                for (std::size_t i = 0; i < StripLength; ++i) {
                    const TDoubleDouble product =
                        Multiply<TArithmetic>({p.High[i], p.Low[i]}, {strip.T.High[i], strip.T.Low[i]});
                    const TDoubleDouble sum = TwoSum(product.High, coefficient.High);
                    p.High[i] = sum.High;
                    p.Low[i] = product.Low + (sum.Low + coefficient.Low);
                }
            }
            for (std::size_t i = 0; i < StripLength; ++i) {
                const double w = strip.W.High[i];
                const double x = strip.T.High[i] - meanT;
                const double y = strip.V[i] - meanV;
                const TDoubleDouble residual = TwoSum(strip.V[i], -p.High[i]);
                const double rest = residual.High + (residual.Low - p.Low[i]);
                sumX[i] += w * (x * x);
                sumY[i] += w * (y * y);
                sumResiduals[i] += w * (rest * rest);
            }
        }
        X = sumX;
        Y = sumY;
        Residuals = sumResiduals;
    }
};

PLOTKIT_INLINE double Less(double a, double b)
{
    return a < b ? a : b;
}

PLOTKIT_INLINE double Greater(double a, double b)
{
    return a > b ? a : b;
}

struct TRanges
{
    TLanes LeastX;
    TLanes GreatestX;
    TLanes LargestY;
    TLanes GreatestWeight;
    TLanes LeastWeight;
    TLanes Count;
};

template <bool IsWeighted>
struct TRangeKernel
{
    const TStrips& Strips;
    double Start;
    double Stop;
    TRanges Ranges = {};

    template <class TArithmetic>
    PLOTKIT_INLINE void Run()
    {
        const TStrips& strips = Strips;
        const double start = Start;
        const double stop = Stop;
        TRanges ranges;
        for (std::size_t i = 0; i < StripLength; ++i) {
            ranges.LeastX[i] = Largest;
            ranges.GreatestX[i] = -Largest;
        }
        for (std::size_t s = 0; s < strips.Count(); ++s) {
            const TStrip strip = strips[s];
            for (std::size_t i = 0; i < StripLength; ++i) {
                const double x = strip.X[i];
                const double y = __builtin_fabs(strip.Y[i]);
                int used = IsUsed(x, y, start, stop);
                if constexpr (IsWeighted) {
                    const double w = strip.Weights[i];
                    used &= IsWeight(w);
                    ranges.GreatestWeight[i] = Greater(used ? w : 0, ranges.GreatestWeight[i]);
                    ranges.LeastWeight[i] = Less(used ? w : 0, ranges.LeastWeight[i]);
                }
                ranges.LeastX[i] = Less(used ? x : Largest, ranges.LeastX[i]);
                ranges.GreatestX[i] = Greater(used ? x : -Largest, ranges.GreatestX[i]);
                ranges.LargestY[i] = Greater(used ? y : 0, ranges.LargestY[i]);
                ranges.Count[i] += used ? 1.0 : 0.0;
            }
        }
        Ranges = ranges;
    }
};

std::vector<TDoubleDouble> Totals(std::span<const TPreciseLanes> sums)
{
    std::vector<TDoubleDouble> totals(sums.size());
    for (std::size_t k = 0; k < sums.size(); ++k)
        for (std::size_t i = 0; i < StripLength; ++i)
            totals[k] += TwoSum(sums[k].High[i], sums[k].Low[i]);
    return totals;
}

double Total(const TLanes& sums)
{
    TDoubleDouble total;
    for (const double sum : sums.Values)
        total += sum;
    return total.High;
}

int ExponentOf(double value)
{
    int exponent = 0;
    std::frexp(value, &exponent);
    return exponent;
}

template <bool IsWeighted>
TFitFrame FrameFrom(const TFitPoints& points)
{
    const TStrips strips(points);
    TRangeKernel<IsWeighted> kernel{strips, points.Start, points.Stop};
    Run(kernel);
    const TRanges& ranges = kernel.Ranges;
    const auto least = [](const TLanes& lanes) { return *std::min_element(lanes.Values, lanes.Values + StripLength); };
    const auto greatest = [](const TLanes& lanes) {
        return *std::max_element(lanes.Values, lanes.Values + StripLength);
    };

    TFitFrame frame;
    frame.Count = static_cast<std::size_t>(Total(ranges.Count));
    if (frame.Count == 0)
        return frame;
    const double first = least(ranges.LeastX);
    const double last = greatest(ranges.GreatestX);
    frame.Centre = first / 2 + last / 2;
    const double reach = std::max(last - frame.Centre, frame.Centre - first);
    frame.XExponent = ExponentOf(reach);
    frame.LargestT = std::ldexp(reach, -frame.XExponent);
    frame.YExponent = ExponentOf(greatest(ranges.LargestY));
    if (IsWeighted) {
        const double negative = least(ranges.LeastWeight);
        frame.WeightExponent = ExponentOf(std::max(greatest(ranges.GreatestWeight), -negative));
        frame.HasNegativeWeights = negative < 0;
    }
    return frame;
}

template <bool IsWeighted>
TPowerSums PowersFrom(const TFitPoints& points, const TFitFrame& frame, std::size_t order)
{
    const TStrips strips(points);
    TPowerKernel<IsWeighted> kernel{strips, TFramer(points, frame), order};
    Run(kernel);
    return {Totals(kernel.Powers), Totals(kernel.Products)};
}

template <bool IsWeighted>
TSquareSums SquaresFrom(const TFitPoints& points, const TFitFrame& frame, double meanT, double meanV,
                        std::span<const TDoubleDouble> coefficients)
{
    const TStrips strips(points);
    TSquareKernel<IsWeighted> kernel{strips, TFramer(points, frame), meanT, meanV, coefficients};
    Run(kernel);
    return {Total(kernel.X), Total(kernel.Y), Total(kernel.Residuals)};
}

}  // namespace

std::size_t TFitPoints::Length() const
{
    const std::size_t length = std::min(X.size(), Y.size());
    return IsWeighted ? std::min(length, Weights.size()) : length;
}

TFitFrame FrameOf(const TFitPoints& points)
{
    return points.IsWeighted ? FrameFrom<true>(points) : FrameFrom<false>(points);
}

TPowerSums SumPowers(const TFitPoints& points, const TFitFrame& frame, std::size_t order)
{
    return points.IsWeighted ? PowersFrom<true>(points, frame, order) : PowersFrom<false>(points, frame, order);
}

TSquareSums SumSquares(const TFitPoints& points, const TFitFrame& frame, double meanT, double meanV,
                       std::span<const TDoubleDouble> coefficients)
{
    return points.IsWeighted ? SquaresFrom<true>(points, frame, meanT, meanV, coefficients)
                             : SquaresFrom<false>(points, frame, meanT, meanV, coefficients);
}

}  // namespace plotkit
