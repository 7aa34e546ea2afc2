#include "calculated/KxApproxSpline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "calculated/KxSort.h"
#include "support/MessageOf.h"

namespace plotkit {
namespace {

using TReals = std::vector<double>;

constexpr double Everywhere = std::numeric_limits<double>::infinity();

struct TPoints
{
    TReals X, Y, W;
};

/// Noise around a wave, over abscissae from 0 to `width`.
TPoints Wave(std::size_t n, double width, double unevenness)
{
    std::mt19937 random(11);
    TPoints points;
    double at = 0;
    for (std::size_t i = 0; i < n; ++i) {
        points.X.push_back(at);
        at += width / static_cast<double>(n) * (1 + unevenness * std::exponential_distribution<>()(random));
        points.Y.push_back(std::sin(9 * points.X.back() / width) + std::normal_distribution<>(2, 0.1)(random));
        points.W.push_back(std::uniform_real_distribution<>(0.5, 2)(random));
    }
    return points;
}

TKxApproxSpline SplineOf(const TPoints& points, double factor)
{
    TKxApproxSpline spline;
    spline.SetWeightFactor(factor);
    spline.RecalculateCoeffs(-Everywhere, Everywhere, points.X, points.Y, points.W);
    return spline;
}

void Widen(double& largest, double value)
{
    largest = std::max(largest, std::fabs(value));
}

double Largest(const TKxRealArray& values)
{
    double largest = 0;
    for (const double value : values.Span())
        Widen(largest, value);
    return largest;
}

// The conditions that the smallest sum of weighted squares and bending meets, and nothing else: ordinate, slope and
// curvature are continuous, the ends are free, and at each node the third derivative jumps by W (y - s).
TEST(ApproxSpline, MeetsTheConditionsOfTheBestCurve)
{
    for (const std::size_t n : {6u, 50u, 20000u})
        for (const double width : {1.0, 1e3})
            for (const double unevenness : {0.0, 30.0})
                for (const double factor : {1e-30, 1e-9, 1.0, 1e9}) {
                    const TPoints points = Wave(n, width, unevenness);
                    const TKxApproxSpline s = SplineOf(points, factor);
                    double slopeJump = 0, bendJump = 0, gap = 0, misfit = 0;
                    for (std::size_t i = 0; i < n; ++i) {
                        const double before = i > 0 ? s.D()[i - 1] : 0;
                        Widen(misfit, points.Y[i] - s.Y()[i] - 6 * (s.D()[i] - before) / s.W()[i]);
                        if (i + 1 == n)
                            continue;
                        const double h = s.X()[i + 1] - s.X()[i], b = s.B()[i], c = s.C()[i], d = s.D()[i];
                        Widen(gap, ((d * h + c) * h + b) * h + s.Y()[i] - s.Y()[i + 1]);
                        Widen(bendJump, c + 3 * d * h - s.C()[i + 1]);
                        if (i + 2 < n)
                            Widen(slopeJump, b + (2 * c + 3 * d * h) * h - s.B()[i + 1]);
                    }
                    SCOPED_TRACE(testing::Message() << n << " points over " << width << ", factor " << factor);
                    EXPECT_LT(gap, 2e-14);
                    EXPECT_LT(slopeJump, 2e-13 * Largest(s.B()));
                    EXPECT_LT(bendJump, 2e-15 * Largest(s.C()));
                    EXPECT_LT(misfit, 1e-14 + 1e-14 * Largest(s.D()) / factor);
                    EXPECT_EQ(s.C()[0], 0);
                }
}

TEST(ApproxSpline, LiesBetweenTheInterpolationAndTheRegressionLine)
{
    const TPoints points = Wave(20000, 5, 3);
    const TKxApproxSpline heavy = SplineOf(points, Everywhere), light = SplineOf(points, 1e-30);
    EXPECT_TRUE(std::equal(points.Y.begin(), points.Y.end(), heavy.Y().Read()));
    EXPECT_LT(Largest(light.C()), 1e-20) << "it is straight";

    TPoints line = points;
    for (std::size_t i = 0; i < line.X.size(); ++i)
        line.Y[i] = 0.7 * line.X[i] - 3;
    for (const double factor : {1e-20, 1.0, 1e20})
        EXPECT_NEAR(SplineOf(line, factor).Interpolate(1.234), 0.7 * 1.234 - 3, 1e-14) << factor;
    EXPECT_NEAR(SplineOf(line, 1e-20).Interpolate(1000), 697, 1e-11);
}

TEST(ApproxSpline, GoesOnWithTheFirstCubicAndBehindTheLastNodeStraight)
{
    const TPoints points{{0, 1, 2, 4, 5, 7}, {1, 3, 2, 2, 5, 4}, TReals(6, 2.0)};
    const TKxApproxSpline s = SplineOf(points, 3);
    EXPECT_NEAR(s.Interpolate(-2), s.Y()[0] - 2 * s.B()[0] - 8 * s.D()[0], 1e-14);
    EXPECT_EQ(s.Interpolate(7), s.Y()[5]);
    EXPECT_NEAR(s.Interpolate(17), s.Y()[5] + 10 * s.B()[4], 1e-13);
}

TEST(ApproxSpline, MergesRepeatedAbscissaePairByPair)
{
    TPoints points{{5, 2, 2, 0, 1, 2, 3, 4, 2}, {9, 1, 4, 7, 8, 16, 2, 3, 64}, {1, -1, 2, 1, 1, 4, 1, 1, 8}};
    const TKxApproxSpline s = SplineOf(points, 1e300);
    TKxRealArray x(points.X), y(points.Y), w(points.W);
    QuickSortYWtoX(0, 8, x, y, w);
    const auto merged = [](const TKxRealArray& of) {
        return (((std::fabs(of[2]) + std::fabs(of[3])) / 2 + std::fabs(of[4])) / 2 + std::fabs(of[5])) / 2;
    };
    ASSERT_EQ(s.Count(), 6);
    EXPECT_EQ(s.Y()[2], merged(y));
    EXPECT_NEAR(s.W()[2], 1e300 * merged(w), 1e285);
}

TEST(ApproxSpline, RefusesWhatItCannotDoAndRecovers)
{
    const double missing = std::numeric_limits<double>::quiet_NaN();
    const TReals x{0, 1, 2, 3, 4, 5, 6}, y{1, 3, 2, 2, 5, 4, 0};
    TKxApproxSpline spline;
    const auto calculate = [&](double stop, const TReals& ys, std::optional<TReals> w = {}) {
        return MessageOf<EMathError>([&] {
            spline.RecalculateCoeffs(0, stop, x, ys, w ? std::optional<std::span<const double>>(*w) : std::nullopt);
        });
    };
    EXPECT_EQ(calculate(4.9, y), "Not enough data!");
    EXPECT_EQ(calculate(6, {1, missing, 2, 2, 5, Everywhere, 0}), "Not enough data!");
    EXPECT_EQ(calculate(6, y, TReals{1, 1, missing, 1, 1, 1}), "Not enough data!");
    EXPECT_EQ(spline.Count(), 0);
    EXPECT_EQ(calculate(6, y, TReals{1, 1, 0, 1, 1, 1, 1}), "Floating point division by zero");
    EXPECT_EQ(calculate(6, {0, 1.7e308, -1.7e308, 0, 0, 0, 0}), "Floating point overflow");
    spline.SetWeightFactor(-1);
    EXPECT_EQ(calculate(6, y), "Approximative Spline: Matrix is not positive definite!");
    EXPECT_EQ(spline.Count(), 0);
    spline.SetWeightFactor(1);
    EXPECT_EQ(calculate(5, y), "");
    EXPECT_EQ(spline.Count(), 6);
}

}  // namespace
}  // namespace plotkit
