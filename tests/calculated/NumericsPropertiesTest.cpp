#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <set>

#include "calculated/KxAkima.h"
#include "calculated/KxApproxSpline.h"
#include "calculated/KxLinRegr.h"
#include "calculated/KxPolyRegr.h"
#include "calculated/KxSimplexFit.h"
#include "calculated/KxSmoothing.h"
#include "calculated/KxSort.h"
#include "support/MessageOf.h"

// Any data give the right result or an EMathError, never a wrong one.
namespace plotkit {
namespace {

using TCount = std::size_t;
using TReals = std::vector<double>;
using TWide = long double;
using TCurve = std::function<TWide(double)>;
constexpr double Inf = std::numeric_limits<double>::infinity();

TCount Count(TCount least, TCount most)
{
    return *rc::gen::inRange(least, most);
}

/// Whole numbers, few or many of them repeated, or any doubles; in order, reversed or neither; of any size; one may be
/// missing.
TReals Drawn(TCount n, const std::vector<int>& powers = {0, 0, 0, 300, -300, 960, -960}, bool mayMiss = true)
{
    TReals values = *rc::gen::container<TReals>(n, rc::gen::arbitrary<double>());
    if (const int kind = *rc::gen::inRange(0, 4); kind < 3)
        std::ranges::generate(values, [=] { return *rc::gen::inRange(-4 << 9 * kind, 4 << 9 * kind) / 8.0; });
    const int order = *rc::gen::inRange(0, 3);
    if (order > 0)
        std::sort(values.begin(), values.end());
    if (order > 1)
        std::reverse(values.begin(), values.end());
    const int power = *rc::gen::elementOf(powers);
    std::ranges::for_each(values, [=](double& value) { value = std::ldexp(value, power); });
    if (mayMiss && *rc::gen::inRange(0, 4) == 0)
        values[Count(0, n)] = *rc::gen::element(std::nan(""), Inf, -Inf);
    return values;
}

/// The points that take part.
struct TPoints
{
    TReals X, Y, W;
    double LargestX = 0, LargestY = 0;

    TPoints(const TReals& x, const TReals& y, const TReals& w)
    {
        for (TCount i = 0; i < x.size(); ++i)
            if (std::isfinite(x[i] + y[i] + w[i])) {
                X.push_back(x[i]), Y.push_back(y[i]), W.push_back(w[i]);
                LargestX = std::max(LargestX, std::fabs(x[i])), LargestY = std::max(LargestY, std::fabs(y[i]));
            }
    }
    bool HasRepeated() const { return std::set(X.begin(), X.end()).size() < X.size(); }
};

template <class TAct>
bool Succeeds(TAct act)
{
    const std::string message = MessageOf<EMathError>(act);
    RC_TAG(message);
    return message.empty();
}

void AssertNear(TWide a, TWide b, TWide tolerance)
{
    if (a != b && !(std::fabs(a - b) <= tolerance + 1e-300L))
        RC_FAIL(std::to_string(a) + " is not " + std::to_string(b));
}

/// The residuals of the best curve have nothing of any of its parts.
void AssertOrthogonal(const TPoints& points, const TCurve& curve, TWide offset, const TCurve& part, double tolerance)
{
    TWide sum = 0, size = 0;
    for (TCount i = 0; i < points.X.size(); ++i) {
        const TWide value = curve(points.X[i]), weight = points.W[i] * part(points.X[i]), y = points.Y[i];
        sum += weight * (y - value);
        size += std::fabs(weight) * (std::fabs(y) + std::fabs(value) + std::fabs(offset));
    }
    AssertNear(sum, 0, tolerance * size);
}

/// Ordinates and slopes meet, seen from either side of a node.
void AssertSmooth(const TKxIntPolynom& curve, double largest)
{
    const double *const x = curve.X().Read(), *const y = curve.Y().Read(), *const b = curve.B().Read();
    for (int i = 0; i + 1 < curve.Count(); ++i) {
        const double h = x[i + 1] - x[i], c = curve.C().Read()[i], d = curve.D().Read()[i];
        const double rises = (std::fabs(b[i]) + std::fabs(b[i + 1])) * h + std::fabs(y[i + 1] - y[i]);
        AssertNear(((d * h + c) * h + b[i]) * h + y[i], y[i + 1], 2e-9 * rises + 1e-14 * largest);
        if (i + 2 < curve.Count())
            AssertNear(((2 * c + 3 * d * h) * h + b[i]) * h, b[i + 1] * h, 2e-9 * rises + 1e-14 * largest);
    }
}

RC_GTEST_PROP(Numerics, SortKeepsPairsAndWhatIsOutside, ())
{
    const TCount n = Count(1, 1300), l = Count(0, n), r = Count(l, n);
    const TReals x = Drawn(n);
    TReals places(n);
    std::iota(places.begin(), places.end(), 0.0);
    TKxRealArray ax(x), ay(places);
    QuickSortYtoX(static_cast<int>(l), static_cast<int>(r), ax, ay);
    RC_ASSERT(std::set(ay.Read(), ay.Read() + n).size() == n);
    for (TCount i = 0; i < n; ++i) {
        const double from = x[static_cast<TCount>(ay[i])];
        RC_ASSERT(ax[i] == from || (std::isnan(from) && std::isnan(ax[i])));
        RC_ASSERT((i >= l && i <= r) || ay[i] == places[i]);
    }
    if (std::ranges::none_of(x, [](double value) { return std::isnan(value); }))
        RC_ASSERT(std::is_sorted(ax.Read() + l, ax.Read() + r + 1));
}

RC_GTEST_PROP(Numerics, RegressionsLeaveNothingOfTheirParts, (bool weighted, bool fixedOffset))
{
    const TCount n = Count(1, 80);
    const TReals x = Drawn(n), y = Drawn(n), w = weighted ? Drawn(n, {0, 200, -960}) : TReals(n, 1);
    TPoints points(x, y, w);
    TKxPolynomRegessionResults polynom;
    polynom.Order = *rc::gen::inRange(2, 8);
    if (Succeeds([&] {
            weighted ? PolynomRegressionWithWeight(-Inf, Inf, x, y, w, polynom)
                     : PolynomRegression(-Inf, Inf, x, y, polynom);
        }))
        for (int power = 0; power <= polynom.Order; ++power)
            AssertOrthogonal(
                points, [&](double at) { return RegressionValue(polynom, at); }, 0,
                [&](double at) { return std::pow(at / TWide{points.LargestX}, power); }, 2e-6);
    TKxLinearRegessionResults line;
    line.Offset = fixedOffset ? *rc::gen::element(0.0, -3.5, 1e80) : 0;
    if (!Succeeds([&] {
            if (weighted)
                (fixedOffset ? OfsRegWithWeight : LinRegWithWeight)(-Inf, Inf, x, y, w, line);
            else
                (fixedOffset ? OfsReg : LinReg)(-Inf, Inf, x, y, line);
        }) ||
        line.Slope == 1.7e308)
        return;
    std::ranges::for_each(points.W, [](double& weight) { weight = std::fabs(weight); });
    const TWide slope = line.Slope, offset = line.Offset, middle = fixedOffset ? 0 : line.AverageX;
    const TCurve curve = [&](double at) { return offset + slope * at; };
    AssertOrthogonal(
        points, curve, offset, [&](double at) { return at - middle; }, 1e-13);
    if (!fixedOffset)
        AssertOrthogonal(
            points, curve, offset, [](double) { return 1; }, 1e-13);
}

RC_GTEST_PROP(Numerics, AkimaIsSmoothInAnyOrderAndSize, ())
{
    const TCount n = Count(1, 40);
    const TReals x = Drawn(n), y = Drawn(n);
    const TPoints points(x, y, TReals(n, 1));
    TKxAkima curve, other;
    if (!Succeeds([&] { curve.RecalculateCoeffs(-Inf, Inf, x, y, std::nullopt); }))
        return;
    AssertSmooth(curve, points.LargestY);
    if (points.HasRepeated())
        return;
    for (TCount i = 0; i < points.X.size(); ++i)
        RC_ASSERT(curve.Interpolate(points.X[i]) == points.Y[i]);
    TReals flat(y.rbegin(), y.rend());
    std::ranges::for_each(flat, [](double& value) { value = std::ldexp(value, -40); });
    if (Succeeds([&] { other.RecalculateCoeffs(-Inf, Inf, TReals(x.rbegin(), x.rend()), flat, std::nullopt); }))
        for (TCount i = 0; i < points.X.size(); ++i)
            AssertNear(std::ldexp(other.B()[i], 40), curve.B()[i], 1e-280);
}

RC_GTEST_PROP(Numerics, SplinesBendWhereTheirPointsPull, ())
{
    const TCount n = Count(5, 40);
    const TReals x = Drawn(n), y = Drawn(n), w = Drawn(n, {0, 30, -30, 900});
    const TPoints points(x, y, w);
    TKxApproxSpline curve;
    if (!Succeeds([&] { curve.RecalculateCoeffs(-Inf, Inf, x, y, w); }))
        return;
    AssertSmooth(curve, points.LargestY);
    for (TCount i = 0; i < points.X.size() && !points.HasRepeated(); ++i) {
        const auto at =
            static_cast<TCount>(std::ranges::lower_bound(curve.X().Span(), points.X[i]) - curve.X().Span().begin());
        const double jump = curve.D()[at] - (at > 0 ? curve.D()[at - 1] : 0);
        AssertNear(points.Y[i] - curve.Y()[at], 6 * jump / std::fabs(points.W[i]), 1e-7 * points.LargestY);
    }
}

RC_GTEST_PROP(Numerics, SmoothedOrdinatesLieBetweenOthers, (bool logarithmic))
{
    const TCount n = Count(1, 600);
    const TReals x = Drawn(n), y = Drawn(n);
    const double m = *rc::gen::element(0.5, 30.0, 1e5, 1e-280, 1e95, 1e290);
    const TPoints points(x, y, TReals(n, 1));
    const auto smooth = logarithmic ? SmoothVectorLog : SmoothVector;
    TKxRealArray ax(x), ay(y);
    if (!Succeeds([&] { smooth(m, ax, ay); }))
        return;
    const auto [least, most] = std::ranges::minmax(points.Y);
    const double rounding = 1e-13 * points.LargestY;
    for (TCount i = 0; i < n; ++i)
        if (std::isfinite(x[i] + y[i]))
            RC_ASSERT(ay[i] >= least - rounding && ay[i] <= most + rounding);
}

RC_GTEST_PROP(Numerics, SimplexNeverLosesItsBest, (bool weighted))
{
    const TCount n = Count(1, 300), order = Count(1, 4);
    const TReals x = Drawn(n, {0, 9, -300, 500}, false), y = Drawn(n, {0, 300, -300}, false);
    const TReals w = weighted ? Drawn(n, {0, 100}, false) : TReals();
    const TKxMisfit misfit(
        [](double at, std::span<const double> coefs) {
            return std::accumulate(coefs.begin(), coefs.end(), 0.0,
                                   [at](double value, double coef) { return value * at + coef; });
        },
        {x, y, w});
    Succeeds([&] {
        TKxSimplexFit fit(misfit, TReals(order, 1.0));
        for (int step = 0; step < 60; ++step) {
            const double before = fit.BestValue();
            fit.Step();
            TReals coefs(fit.Best().begin(), fit.Best().end());
            RC_ASSERT(fit.BestValue() <= before && misfit(coefs) == fit.BestValue());
        }
    });
}

}  // namespace
}  // namespace plotkit
