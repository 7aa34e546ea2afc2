#include "calculated/KxAkima.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "data/KxVector.h"
#include "support/MessageOf.h"

namespace plotkit {
namespace {

using TReals = std::vector<double>;
constexpr double Inf = std::numeric_limits<double>::infinity();

TKxAkima Through(const TReals& x, const TReals& y)
{
    TKxAkima curve;
    curve.RecalculateCoeffs(-Inf, Inf, x, y, std::nullopt);
    return curve;
}

TReals Sampled(const TReals& x, double (*function)(double))
{
    TReals y(x.size());
    std::transform(x.begin(), x.end(), y.begin(), function);
    return y;
}

TReals Scattered(int n, unsigned seed)
{
    std::mt19937 random(seed);
    TReals x;
    double at = -3;
    for (int i = 0; i < n; ++i)
        x.push_back(at += 0.05 + std::exponential_distribution<>(2)(random));
    return x;
}

/// The coefficients as they are defined: the list is extended at both ends, moved, and moved back except for its tail.
struct TDefinition
{
    TReals X, Y, M, B, C, D;

    TDefinition(TReals x, TReals y) : X(std::move(x)), Y(std::move(y))
    {
        const std::size_t n = X.size();
        for (TReals* values : {&X, &Y, &B, &C, &D})
            values->resize(n + 4);
        M.resize(n + 5);
        for (std::size_t i = n + 1; i >= 2; --i)
            X[i] = X[i - 2], Y[i] = Y[i - 2];
        X[1] = X[2] + X[3] - X[4], X[0] = X[1] + X[2] - X[3];
        X[n + 2] = X[n + 1] + X[n] - X[n - 1], X[n + 3] = X[n + 2] + X[n + 1] - X[n];
        for (std::size_t i = 2; i <= n; ++i)
            M[i] = (Y[i + 1] - Y[i]) / (X[i + 1] - X[i]);
        for (const std::size_t i : {1u, 0u}) {
            Y[i] = (X[i + 1] - X[i]) * (M[i + 2] - 2 * M[i + 1]) + Y[i + 1];
            M[i] = (Y[i + 1] - Y[i]) / (X[i + 1] - X[i]);
        }
        for (const std::size_t i : {n + 2, n + 3}) {
            Y[i] = (2 * M[i - 2] - M[i - 3]) * (X[i] - X[i - 1]) + Y[i - 1];
            M[i - 1] = (Y[i] - Y[i - 1]) / (X[i] - X[i - 1]);
        }
        for (std::size_t i = 2; i <= n + 2; ++i) {
            const double w1 = std::fabs(M[i + 1] - M[i]), w2 = std::fabs(M[i - 1] - M[i - 2]);
            B[i] = w1 == 0 && w2 == 0 ? (M[i + 1] + M[i]) * 0.5 : (w1 * M[i - 1] + w2 * M[i]) / (w1 + w2);
        }
        for (std::size_t j = 0; j <= n; ++j)
            X[j] = X[j + 2], Y[j] = Y[j + 2], B[j] = B[j + 2];
        for (std::size_t j = 0; j <= n + 2; ++j) {
            const double h = X[j + 1] - X[j];
            C[j] = (3 * M[j + 2] - 2 * B[j] - B[j + 1]) / h;
            D[j] = (B[j] + B[j + 1] - 2 * M[j + 2]) / (h * h);
        }
    }
};

TEST(Akima, CoefficientsAreThoseOfTheDefinition)
{
    std::mt19937 random(5);
    for (const int n : {3, 4, 5, 40}) {
        TReals x = Scattered(n, 9), y;
        for (int i = 0; i < n; ++i)
            y.push_back(i % 7 < 3 ? 1.5 : std::normal_distribution<>()(random));
        TKxAkima curve = Through(Scattered(60, 1), Scattered(60, 2));  // leaves nothing in the arrays behind
        curve.RecalculateCoeffs(-Inf, Inf, x, y, std::nullopt);
        const TDefinition defined(x, y);
        ASSERT_EQ(curve.Count(), n);
        const auto same = [](const TReals& a, const TKxRealArray& b) { return TKxRealArray(a) == b; };
        EXPECT_TRUE(same(defined.X, curve.X()) && same(defined.Y, curve.Y()) && same(defined.M, curve.M())) << n;
        EXPECT_TRUE(same(defined.B, curve.B()) && same(defined.C, curve.C()) && same(defined.D, curve.D())) << n;
    }
}

TEST(Akima, PassesThroughItsPointsAndKeepsStraightRunsStraight)
{
    const TReals x = Scattered(200, 3), y = Sampled(x, [](double at) { return std::sin(at) + at / 9; });
    const TKxAkima curve = Through(x, y);
    for (std::size_t i = 1; i < x.size(); ++i) {
        EXPECT_EQ(curve.Interpolate(x[i]), y[i]);
        EXPECT_NEAR(curve.Interpolate(std::nextafter(x[i], -9)), y[i], 1e-13);
        EXPECT_NEAR(curve.Slope(std::nextafter(x[i], -9)), curve.Slope(x[i]), 1e-12);
        const double at = (x[i] + x[i - 1]) / 2, d = 1e-5;
        EXPECT_NEAR(curve.Slope(at), (curve.Interpolate(at + d) - curve.Interpolate(at - d)) / (2 * d), 1e-7) << at;
        EXPECT_NEAR(curve.Curvature(at), (curve.Slope(at + d) - curve.Slope(at - d)) / (2 * d), 1e-7) << at;
    }

    const TKxAkima steps = Through({0, 1, 2, 3, 4, 5, 6, 7}, {0, 0, 0, 0, 5, 5, 5, 5});
    for (double at = -1; at <= 2; at += 0.01)
        EXPECT_TRUE(steps.Interpolate(at) == 0 && steps.Interpolate(at + 6) == 5) << at;
    EXPECT_EQ(steps.Slope(3), 0) << "the level chord has both weights";
    const TKxAkima line = Through({1, 2, 4, 8, 9}, {2, 4, 8, 16, 18});
    const TKxAkima parabola = Through({0, 1, 2, 3, 4}, {0, 1, 4, 9, 16});
    for (double at = -3; at < 13; at += 0.125) {
        EXPECT_EQ(line.Interpolate(at), 2 * at);
        EXPECT_NEAR(parabola.Interpolate(at / 5 + 1), std::pow(at / 5 + 1, 2), 1e-13);
    }
}

TEST(Akima, TakesWhatItCanUseAndRefusesTheRest)
{
    const TReals x{5, NAN, 2, 1, 2, 2, 3, 4, 9}, y{50, 7, 8, 1, 4, 2, Inf, 16, 81};
    TKxAkima curve;
    curve.RecalculateCoeffs(1, 5, x, y, std::nullopt);
    EXPECT_EQ(curve.Count(), 4);
    EXPECT_EQ(curve.Interpolate(2), 5.5) << "the last of three counts half";
    curve.RecalculateCoeffs(-Inf, Inf, x, y, TReals{1, 1, 0, 2, -1, 0, 1, NAN});
    EXPECT_EQ(curve.Count(), 3);
    EXPECT_EQ(curve.Interpolate(2), 4);

    const auto refusal = [](const TReals& xs, const TReals& ys) {
        return MessageOf<EMathError>([&] { Through(xs, ys); });
    };
    for (const TReals& few : {TReals{}, TReals{1}, TReals{1, 2}, TReals{1, 2, 2, 1}, TReals{1, 2, NAN}})
        EXPECT_EQ(refusal(few, {1, 2, 3, 4}), "Not enough data!");
    EXPECT_EQ(refusal({0, 1e-310, 2e-310, 1}, {0, 1, 2, 3}), "Floating point overflow");
    EXPECT_EQ(refusal({0, 1e100, 2e100, 4e100}, {1e-20, 2e-20, 1e-20, 3e-20}), "Floating point underflow");
    EXPECT_EQ(refusal({1, 2, 3}, {1, 2, 3}) + refusal({1, 2, 3, 4, 5}, {1, 0, 1, 0, 1}), "");
    EXPECT_THROW(curve.RecalculateCoeffs(3, 4, x, y, std::nullopt), EMathError);
    EXPECT_TRUE(std::isnan(curve.Interpolate(2)) && std::isnan(TKxAkima().Slope(1))) << "no curve has no values";
}

TEST(Akima, AnyOrderOfPlacesGivesTheSameValues)
{
    const TReals x = Scattered(300, 4);
    const TKxAkima curve = Through(x, Sampled(x, [](double at) { return std::cos(at); }));
    const double* const nodes = curve.X().Read();
    TReals places = Scattered(2000, 8);
    for (double& at : places)
        at = std::remainder(at, 400);
    places.insert(places.end(), x.begin(), x.end());
    places.insert(places.end(), {nodes[300], -Inf, Inf});
    for (int pass = 0; pass < 2; ++pass) {
        TReals values(places.size());
        curve.Interpolate(places, values);
        for (std::size_t k = 0; k < places.size(); ++k) {
            const double at = places[k], single = curve.Interpolate(at);
            EXPECT_TRUE(values[k] == single || std::isinf(at)) << at;
            EXPECT_EQ(curve.FindIndex(at),
                      std::max(0, static_cast<int>(std::upper_bound(nodes, nodes + 301, at) - nodes) - 1));
        }
        std::sort(places.begin(), places.end());
    }
}

TEST(Akima, FindsEveryExtremum)
{
    TReals x = Scattered(120, 6), y = Sampled(x, [](double at) { return std::sin(2 * at) + std::cos(5 * at); });
    TKxAkima curve = Through(x, y);
    curve.FindExtrema();
    std::size_t minima = 0, maxima = 0;
    double before = curve.Slope(x.front());
    for (double at = x.front(); at < x.back(); at += 1e-4) {
        const double slope = curve.Slope(at);
        minima += before < 0 && slope >= 0;
        maxima += before > 0 && slope <= 0;
        before = slope;
    }
    EXPECT_EQ(curve.Minima().Length(), minima);
    EXPECT_EQ(curve.Maxima().Length(), maxima);
    for (const TKxRealPos& found : curve.Maxima().Span()) {
        EXPECT_NEAR(curve.Slope(found.Position), 0, 1e-10);
        EXPECT_EQ(curve.Interpolate(found.Position), found.Value);
        EXPECT_LT(curve.Curvature(found.Position), 0);
    }

    x = {0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7};
    curve = Through(x, Sampled(x, [](double at) { return (at - 0.37) * (at - 0.37); }));
    curve.FindExtrema();
    ASSERT_EQ(curve.Minima().Length(), 1U) << "next to no cubic part, whose roots cancel";
    EXPECT_NEAR(curve.Minima()[0].Position, 0.37, 1e-12);

    x.clear();
    for (int i = 0; i < 33; ++i)
        x.push_back(i / 4.0);
    curve = Through(x, Sampled(x, [](double at) { return std::sin(at); }));
    curve.FindDiffExtrema();
    ASSERT_TRUE(curve.DiffMinima().Length() == 1 && curve.DiffMaxima().Length() == 1);
    EXPECT_NEAR(curve.DiffMinima()[0].Position, 3.14, 0.1);
    EXPECT_NEAR(curve.DiffMaxima()[0].Value, 1, 0.05);
}

TEST(Akima, IntegralsCountFromTheirNode)
{
    const TReals x = Scattered(30, 7), y = Sampled(x, [](double at) { return std::cos(3 * at); });
    TKxAkima curve = Through(x, y);
    const auto area = [&](double from, double to) {  // Simpson's rule has cubics right
        double sum = 0;
        for (double left = from; left < to;) {
            const double right = std::min(to, *std::upper_bound(x.begin(), x.end() - 1, left));
            sum += (right - left) / 6 *
                   (curve.Interpolate(left) + 4 * curve.Interpolate((left + right) / 2) + curve.Interpolate(right));
            left = right;
        }
        return sum;
    };
    TReals samples;
    for (int k = 0; k <= 900; ++k)
        samples.push_back(x[1] + 0.01 + (x.back() - x[1] - 0.01) * k / 900);
    TReals integral;
    curve.Integrate(samples, integral);
    ASSERT_EQ(integral.size(), samples.size());
    EXPECT_EQ(integral[0], 0);
    for (std::size_t k = 1; k < samples.size(); ++k)
        EXPECT_NEAR(integral[k], area(x[1], samples[k]), 1e-12) << k;
    double turns = 0;
    for (std::size_t k = 1; k < samples.size(); ++k)
        turns += curve.Interpolate(samples[k - 1]) * curve.Interpolate(samples[k]) < 0;
    EXPECT_NEAR(static_cast<double>(curve.IntMinima().Length() + curve.IntMaxima().Length()), turns, 1);

    curve.Integrate(TReals{x[0], x[20], x[25], x[29]}, integral);
    const double h = x[29] - x[2], b = curve.B()[2], c = curve.C()[2], d = curve.D()[2];
    EXPECT_NEAR(integral[3] / (area(x[0], x[2]) + (((d * h / 4 + c / 3) * h + b / 2) * h + y[2]) * h), 1, 1e-12)
        << "four samples lead over two nodes";
    EXPECT_EQ(integral.size(), samples.size());

    TKxLiveVector places(nullptr), result(nullptr);
    places.Assign(std::span(x).first(4));
    result.Add(9);
    curve.Integrate(places, result);
    EXPECT_EQ(result.GetCount(), 4);
    EXPECT_TRUE(result.GetValue(0) == 0 && std::fabs(result.GetValue(2) - area(x[0], x[2])) < 1e-13);
    samples.clear();
    for (double at = x[28]; at < x.back() + 4; at += 0.02)
        samples.push_back(at);
    curve.Integrate(samples, integral);
    for (std::size_t k = 2; k < samples.size(); ++k) {
        const double expected = curve.Interpolate(samples[k - 1]);
        EXPECT_NEAR((integral[k] - integral[k - 2]) / 0.04, expected, 1e-3 * (9 + std::fabs(expected)))
            << "beyond all points, too, at " << samples[k];
    }
}

}  // namespace
}  // namespace plotkit
