#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <fstream>
#include <random>
#include <vector>

#include "calculated/KxLinRegr.h"
#include "host/Errors.h"
#include "support/MessageOf.h"

namespace plotkit {
namespace {

constexpr double Inf = std::numeric_limits<double>::infinity();

struct TPoints
{
    std::vector<double> X, Y;
};

TPoints ReadNist(const std::string& name)
{
    TPoints points;
    std::ifstream file(PLOTKIT_SOURCE_DIR "/data/nist-strd/" + name + ".dat");
    std::string line;
    for (int i = 0; i < 60; ++i)
        std::getline(file, line);
    for (double y = 0, x = 0; file >> y >> x;) {
        points.Y.push_back(y);
        points.X.push_back(x);
    }
    return points;
}

TKxLinearRegessionResults Fitted(const TPoints& points, double start = -Inf, double stop = Inf)
{
    TKxLinearRegessionResults results;
    LinReg(start, stop, points.X, points.Y, results);
    return results;
}

void ExpectDigits(double value, double certified, double digits = 13.5)
{
    EXPECT_LE(std::fabs(value / certified - 1), std::pow(10, -digits)) << value << " for " << certified;
}

TEST(LinRegr, CertifiedResults)
{
    const TPoints norris = ReadNist("Norris");
    ASSERT_EQ(norris.X.size(), 36U);
    const auto free = Fitted(norris);
    ExpectDigits(free.Offset, -0.262323073774029);
    ExpectDigits(free.Slope, 1.00211681802045);
    ExpectDigits(free.DeltaOffset, 0.232818234301152);
    ExpectDigits(free.DeltaSlope, 0.429796848199937e-3);
    ExpectDigits(free.ChiSquare, 26.6173985294224);
    ExpectDigits(free.Determination, 0.999993745883712);
    ExpectDigits(free.R * free.R, 0.999993745883712);

    const std::array fixed{std::array{2.07438016528926, 0.165289256198347e-1, 127.272727272727},
                           std::array{0.727272727272727, 0.420827318078432e-1, 0.272727272727273}};
    for (const int i : {0, 1}) {
        const TPoints points = ReadNist("NoInt" + std::to_string(i + 1));
        TKxLinearRegessionResults results;
        OfsReg(-Inf, Inf, points.X, points.Y, results);
        ExpectDigits(results.Slope, fixed[static_cast<std::size_t>(i)][0]);
        ExpectDigits(results.DeltaSlope, fixed[static_cast<std::size_t>(i)][1]);
        ExpectDigits(results.ChiSquare, fixed[static_cast<std::size_t>(i)][2]);
        EXPECT_TRUE(results.DeltaOffset == 0 && results.R == 0 && results.Offset == 0);
    }
}

/// Seconds since 1970, a large offset and residuals of a known pattern: many blocks of sums, and digits cancel.
TEST(LinRegr, FindsSmallResidualsFarFromTheOrigin)
{
    TPoints points;
    for (int i = 0; i < 40000; ++i) {
        points.X.push_back(1.7e9 + i / 8.);
        points.Y.push_back(1e6 + i / 16. + (i % 4 == 0 || i % 4 == 3 ? 1 : -1) * 0x1p-12);
    }
    const auto results = Fitted(points);
    ExpectDigits(results.Slope, 0.5, 15);
    ExpectDigits(results.Offset, 1e6 - 0.85e9, 14);
    ExpectDigits(results.ChiSquare, 40000 * 0x1p-24, 9);
    ExpectDigits(results.VarianceX, (40000. * 40001) / 12 / 64, 14);
}

TEST(LinRegr, TakesWhatStandsInTheInterval)
{
    const TPoints points{{-9, 1, NAN, 2, 3, 4, Inf, 5, 6, 90}, {7, 3, 1, 5, NAN, 9, 2, Inf, 13, 4}};
    const auto results = Fitted(points, 1, 6);
    EXPECT_TRUE(results.Slope == 2 && results.Offset == 1 && results.ChiSquare == 0 && results.R == 1);
    EXPECT_EQ(results.AverageX, 13. / 4);
    const auto two = Fitted(points, 1, 2);
    EXPECT_TRUE(two.Slope == 2 && two.Offset == 1 && two.ChiSquare == 0 && two.Determination == 1);
    EXPECT_TRUE(two.DeltaSlope == 1.7e308 && two.DeltaOffset == 1.7e308);
    EXPECT_EQ(MessageOf<EMathError>([&] { Fitted(points, 1, 1.5); }), "Not enough data!");
}

TEST(LinRegr, DegenerateData)
{
    const auto upright = Fitted({{0.1, 0.1, 0.1}, {1, 2, 4}});
    EXPECT_TRUE(upright.Slope == 1.7e308 && upright.Offset == 1.7e308 && upright.DeltaSlope == 1.7e308);
    EXPECT_TRUE(upright.Determination == 1 && upright.R == 1 && upright.VarianceY == 0);
    const auto level = Fitted({{1, 2, 4}, {0.1, 0.1, 0.1}});
    EXPECT_TRUE(level.Slope == 0 && level.Offset == 0.1 && level.R == 0 && level.DeltaSlope == 0);
    TKxLinearRegessionResults one{.Offset = 1};
    OfsReg(0, 9, std::array{2.}, std::array{5.}, one);
    EXPECT_TRUE(one.Slope == 2 && one.DeltaSlope == 1.7e308 && one.ChiSquare == 0);
    const std::array x{1., 1., 1.}, y{1., 2., 3.}, none{0., 0., 0.}, zero{0., 0., 0.};
    EXPECT_EQ(MessageOf<EMathError>([&] { OfsReg(5, 9, x, y, one); }), "Not enough data!");
    EXPECT_EQ(MessageOf<EMathError>([&] { OfsReg(-1, 9, zero, y, one); }), "Floating point division by zero");
    EXPECT_EQ(MessageOf<EMathError>([&] { LinRegWithWeight(0, 9, x, y, y, one); }), "Floating point division by zero");
    EXPECT_EQ(MessageOf<EMathError>([&] { LinRegWithWeight(0, 9, y, x, none, one); }),
              "Floating point division by zero");
}

TEST(LinRegr, WholeWeightsCountAsRepeatedPoints)
{
    std::mt19937 random(4);
    TPoints once, often;
    std::vector<double> weights;
    for (int i = 0; i < 3000; ++i) {
        const double x = static_cast<double>(random() % 1000) / 7, y = static_cast<double>(random() % 1000) / 3;
        const int weight = static_cast<int>(random() % 4);
        once.X.push_back(x), once.Y.push_back(y), weights.push_back(i % 2 ? weight : -weight);
        often.X.insert(often.X.end(), static_cast<std::size_t>(weight), x);
        often.Y.insert(often.Y.end(), static_cast<std::size_t>(weight), y);
    }
    const auto expectSame = [](const TKxLinearRegessionResults& a, const TKxLinearRegessionResults& b) {
        const auto fields = [](const auto& r) {
            return std::array{r.Slope,     r.DeltaSlope, r.Offset,    r.DeltaOffset,   r.AverageX, r.AverageY,
                              r.VarianceX, r.VarianceY,  r.ChiSquare, r.Determination, r.R};
        };
        for (std::size_t i = 0; i < 11; ++i)
            EXPECT_NEAR(fields(a)[i], fields(b)[i], 1e-12 * std::fabs(fields(b)[i])) << "field " << i;
    };
    TKxLinearRegessionResults weighted, fixed{.Offset = 3}, fixedOften{.Offset = 3};
    LinRegWithWeight(10, 120, once.X, once.Y, weights, weighted);
    expectSame(weighted, Fitted(often, 10, 120));
    OfsRegWithWeight(10, 120, once.X, once.Y, weights, fixed);
    OfsReg(10, 120, often.X, often.Y, fixedOften);
    expectSame(fixed, fixedOften);
}

TEST(LinRegr, UnitsDoNotMatter)
{
    const TPoints norris = ReadNist("Norris");
    const auto usual = Fitted(norris);
    for (const int x : {-900, 0, 900})
        for (const int y : {-900, 0, 900}) {
            TPoints points = norris;
            for (std::size_t i = 0; i < points.X.size(); ++i)
                points.X[i] = std::ldexp(points.X[i], x), points.Y[i] = std::ldexp(points.Y[i], y);
            if (std::abs(y - x) > 1000)
                EXPECT_EQ(MessageOf<EMathError>([&] { Fitted(points); }),
                          y > x ? "Floating point overflow" : "Floating point underflow");
            else
                ExpectDigits(std::ldexp(Fitted(points).Slope, x - y), usual.Slope, 15);
        }
}

}  // namespace
}  // namespace plotkit
