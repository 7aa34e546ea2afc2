#include "calculated/KxSmoothingSpline.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "host/CheckedMath.h"
#include "host/Errors.h"

// The operations below have to become part of the loops, which are compiled once for each kind of processor.
#define PLOTKIT_INLINE [[gnu::always_inline]] inline

namespace plotkit {

namespace {

using TSize = std::size_t;

/// The sum of two doubles of which the second is small.
struct TPair
{
    double High, Low;
};

constexpr TPair Zero{0, 0};
constexpr TPair Third{1.0 / 3, 0x1p-54 / 3};

/// a b exactly, by the processor's fused product.
struct TFusedProduct
{
    PLOTKIT_INLINE static TPair Of(double a, double b)
    {
        const double product = a * b;
        return {product, __builtin_fma(a, b, -product)};
    }
};

/// a b exactly, from halves: T. J. Dekker, Numer. Math. 18 (1971) 224.
struct TSplitProduct
{
    PLOTKIT_INLINE static TPair Of(double a, double b)
    {
        constexpr double splitter = 0x1p27 + 1;
        const double bigA = splitter * a, bigB = splitter * b;
        const double highA = bigA - (bigA - a), highB = bigB - (bigB - b);
        const double lowA = a - highA, lowB = b - highB;
        const double product = a * b;
        return {product, ((highA * highB - product) + highA * lowB + lowA * highB) + lowA * lowB};
    }
};

PLOTKIT_INLINE TPair FastSum(double a, double b)
{
    const double sum = a + b;
    return {sum, b - (sum - a)};
}

PLOTKIT_INLINE TPair Sum(double a, double b)
{
    const double sum = a + b;
    const double shareOfB = sum - a;
    return {sum, (a - (sum - shareOfB)) + (b - shareOfB)};
}

PLOTKIT_INLINE TPair operator-(TPair a)
{
    return {-a.High, -a.Low};
}

PLOTKIT_INLINE TPair operator+(TPair a, TPair b)
{
    const TPair sum = Sum(a.High, b.High);
    return FastSum(sum.High, sum.Low + (a.Low + b.Low));
}

PLOTKIT_INLINE TPair operator-(TPair a, TPair b)
{
    return a + -b;
}

PLOTKIT_INLINE TPair Twice(TPair a)
{
    return {2 * a.High, 2 * a.Low};
}

template <class TProduct>
PLOTKIT_INLINE TPair Times(TPair a, TPair b)
{
    const TPair product = TProduct::Of(a.High, b.High);
    return FastSum(product.High, product.Low + (a.High * b.Low + a.Low * b.High));
}

template <class TProduct>
PLOTKIT_INLINE TPair Times(TPair a, double b)
{
    const TPair product = TProduct::Of(a.High, b);
    return FastSum(product.High, product.Low + a.Low * b);
}

template <class TProduct>
PLOTKIT_INLINE TPair Reciprocal(TPair a)
{
    const double first = 1 / a.High;
    const TPair product = TProduct::Of(a.High, first);
    const double rest = ((1 - product.High) - product.Low) - a.Low * first;
    return FastSum(first, first * rest);
}

/// One row of the factored equations: multipliers, and the right-hand side divided by the pivot, later the solution.
struct TRow
{
    TPair Next, AfterNext;
    TPair Value;
    double Probe;  ///< the same for a right-hand side that shows the condition
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

template <class TProduct>
PLOTKIT_INLINE TShare ShareOf(double penalty, double rateBefore, double rateBehind)
{
    const TPair before = TProduct::Of(penalty, rateBefore);
    const TPair behind = TProduct::Of(penalty, rateBehind);
    return {Times<TProduct>(before, rateBefore), Times<TProduct>(before, rateBehind),
            Times<TProduct>(behind, rateBehind)};
}

template <class TProduct>
PLOTKIT_INLINE TPair ChordSlope(const TSystem& system, TSize i)
{
    const std::span<double> y = system.Arrays.Y;
    return Times<TProduct>(Sum(y[i + 1], -y[i]), system.Arrays.D[i]);
}

/// A pivot below this part of its diagonal entry is rounding. With the inverse of this condition the ordinates are still
/// good to 1e-8 of the largest.
constexpr double Faintest = 0x1p-90;

/// What the rows above subtract from a row.
struct TElimination
{
    TPair Diagonal = Zero, Next = Zero, Value = Zero;
    double Probe = 0;
};

/// Sets up the equations row by row and eliminates downward. False when a pivot vanishes.
template <class TProduct>
PLOTKIT_INLINE bool Eliminate(const TSystem& system)
{
    const std::span<const double> penalty = system.Arrays.B, rate = system.Arrays.D;
    TShare before = ShareOf<TProduct>(penalty[0], 0, rate[0]), at = ShareOf<TProduct>(penalty[1], rate[0], rate[1]);
    TPair slope = ChordSlope<TProduct>(system, 0);
    TElimination here, below;
    for (TSize k = 0; k + 2 < penalty.size(); ++k) {
        const TShare behind = ShareOf<TProduct>(penalty[k + 2], rate[k + 1], rate[k + 2]);
        const TPair slopeBehind = ChordSlope<TProduct>(system, k + 1);
        const double width = system.Width(k), widthBehind = system.Width(k + 1);
        const TPair diagonal =
            (at.Before + Twice(at.Across) + at.Behind) + Twice(Sum(width, widthBehind)) + before.Behind + behind.Before;
        const TPair pivot = diagonal - here.Diagonal;
        if (!(pivot.High > Faintest * diagonal.High))
            return false;
        const TPair next =
            TPair{widthBehind, 0} - (at.Across + at.Behind) - (behind.Before + behind.Across) - here.Next;
        const TPair value = Times<TProduct>(slopeBehind - slope, 3) - here.Value;
        const TPair inverse = Reciprocal<TProduct>(pivot);
        TRow& row = system.Rows[k];
        row.Next = Times<TProduct>(next, inverse);
        row.AfterNext = Times<TProduct>(behind.Across, inverse);
        row.Value = Times<TProduct>(value, inverse);
        row.Scale = std::sqrt(diagonal.High);
        const double probe = row.Scale - here.Probe;
        row.Probe = probe * inverse.High;
        here = {below.Diagonal + Times<TProduct>(row.Next, next), Times<TProduct>(row.Next, behind.Across),
                below.Value + Times<TProduct>(row.Next, value), below.Probe + row.Next.High * probe};
        below = {Times<TProduct>(row.AfterNext, behind.Across), Zero, Times<TProduct>(row.AfterNext, value),
                 row.AfterNext.High * probe};
        before = at;
        at = behind;
        slope = slopeBehind;
    }
    return true;
}

/// Solves upward. False when the condition leaves nothing of the solution.
template <class TProduct>
PLOTKIT_INLINE bool Substitute(const TSystem& system)
{
    double condition = 0;
    TRow next{}, afterNext{};
    for (TSize k = system.Arrays.X.size() - 2; k-- > 0;) {
        TRow& row = system.Rows[k];
        row.Value = row.Value - Times<TProduct>(row.AfterNext, afterNext.Value) - Times<TProduct>(row.Next, next.Value);
        row.Probe = row.Probe - row.AfterNext.High * afterNext.Probe - row.Next.High * next.Probe;
        condition = std::max(condition, std::fabs(row.Probe) * row.Scale);
        afterNext = next;
        next = row;
    }
    return condition < 1 / Faintest;
}

/// Ordinates and coefficients from the solution.
template <class TProduct>
PLOTKIT_INLINE void FillSegments(const TSystem& system)
{
    const TSplineArrays& arrays = system.Arrays;
    const TSize nodes = arrays.X.size();
    TPair yBefore = Zero, bendBefore = Zero, bend = Zero, jerkBefore = Zero;
    double rateBefore = 0;
    for (TSize i = 0; i < nodes; ++i) {
        const double rate = arrays.D[i];
        const TPair bendBehind = i + 2 < nodes ? system.Rows[i].Value : Zero;
        const TPair jerk = Times<TProduct>(bendBehind - bend, rate);
        const TPair pull = Times<TProduct>(Times<TProduct>(jerk - jerkBefore, arrays.B[i]), Third);
        const TPair y = TPair{arrays.Y[i], 0} - pull;
        if (i > 0) {
            const TPair bends = Times<TProduct>(Twice(bendBefore) + bend, system.Width(i - 1));
            arrays.B[i - 1] = (Times<TProduct>(y - yBefore, rateBefore) - Times<TProduct>(bends, Third)).High;
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

template <class TProduct>
PLOTKIT_INLINE bool SolveWith(const TSystem& system)
{
    if (!Eliminate<TProduct>(system) || !Substitute<TProduct>(system))
        return false;
    FillSegments<TProduct>(system);
    return true;
}

#if defined(__x86_64__)
[[gnu::target("fma")]] bool SolveFused(const TSystem& system)
{
    return SolveWith<TFusedProduct>(system);
}

bool Solve(const TSystem& system)
{
    return __builtin_cpu_supports("fma") ? SolveFused(system) : SolveWith<TSplitProduct>(system);
}
#elif defined(FP_FAST_FMA)
bool Solve(const TSystem& system)
{
    return SolveWith<TFusedProduct>(system);
}
#else
bool Solve(const TSystem& system)
{
    return SolveWith<TSplitProduct>(system);
}
#endif

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
    const bool solved = Solve(system);
    for (const std::span<const double> values : {arrays.Y, arrays.B, arrays.C, arrays.D})
        if (!AreFinite(values))
            throw EMathError("Floating point overflow");
    if (!solved)
        throw EMathError("Approximative Spline: Matrix is not positive definite!");
}

}  // namespace plotkit
