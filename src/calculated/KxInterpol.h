// The job of KxInterpol is the piecewise cubic curve that interpolations and splines fill: evaluation, extrema,
// integral.
#pragma once

#include <limits>
#include <optional>
#include <span>
#include <vector>

#include "foundation/KxConsts.h"

namespace plotkit {

class TKxCustomRealVector;
class TKxRealVector;

/// On segment i, from node X[i] on, the curve is Y[i] + B[i] h + C[i] h^2 + D[i] h^3 with h = x - X[i]. A curve without
/// nodes has the value NaN everywhere.
class TKxIntPolynom
{
public:
    virtual ~TKxIntPolynom() = default;

    /// Makes the curve through the finite points with xMin <= x <= xMax, as many as the shortest list holds; weights
    /// may be absent. EMathError "Not enough data!"; the curve is then empty.
    virtual void RecalculateCoeffs(double xMin, double xMax, std::span<const double> x, std::span<const double> y,
                                   std::optional<std::span<const double>> w) = 0;
    void RecalculateCoeffs(double xMin, double xMax, const TKxCustomRealVector& x, const TKxCustomRealVector& y,
                           const TKxCustomRealVector* w);

    /// How many distinct nodes the curve has.
    int Count() const { return FCount; }
    /// What the last `FindIndex` found.
    int LastIndex() const { return FLastIndex; }
    const TKxRealArray& X() const { return FX; }
    const TKxRealArray& Y() const { return FY; }
    const TKxRealArray& B() const { return FB; }
    const TKxRealArray& C() const { return FC; }
    const TKxRealArray& D() const { return FD; }

    /// The segment whose cubic is used for `x`: 0 left of the nodes, at most `Count`. The search starts where the last
    /// one ended; steps to a neighbour cost next to nothing.
    int FindIndex(double x) const;
    double Interpolate(double x) const;
    double Slope(double x) const;
    double Curvature(double x) const;
    /// At many places, the faster the fewer changes of direction. `y` is as long as `x`.
    void Interpolate(std::span<const double> x, std::span<double> y) const;

    void FindExtrema();
    /// Of the slope.
    void FindDiffExtrema();
    /// The running integral at each sample, counted from the node at or left of the first one, and 0 at that one.
    /// Advances over at most as many nodes as there are samples but two: with fewer samples the last segment reached is
    /// integrated beyond its end. A short `result` grows.
    void Integrate(std::span<const double> samples, std::vector<double>& result);
    void Integrate(const TKxRealVector& samples, TKxRealVector& result);

    /// Filled by `FindExtrema`, `FindDiffExtrema` and `Integrate`; in ascending order of the segments.
    const TKxRealPosArray& Minima() const { return FMinima; }
    const TKxRealPosArray& Maxima() const { return FMaxima; }
    const TKxRealPosArray& DiffMinima() const { return FDiffMinima; }
    const TKxRealPosArray& DiffMaxima() const { return FDiffMaxima; }
    const TKxRealPosArray& IntMinima() const { return FIntMinima; }
    const TKxRealPosArray& IntMaxima() const { return FIntMaxima; }

protected:
    TKxIntPolynom() = default;
    TKxIntPolynom(const TKxIntPolynom&) = default;
    TKxIntPolynom& operator=(const TKxIntPolynom&) = default;

    /// No nodes and no extrema, before coefficients are calculated.
    void Clear();
    /// EMathError "Floating point overflow" or "Floating point underflow" where coefficients are beyond doubles: a
    /// segment does not meet the next one in ordinate and slope.
    void RequireJoints(std::size_t count) const;
    /// The coefficients of `count` nodes stand in the arrays, one more than `count` at least.
    void Complete(int count);

    TKxRealArray FX, FY, FB, FC, FD;

private:
    struct TSegment
    {
        double Low = -std::numeric_limits<double>::infinity();
        double High = std::numeric_limits<double>::infinity();
        double X = std::numeric_limits<double>::quiet_NaN(), Y = X, B = X, C = X, D = X;

        double Value(double x) const
        {
            const double h = x - X;
            return ((D * h + C) * h + B) * h + Y;
        }
        /// The integral of the cubic from its node over `h`.
        double Integral(double h) const { return (((D * h / 4 + C / 3) * h + B * 0.5) * h + Y) * h; }
    };
    using TFound = std::vector<TKxRealPos>;

    const TSegment& SegmentAt(double x) const
    {
        if (!(x >= FSegment.Low && x < FSegment.High))
            MoveTo(x);
        return FSegment;
    }
    void MoveTo(double x) const;
    int Search(double x) const;
    void Enter(int i) const;
    /// Value by value: the next call reads the segment, and waits when it was copied as a whole.
    void Load(int i, TSegment& segment) const;
    TSegment Segment(int i) const;
    /// Whether the segment behind `i`, not the last one, is the one for `x`.
    bool IsNext(int i, double x) const;
    void AddExtremum(int i, double x, TFound& minima, TFound& maxima) const;
    TKxRealPos Inflection(int i, double node, double substitute) const;
    TKxRealPos IntExtremum(int i, double sample, double integral, bool isMinimum) const;

    int FCount = 0;
    mutable int FLastIndex = 0;
    mutable TSegment FSegment;  ///< the one at `FLastIndex`
    TKxRealPosArray FMinima, FMaxima, FDiffMinima, FDiffMaxima, FIntMinima, FIntMaxima;
};

inline int TKxIntPolynom::FindIndex(double x) const
{
    SegmentAt(x);
    return FLastIndex;
}

inline double TKxIntPolynom::Interpolate(double x) const
{
    return SegmentAt(x).Value(x);
}

inline double TKxIntPolynom::Slope(double x) const
{
    const TSegment& at = SegmentAt(x);
    const double h = x - at.X;
    return (2 * at.C + 3 * at.D * h) * h + at.B;
}

inline double TKxIntPolynom::Curvature(double x) const
{
    const TSegment& at = SegmentAt(x);
    return 2 * at.C + 6 * (x - at.X) * at.D;
}

}  // namespace plotkit
