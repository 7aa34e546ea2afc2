#include "calculated/KxPolyRegr.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "calculated/PreciseLanes.h"
#include "foundation/KxArithm.h"
#include "support/MessageOf.h"

namespace plotkit {
namespace {

using TResults = TKxPolynomRegessionResults;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr const char* Singular = "Cholesky Decomposition ([i,i]): Matrix is not positive definite!";

TResults Fitted(int order, const std::vector<double>& x, const std::vector<double>& y,
                const std::vector<double>& weights = {})
{
    TResults results;
    results.Order = order;
    if (weights.empty())
        PolynomRegression(-1000, Infinity, x, y, results);
    else
        PolynomRegressionWithWeight(-1000, Infinity, x, y, weights, results);
    return results;
}

struct TReference
{
    explicit TReference(const std::string& name)
    {
        std::ifstream file(PLOTKIT_SOURCE_DIR "/data/nist-strd/" + name + ".dat");
        std::string line;
        for (int number = 1; std::getline(file, line); ++number) {
            std::istringstream words(line);
            std::string word;
            double value = 0, second = 0;
            if (number > 60 && words >> value >> second)
                Y.push_back(value), X.push_back(second);
            else if (number <= 60 && words >> word >> value && word[0] == 'B')
                Coefficients.push_back(value);
            else if (word == "Residual")
                words >> ResidualSum;
        }
    }

    std::vector<double> X, Y, Coefficients;
    double ResidualSum = NAN;
};

// The number of leading digits that agree; 15 are certified.
double CommonDigits(double value, double certified)
{
    if (value == certified)
        return 15;
    return std::min(15.0, -std::log10(std::abs(value - certified) / (certified == 0 ? 1 : std::abs(certified))));
}

TEST(KxPolyRegr, AgreesWithCertifiedResults)
{
    // The data are decimal: their rounding to doubles alone costs the last one or two digits.
    const std::tuple<const char*, int, double> cases[] = {
        {"Norris", 1, 13.5},   {"Pontius", 2, 13},    {"Wampler1", 5, 15},   {"Wampler2", 5, 13},
        {"Wampler3", 5, 14.5}, {"Wampler4", 5, 14.5}, {"Wampler5", 5, 14.5}, {"Filip", 10, 13.5}};
    for (const auto& [name, order, digits] : cases) {
        const TReference reference(name);
        const TResults results = Fitted(order, reference.X, reference.Y);
        ASSERT_EQ(reference.Coefficients.size(), results.Coeffs.Length()) << name;
        for (std::size_t k = 0; k < results.Coeffs.Length(); ++k)
            EXPECT_GE(CommonDigits(results.Coeffs[k], reference.Coefficients[k]), digits) << name << " " << k;
        EXPECT_GE(CommonDigits(results.ChiSquare, reference.ResidualSum), 13) << name;
    }
}

// Whole coefficients and abscissae in steps of 1/4, so that the ordinates are exact; between them points that must not
// count.
TEST(KxPolyRegr, RebuildsPolynomialsFromTheirValues)
{
    std::mt19937 random(7);
    const auto whole = [&](int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); };
    for (int round = 0; round < 200; ++round) {
        TKxRealArray coefficients(static_cast<std::size_t>(whole(1, 8)));
        const int order = static_cast<int>(coefficients.Length()) - 1;
        for (int k = 0; k <= order; ++k)
            coefficients.Write()[k] = whole(-99, 99);
        std::vector<double> xs, ys, weights;
        const auto add = [&](double x, double y, double weight) {
            xs.push_back(x), ys.push_back(y), weights.push_back(weight);
        };
        const int count = order + 1 + whole(0, 60);
        for (int i = 0; i < count; ++i) {
            const double x = (whole(0, 1) + 2 * (i - count / 2)) / 4.;
            add(x, EvaluatePolynomial(coefficients, x, static_cast<std::int16_t>(order)), whole(3, 9) / 3.);
            const int fault = whole(0, 9);
            if (fault < 3)
                add(fault == 0 ? NAN : fault == 1 ? -1e4 : x, fault == 2 ? -Infinity : 1e9, 1);
        }
        const TResults unweighted = Fitted(order, xs, ys);
        add(0, 1e9, NAN);
        for (const TResults& results : {unweighted, Fitted(order, xs, ys, weights)}) {
            for (std::size_t k = 0; k < coefficients.Length(); ++k)
                ASSERT_NEAR(results.Coeffs[k], coefficients[k], 1e-13) << "order " << order << " power " << k;
            EXPECT_LT(results.ChiSquare, 1e-30);
        }
    }
}

void ExpectEqual(const TResults& a, const TResults& b, double tolerance)
{
    ASSERT_EQ(a.Coeffs.Length(), b.Coeffs.Length());
    for (std::size_t i = 0; i < a.Coeffs.Length(); ++i)
        EXPECT_NEAR(a.Coeffs[i], b.Coeffs[i], tolerance * std::abs(b.Coeffs[i])) << i;
    for (const auto member : {&TResults::AverageX, &TResults::AverageY, &TResults::VarianceX, &TResults::VarianceY,
                              &TResults::r2, &TResults::QRel, &TResults::ChiSquare})
        EXPECT_NEAR(a.*member, b.*member, tolerance * std::abs(b.*member));
}

TEST(KxPolyRegr, StatisticsOfAFewPoints)
{
    // 1, x - 2 and (x - 2)^2 - 2 are orthogonal on these abscissae.
    const double slope = 18. / 10, bend = 10. / 14;
    const double chi = 50.8 - 10 * slope * slope - 14 * bend * bend;
    const TResults expected{2,
                            {3.2 - 2 * slope + 2 * bend, slope - 4 * bend, bend},
                            2,
                            3.2,
                            2.5,
                            12.7,
                            1 - chi / 50.8,
                            std::sqrt(chi / 3),
                            chi,
                            {}};
    ExpectEqual(Fitted(2, {0, 1, 2, 3, 4}, {1, 0, 4, 2, 9}), expected, 1e-14);
}

TEST(KxPolyRegr, AWholeWeightIsSoManyPoints)
{
    std::vector<double> xs, ys, weights, manyXs, manyYs;
    for (int i = 0; i < 77; ++i) {
        xs.push_back(1e3 + std::sqrt(i));
        ys.push_back(1e5 + std::sin(i));
        weights.push_back(i % 4);
        manyXs.insert(manyXs.end(), static_cast<std::size_t>(i % 4), xs.back());
        manyYs.insert(manyYs.end(), static_cast<std::size_t>(i % 4), ys.back());
    }
    for (const int order : {1, 2, 4})
        ExpectEqual(Fitted(order, xs, ys, weights), Fitted(order, manyXs, manyYs), 1e-13);
    // A negative weight repels the line; statistics take it as positive.
    const TResults repelled = Fitted(1, {0, 1, 2, 3, 1}, {0, 1, 2, 3, 5}, {1, 1, 1, 1, -1});
    EXPECT_DOUBLE_EQ(repelled.Coeffs[0], -32. / 14);
    EXPECT_DOUBLE_EQ(repelled.Coeffs[1], 22. / 14);
    EXPECT_DOUBLE_EQ(repelled.AverageX, 7. / 5);
}

TEST(KxPolyRegr, PowersOfTwoScaleExactly)
{
    const TReference data("Norris");
    const TResults usual = Fitted(3, data.X, data.Y);
    for (const auto& [px, py] : {std::pair{300, 0}, {-300, 0}, {0, 990}, {0, -700}, {100, -100}, {-250, 60}}) {
        std::vector<double> scaledX, scaledY;
        for (std::size_t i = 0; i < data.X.size(); ++i) {
            scaledX.push_back(std::ldexp(data.X[i], px));
            scaledY.push_back(std::ldexp(data.Y[i], py));
        }
        const TResults results = Fitted(3, scaledX, scaledY);
        for (int k = 0; k <= 3; ++k)
            EXPECT_EQ(results.Coeffs[k], std::ldexp(usual.Coeffs[k], py - k * px)) << px << " " << py;
        EXPECT_EQ(results.r2, usual.r2);
        EXPECT_EQ(results.QRel, std::ldexp(usual.QRel, py));
        EXPECT_DOUBLE_EQ(RegressionValue(results, scaledX[20]), std::ldexp(RegressionValue(usual, data.X[20]), py));
    }
}

TEST(KxPolyRegr, RefusesWhatPointsDoNotDetermine)
{
    const auto message = [](int order, const std::vector<double>& x, const std::vector<double>& y,
                            const std::vector<double>& weights = {}) {
        return MessageOf<EMathError>([&] { Fitted(order, x, y, weights); });
    };
    const char* const tooFew = "Not enough data!";
    EXPECT_EQ(message(2, {1, 2}, {1, 4}), tooFew);
    EXPECT_EQ(message(2, {1, 2, -3000}, {1, 4, 9}), tooFew);
    EXPECT_EQ(message(2, {1, 2, 3}, {1, 4, NAN}), tooFew);
    EXPECT_EQ(message(std::numeric_limits<int>::max(), {1, 2, 3}, {1, 4, 9}), tooFew);
    EXPECT_EQ(message(2, {1, 2, 3}, {1, 4, 9}, {1, 1, 0.9}), tooFew);
    EXPECT_EQ(message(2, {1, 2, 3}, {1, 4, 9}, {5, 0, 5}), Singular);
    EXPECT_EQ(message(1, {1, 2, 3}, {1, 4, 9}, {-5, -5, -5}),
              "Cholesky Decomposition ([0,0]): Matrix is not positive definite!");
    for (const double x : {1., 0.1, 1e200 / 3, 1e-200 / 3}) {
        EXPECT_EQ(message(2, {x, x, x, x}, {1, 2, 3, 4}), Singular);
        EXPECT_EQ(message(2, {x, 2 * x, 2 * x, x}, {1, 2, 3, 4}), Singular);
    }
    EXPECT_EQ(message(2, {1e200, 2e200, 3e200, 4e200}, {1, 2, 3, 5}), Singular) << "x^2 has a factor below doubles";
    EXPECT_EQ(message(2, {1e-200, 2e-200, 3e-200, 4e-200}, {1, 2, 3, 5}), Singular) << "and here one beyond them";
    const TReference many("Norris");
    EXPECT_EQ(message(30, many.X, many.Y), Singular);
}

// Far from 0 powers of x nearly cancel: the curve is right, or there is none.
TEST(KxPolyRegr, FarFromZeroRightOrRefused)
{
    int refused = 0;
    for (int order = 1; order <= 12; ++order) {
        for (double offset = 1; offset < 1e15; offset *= 10) {
            std::vector<double> xs, ys;
            for (int i = -20; i <= 20; ++i) {
                xs.push_back(offset / 3 + i);
                ys.push_back(std::cos(order * std::acos((xs.back() - offset / 3) / 21)));
            }
            TResults results;
            const std::string told = MessageOf<EMathError>([&] { results = Fitted(order, xs, ys); });
            EXPECT_TRUE(told.empty() || told == Singular) << told;
            for (std::size_t i = 0; told.empty() && i < xs.size(); ++i)
                ASSERT_NEAR(RegressionValue(results, xs[i]), ys[i], 1e-5) << order << " " << offset;
            refused += told.empty() ? 0 : 1;
        }
    }
    EXPECT_LT(refused, 100) << "of 180";
}

TEST(KxPolyRegr, ProcessorsAgree)
{
    TPreciseLanes t;
    for (std::size_t i = 0; i < StripLength; ++i) {
        t.High[i] = std::sin(static_cast<double>(i) + 1);
        t.Low[i] = t.High[i] * 0x1p-54;
    }
    std::vector<TPreciseLanes> fused(7), plain(7);
    TPreciseLanes terms = t;
    AddPowers<TFused>(terms, t, fused.data(), fused.size());
    terms = t;
    AddPowers<TPlain>(terms, t, plain.data(), plain.size());
    for (std::size_t k = 0; k < fused.size(); ++k)
        for (std::size_t i = 0; i < StripLength; ++i) {
            EXPECT_EQ(fused[k].High[i], plain[k].High[i]);
            EXPECT_NEAR(fused[k].Low[i], plain[k].Low[i], 0x1p-100);
        }
}

}  // namespace
}  // namespace plotkit
