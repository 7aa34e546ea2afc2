// The job of FitStrips is to hand out the points of a fit in strips of fixed length, in the units of its frame.
#pragma once

#include <limits>

#include "calculated/PowerSums.h"
#include "calculated/PreciseLanes.h"

namespace plotkit {

inline constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double Largest = std::numeric_limits<double>::max();

// 2^-exponent as two factors, since one may be beyond doubles.
struct TScale
{
    explicit TScale(int exponent)
        : First(std::ldexp(1.0, -(exponent / 2))), Second(std::ldexp(1.0, exponent / 2 - exponent))
    {}
    double operator()(double value) const { return value * First * Second; }

    double First;
    double Second;
};

struct TStrip
{
    const double* X;
    const double* Y;
    const double* Weights;
};

// The points in strips, the last one filled up with missing values.
class TStrips
{
public:
    explicit TStrips(const TFitPoints& points)
        : FX(points.X.data()), FY(points.Y.data()), FWeights(points.Weights.data()), FLength(points.Length())
    {
        const std::size_t first = FLength / StripLength * StripLength;
        for (std::size_t i = 0; i < StripLength; ++i) {
            const bool there = first + i < FLength;
            FLastX[i] = there ? FX[first + i] : NaN;
            FLastY[i] = there ? FY[first + i] : NaN;
            FLastWeights[i] = there && points.IsWeighted ? FWeights[first + i] : 0;
        }
    }

    std::size_t Count() const { return (FLength + StripLength - 1) / StripLength; }
    TStrip operator[](std::size_t strip) const
    {
        const std::size_t first = strip * StripLength;
        if (first + StripLength > FLength)
            return {FLastX.Values, FLastY.Values, FLastWeights.Values};
        return {FX + first, FY + first, FWeights + first};
    }

private:
    const double* FX;
    const double* FY;
    const double* FWeights;
    std::size_t FLength;
    TLanes FLastX;
    TLanes FLastY;
    TLanes FLastWeights;
};

// Integers: compilers would make branches of logical values.
PLOTKIT_INLINE int IsUsed(double x, double y, double start, double stop)
{
    return int{x >= start} & int{x <= stop} & int{__builtin_fabs(x) <= Largest} & int{__builtin_fabs(y) <= Largest};
}

PLOTKIT_INLINE int IsWeight(double w)
{
    return int{__builtin_fabs(w) <= Largest} & int{w != 0};
}

// One strip in the units of the frame: t, w and w v; all zero where a point takes no part.
struct TFramedStrip
{
    TPreciseLanes T;
    TLanes V;
    TPreciseLanes W;
    TPreciseLanes WV;
};

class TFramer
{
public:
    TFramer(const TFitPoints& points, const TFitFrame& frame)
        : FStart(points.Start),
          FStop(points.Stop),
          FCentre(frame.Centre),
          FX(frame.XExponent),
          FY(frame.YExponent),
          FWeight(frame.WeightExponent),
          FSign(points.AbsoluteWeights ? -1 : 1)
    {}

    template <class TArithmetic, bool IsWeighted>
    PLOTKIT_INLINE void Load(const TStrip& strip, TFramedStrip& framed) const
    {
        for (std::size_t i = 0; i < StripLength; ++i) {
            const double x = strip.X[i];
            const double y = strip.Y[i];
            const double w = IsWeighted ? strip.Weights[i] : 1;
            const bool used = (IsUsed(x, y, FStart, FStop) & IsWeight(w)) != 0;
            framed.T.High[i] = used ? x : FCentre;
            framed.V[i] = used ? y : 0;
            framed.W.High[i] = used ? w : 0;
        }
        for (std::size_t i = 0; i < StripLength; ++i) {
            const TDoubleDouble t = TwoSum(framed.T.High[i], -FCentre);
            const double v = FY(framed.V[i]);
            const double w = framed.W.High[i];
            const double sign = w < 0 ? FSign : 1;
            const double scaled = IsWeighted ? FWeight(sign * w) : w;
            const TDoubleDouble product = IsWeighted ? TArithmetic::Product(scaled, v) : v;
            framed.T.High[i] = FX(t.High);
            framed.T.Low[i] = FX(t.Low);
            framed.V[i] = v;
            framed.W.High[i] = scaled;
            framed.W.Low[i] = 0;
            framed.WV.High[i] = product.High;
            framed.WV.Low[i] = product.Low;
        }
    }

private:
    double FStart;
    double FStop;
    double FCentre;
    TScale FX;
    TScale FY;
    TScale FWeight;
    double FSign;
};

}  // namespace plotkit
