#include "calculated/KxSmoothing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "support/MessageOf.h"

namespace plotkit {
namespace {

using TReals = std::vector<double>;

/// Each mean by its definition, over all points: ascending abscissae only.
TReals DefinedMeans(double m, const TReals& x, const TReals& y)
{
    TReals result;
    for (const double centre : x) {
        long double sum = 0, weights = 0;
        for (std::size_t k = 0; k < x.size(); ++k) {
            const long double weight = 1 - std::fabs(static_cast<long double>(centre) - x[k]) / m;
            sum += weight > 0 ? weight * y[k] : 0;
            weights += weight > 0 ? weight : 0;
        }
        result.push_back(static_cast<double>(sum / weights));
    }
    return result;
}

TReals Smoothed(double m, const TReals& x, const TReals& y, bool logarithmic = false)
{
    TKxRealArray ax(x), ay(y);
    (logarithmic ? SmoothVectorLog : SmoothVector)(m, ax, ay);
    return {ay.Span().begin(), ay.Span().end()};
}

TEST(Smoothing, IsTheTriangularMeanForAnyWindow)
{
    std::mt19937 random(3);
    for (const std::size_t n : {3u, 40u, 1500u}) {
        TReals x, y, logs;
        double at = 0.01;
        for (std::size_t i = 0; i < n; ++i) {
            x.push_back(at += std::exponential_distribution<>(1)(random));
            y.push_back(std::normal_distribution<>(5)(random));
            logs.push_back(std::log10(at));
        }
        for (const double m : {1e-9, 0.5, 3.0, 90.0, 400.0, 1e5}) {
            const TReals expected = DefinedMeans(m, x, y), smoothed = Smoothed(m, x, y);
            const TReals expectedLog = DefinedMeans(m / 10, logs, y), smoothedLog = Smoothed(m / 10, x, y, true);
            for (std::size_t i = 0; i < n; ++i) {
                EXPECT_NEAR(smoothed[i], expected[i], 2e-14) << "n " << n << ", M " << m << ", i " << i;
                EXPECT_NEAR(smoothedLog[i], expectedLog[i], 2e-14) << "n " << n << ", M " << m << ", i " << i;
            }
        }
    }
}

TEST(Smoothing, OneHugeValueHarmsOnlyItsNeighbourhood)
{
    TReals x(4000), y(4000, 1.0);
    for (std::size_t i = 0; i < x.size(); ++i)
        x[i] = static_cast<double>(i);
    y[2000] = 1e300;
    const TReals smoothed = Smoothed(500, x, y);
    EXPECT_NEAR(smoothed[1500], 1, 1e-14);
    EXPECT_GT(smoothed[1501], 1e290);
    EXPECT_NEAR(smoothed[2500], 1, 1e-14);
}

TEST(Smoothing, LeavesMissingValuesOutAndRefusesWhatItCannotDo)
{
    EXPECT_EQ(Smoothed(2, {0, 1, 9, 2}, {6, 0, 8, 3}), (TReals{4, 2, 8, 3}))
        << "windows end at the first distant point";
    const double missing = std::numeric_limits<double>::quiet_NaN();
    const TReals smoothed = Smoothed(2, {0, 1, missing, 2, 3}, {6, 0, 100, 3, missing});
    EXPECT_EQ((TReals{smoothed[0], smoothed[1], smoothed[2], smoothed[3]}), (TReals{4, 2.25, 100, 2}));
    EXPECT_TRUE(std::isnan(smoothed[4]));
    EXPECT_EQ(Smoothed(0, {0, 1, 2}, {3, 1, 2}), (TReals{3, 1, 2}));
    EXPECT_EQ(Smoothed(-1, {0, 1, 2}, {3, 1, 2}, true), (TReals{3, 1, 2}));
    EXPECT_EQ(MessageOf<EMathError>([] { Smoothed(0, {0, 1, 2}, {3, 1}); }), "Not enough data!");
    EXPECT_EQ(MessageOf<EMathError>([] {
                  Smoothed(1, {0, 1, 2}, {3, 1, 2}, true);
              }),
              "Invalid floating point operation");
}

}  // namespace
}  // namespace plotkit
