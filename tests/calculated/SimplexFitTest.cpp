#include "calculated/KxSimplexFit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "host/Errors.h"
#include "support/MessageOf.h"

using namespace plotkit;

namespace {

double Decay(double x, std::span<const double> coefs)
{
    return coefs[0] * std::exp(-coefs[1] * x) + coefs[2];
}

struct TDecayPoints
{
    std::vector<double> X, Y, W;

    explicit TDecayPoints(int count)
    {
        const std::vector<double> truth{2, 0.7, 0.5};
        for (int i = 0; i < count; ++i) {
            X.push_back(i * 5.0 / count);
            Y.push_back(Decay(X.back(), truth));
            W.push_back(i % 3 - 1);
        }
    }
    TKxFitPoints Points() const { return {X, Y, W}; }
};

}  // namespace

TEST(SimplexFit, MisfitIsTheSumOverPointsWithTheSizeOfTheirWeights)
{
    const TDecayPoints data(1000);
    std::vector<double> coefs{1, 0.5, 0.25};
    double plain = 0, weighted = 0, crossed = 0;
    for (std::size_t i = 0; i < data.X.size(); ++i) {
        const double off = data.Y[i] - Decay(data.X[i], coefs);
        plain += off * off;
        weighted += off * off * std::fabs(data.W[i]);
        crossed += std::fabs(off * (data.X[i] - 2 * Decay(data.X[i], coefs)) * data.W[i]);
    }
    EXPECT_NEAR(TKxMisfit(&Decay, {data.X, data.Y, {}})(coefs), plain, 1e-12 * plain);
    EXPECT_NEAR(TKxMisfit(&Decay, data.Points())(coefs), weighted, 1e-12 * weighted);
    EXPECT_NEAR(TKxMisfit(&Decay, data.Points(), [](double y) { return 2 * y; })(coefs), crossed, 1e-12 * crossed);
    coefs[1] = -1e9;
    EXPECT_EQ(TKxMisfit(&Decay, data.Points())(coefs), std::numeric_limits<double>::infinity());
}

/// With one coefficient and one point at 0 the misfit is the square of the coefficient's distance from the point, and
/// each step can be followed by hand.
TEST(SimplexFit, StepsReflectExpandContractAndShrink)
{
    std::vector<double> tried;
    const auto model = [&](double, std::span<const double> coefs) {
        tried.push_back(coefs[0]);
        return coefs[0];
    };
    const std::vector<double> x{0}, y{10};
    TKxSimplexFit fit(TKxMisfit(model, {x, y, {}}), std::vector<double>{1});
    for (int i = 0; i < 3; ++i)
        fit.Step();
    // Twice reflected and expanded; then reflected too far, contracted to 10.45 and, since that helped, shrunk.
    const std::vector<double> expected{2.05, 1, 3.1, 4.15, 6.25, 8.35, 12.55, 10.45, 9.4};
    ASSERT_EQ(tried.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(tried[i], expected[i], 1e-12) << i;
    EXPECT_EQ(fit.Best()[0], tried.back());
}

TEST(SimplexFit, AnExactModelIsFoundAndDeadEndsAreTold)
{
    const TDecayPoints data(50);
    TKxSimplexFit fit(TKxMisfit(&Decay, data.Points()), std::vector<double>{1, 1, 1});
    for (int i = 0; i < 300; ++i)
        fit.Step();
    EXPECT_NEAR(fit.Best()[0], 2, 1e-7);
    EXPECT_NEAR(fit.Best()[1], 0.7, 1e-7);
    EXPECT_NEAR(fit.Best()[2], 0.5, 1e-7);

    const std::vector<double> x{1}, y{0};
    EXPECT_EQ(MessageOf<EMathError>([&] {
                  TKxSimplexFit runaway(
                      TKxMisfit([](double, std::span<double> c) { return 1e-3 + 1 / c[0]; }, {x, y, {}}),
                      std::vector<double>{1e308});
              }),
              "Floating point overflow");
}

TEST(SimplexFit, StatisticsOfTheFittedPoints)
{
    const std::vector<double> x{0, 2, 4}, y{1, 1, 4}, w{1, -2, 1};
    const TKxFitStatistics plain = FitStatistics({x, y, {}}, 3, false);
    EXPECT_EQ(plain.MeanX, 2);
    EXPECT_EQ(plain.MeanY, 2);
    EXPECT_EQ(plain.VarianceX, 4);
    EXPECT_EQ(plain.VarianceY, 3);
    EXPECT_EQ(plain.Determination, 0.5);
    const TKxFitStatistics weighted = FitStatistics({x, y, w}, 3, true);
    EXPECT_EQ(weighted.MeanY, 1.75);
    EXPECT_DOUBLE_EQ(weighted.VarianceX, 8.0 / 3);
    EXPECT_DOUBLE_EQ(weighted.Determination, 1 - 3 / std::sqrt(8 * 6.75));
    EXPECT_EQ(FitStatistics({{x.data(), 1}, {y.data(), 1}, {}}, 3, false).Determination, 0);
}
