#include "calculated/KxSmoothingSpline.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "calculated/PreciseLanes.h"
#include "host/CheckedMath.h"
#include "host/Errors.h"

namespace plotkit {

namespace {

using TSize = std::size_t;

/// A number of about 106 bits. The error of a sum is below 2^-104 of its larger term: less than TDoubleDouble promises,
/// in two thirds of the time.
struct TPair
{
    double High, Low;

    TPair() = default;
    constexpr TPair(double high, double low) : High(high), Low(low) {}
    constexpr TPair(TDoubleDouble number) : High(number.High), Low(number.Low) {}
};

constexpr TPair Zero{0, 0};
constexpr TPair Third{1.0 / 3, 0x1p-54 / 3};

PLOTKIT_INLINE TPair operator+(TPair a, TPair b)
{
    const TPair sum = TwoSum(a.High, b.High);
    return FastTwoSum(sum.High, sum.Low + (a.Low + b.Low));
}

PLOTKIT_INLINE TPair operator-(TPair a, TPair b)
{
    return a + TPair{-b.High, -b.Low};
}

PLOTKIT_INLINE TPair Twice(TPair a)
{
    return {2 * a.High, 2 * a.Low};
}

template <class TArithmetic>
PLOTKIT_INLINE TPair Times(TPair a, TPair b)
{
    const TPair product = TArithmetic::Product(a.High, b.High);
    return FastTwoSum(product.High, product.Low + (a.High * b.Low + a.Low * b.High));
}

template <class TArithmetic>
PLOTKIT_INLINE TPair Times(TPair a, double b)
{
    const TPair product = TArithmetic::Product(a.High, b);
    return FastTwoSum(product.High, product.Low + a.Low * b);
}

template <class TArithmetic>
PLOTKIT_INLINE TPair Reciprocal(TPair a)
{
    const double first = 1 / a.High;
    const TPair product = TArithmetic::Product(a.High, first);
    const double rest = ((1 - product.High) - product.Low) - a.Low * first;
    return FastTwoSum(first, first * rest);
}

/// One row of the factored equations: multipliers, and the right-hand side divided by the pivot, later the solution.
struct TRow
{
    TPair Next, AfterNext;
    TPair Value;
    double Probe;  ///< the solution for another right-hand side, which shows the condition
    double Scale;  ///< root of the diagonal entry
};

struct TSystem
{
    const TSplineArrays& Arrays;   ///< B holds the penalties, D the reciprocal widths of the steps and 0
    std::unique_ptr<TRow[]> Rows;  ///< one for each inner node, and two zeros behind

    double Width(TSize i) const { return Arrays.X[i + 1] - Arrays.X[i]; }
};

/// What the penalty of one node adds to the equations around it.
struct TShare
{
    TPair Before, Across, Behind;
};

template <class TArithmetic>
PLOTKIT_INLINE TShare ShareOf(double penalty, double rateBefore, double rateBehind)
{
    const TPair before = TArithmetic::Product(penalty, rateBefore);
    const TPair behind = TArithmetic::Product(penalty, rateBehind);
    return {Times<TArithmetic>(before, rateBefore), Times<TArithmetic>(before, rateBehind),
            Times<TArithmetic>(behind, rateBehind)};
}

template <class TArithmetic>
PLOTKIT_INLINE TPair ChordSlope(const TSystem& system, TSize i)
{
    const std::span<double> y = system.Arrays.Y;
    return Times<TArithmetic>(TwoSum(y[i + 1], -y[i]), system.Arrays.D[i]);
}

/// A pivot below this part of its diagonal entry is rounding. With the inverse of this condition the ordinates are
/// still good to 1e-8 of the largest.
constexpr double Faintest = 0x1p-90;

[[noreturn]] void RaiseBadPivot(double pivot)
{
    throw EMathError(std::isfinite(pivot) ? "Approximative Spline: Matrix is not positive definite!"
                                          : "Floating point overflow");
}

/// The diagonal entry, those of the next two unknowns, and the right-hand side.
struct TEquation
{
    TPair Diagonal, Next, AfterNext, Value;
};

/// Makes the equations one after the other.
template <class TArithmetic>
class TEquations
{
public:
    PLOTKIT_INLINE explicit TEquations(const TSystem& system)
        : FSystem(system),
          FBefore(ShareOf<TArithmetic>(Penalty(0), 0, Rate(0))),
          FAt(ShareOf<TArithmetic>(Penalty(1), Rate(0), Rate(1))),
          FSlope(ChordSlope<TArithmetic>(system, 0))
    {}

    PLOTKIT_INLINE TEquation Make(TSize k)
    {
        const TShare behind = ShareOf<TArithmetic>(Penalty(k + 2), Rate(k + 1), Rate(k + 2));
        const TPair slope = ChordSlope<TArithmetic>(FSystem, k + 1);
        const double width = FSystem.Width(k), nextWidth = FSystem.Width(k + 1);
        const TEquation equation{FAt.Before + Twice(FAt.Across) + FAt.Behind + Twice(TwoSum(width, nextWidth)) +
                                     FBefore.Behind + behind.Before,
                                 TPair{nextWidth, 0} - (FAt.Across + FAt.Behind) - (behind.Before + behind.Across),
                                 behind.Across, Times<TArithmetic>(slope - FSlope, 3)};
        FBefore = FAt;
        FAt = behind;
        FSlope = slope;
        return equation;
    }

private:
    double Penalty(TSize i) const { return FSystem.Arrays.B[i]; }
    double Rate(TSize i) const { return FSystem.Arrays.D[i]; }

    const TSystem& FSystem;
    TShare FBefore, FAt;
    TPair FSlope;
};

/// What the rows above subtract from a row.
struct TElimination
{
    TPair Diagonal = Zero, Next = Zero, Value = Zero;
    double Probe = 0;
};

/// Sets up the equations and eliminates downward.
template <class TArithmetic>
PLOTKIT_INLINE void Eliminate(const TSystem& system)
{
    TEquations<TArithmetic> equations(system);
    TElimination here, below;
    for (TSize k = 0; k + 2 < system.Arrays.X.size(); ++k) {
        const TEquation equation = equations.Make(k);
        const TPair pivot = equation.Diagonal - here.Diagonal;
        if (!(pivot.High > Faintest * equation.Diagonal.High))
            RaiseBadPivot(pivot.High);
        const TPair next = equation.Next - here.Next, value = equation.Value - here.Value;
        const TPair afterNext = equation.AfterNext;
        const TPair inverse = Reciprocal<TArithmetic>(pivot);
        TRow& row = system.Rows[k];
        row.Next = Times<TArithmetic>(next, inverse);
        row.AfterNext = Times<TArithmetic>(afterNext, inverse);
        row.Value = Times<TArithmetic>(value, inverse);
        row.Scale = std::sqrt(equation.Diagonal.High);
        const double probe = row.Scale - here.Probe;
        row.Probe = probe * inverse.High;
        here = {below.Diagonal + Times<TArithmetic>(row.Next, next), Times<TArithmetic>(row.Next, afterNext),
                below.Value + Times<TArithmetic>(row.Next, value), below.Probe + row.Next.High * probe};
        below = {Times<TArithmetic>(row.AfterNext, afterNext), Zero, Times<TArithmetic>(row.AfterNext, value),
                 row.AfterNext.High * probe};
    }
}

/// Solves upward.
template <class TArithmetic>
PLOTKIT_INLINE void Substitute(const TSystem& system)
{
    double condition = 0;
    TRow next{}, afterNext{};
    for (TSize k = system.Arrays.X.size() - 2; k-- > 0;) {
        TRow& row = system.Rows[k];
        row.Value =
            row.Value - Times<TArithmetic>(row.AfterNext, afterNext.Value) - Times<TArithmetic>(row.Next, next.Value);
        row.Probe = row.Probe - row.AfterNext.High * afterNext.Probe - row.Next.High * next.Probe;
        condition = std::max(condition, std::fabs(row.Probe) * row.Scale);
        afterNext = next;
        next = row;
    }
    if (condition > 1 / Faintest)
        RaiseBadPivot(0);
}

/// Ordinates and coefficients from the solution.
template <class TArithmetic>
PLOTKIT_INLINE void FillSegments(const TSystem& system)
{
    const TSplineArrays& arrays = system.Arrays;
    const TSize nodes = arrays.X.size();
    TPair yBefore = Zero, bendBefore = Zero, bend = Zero, jerkBefore = Zero;
    double rateBefore = 0;
    for (TSize i = 0; i < nodes; ++i) {
        const double rate = arrays.D[i];
        const TPair bendBehind = i + 2 < nodes ? system.Rows[i].Value : Zero;
        const TPair jerk = Times<TArithmetic>(bendBehind - bend, rate);
        const TPair pull = Times<TArithmetic>(Times<TArithmetic>(jerk - jerkBefore, arrays.B[i]), Third);
        const TPair y = TPair{arrays.Y[i], 0} - pull;
        if (i > 0) {
            const TPair bends = Times<TArithmetic>(Twice(bendBefore) + bend, system.Width(i - 1));
            arrays.B[i - 1] = (Times<TArithmetic>(y - yBefore, rateBefore) - Times<TArithmetic>(bends, Third)).High;
        }
        arrays.Y[i] = y.High;
        arrays.C[i] = bend.High;
        arrays.D[i] = jerk.High / 3;
        yBefore = y;
        bendBefore = bend;
        bend = bendBehind;
        jerkBefore = jerk;
        rateBefore = rate;
    }
    arrays.B[nodes - 1] = arrays.B[nodes - 2];
}

template <class TArithmetic>
PLOTKIT_INLINE void SolveWith(const TSystem& system)
{
    Eliminate<TArithmetic>(system);
    Substitute<TArithmetic>(system);
    FillSegments<TArithmetic>(system);
}

#ifdef PLOTKIT_FUSED_VARIANTS
[[gnu::target("fma")]] void SolveFused(const TSystem& system)
{
    SolveWith<TFused>(system);
}
#endif

void Solve(const TSystem& system)
{
#ifdef PLOTKIT_FUSED_VARIANTS
    if (__builtin_cpu_supports("fma"))
        return SolveFused(system);
#endif
    SolveWith<TUsual>(system);
}

bool AreFinite(std::span<const double> values)
{
    return std::all_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); });
}

}  // namespace

void CalcSmoothingSpline(const TSplineArrays& arrays)
{
    const TSize nodes = arrays.X.size();
    const TSystem system{arrays, std::make_unique_for_overwrite<TRow[]>(nodes)};
    for (TSize i = 0; i + 1 < nodes; ++i)
        arrays.D[i] = Divide(1, system.Width(i));
    arrays.D[nodes - 1] = 0;
    for (TSize i = 0; i < nodes; ++i)
        arrays.B[i] = Divide(6, arrays.W[i]);
    Solve(system);
    for (const std::span<const double> values : {arrays.Y, arrays.B, arrays.C, arrays.D})
        if (!AreFinite(values))
            throw EMathError("Floating point overflow");
}

}  // namespace plotkit
