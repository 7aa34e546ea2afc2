#include "calculated/KxPolyRegr.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "calculated/PreciseLanes.h"
#include "support/MessageOf.h"

namespace plotkit {
namespace {

using TResults = TKxPolynomRegessionResults;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr const char* Singular = "Cholesky Decomposition ([i,i]): Matrix is not positive definite!";

TResults Fitted(int order, const std::vector<double>& x, const std::vector<double>& y)
{
    TResults results;
    results.Order = order;
    PolynomRegression(-Infinity, Infinity, x, y, results);
    return results;
}

TResults Fitted(int order, const std::vector<double>& x, const std::vector<double>& y, const std::vector<double>& w)
{
    TResults results;
    results.Order = order;
    PolynomRegressionWithWeight(-Infinity, Infinity, x, y, w, results);
    return results;
}

struct TReference
{
    std::vector<double> X, Y, Coefficients;
    double ResidualSum = 0;
};

TReference ReferenceOf(const std::string& name)
{
    std::ifstream file(std::string(PLOTKIT_SOURCE_DIR "/data/nist-strd/") + name + ".dat");
    TReference reference;
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        std::istringstream words(line);
        std::string word;
        double value = 0;
        double second = 0;
        if (number > 60 && words >> value >> second) {
            reference.Y.push_back(value);
            reference.X.push_back(second);
        } else if (number <= 60 && words >> word >> value) {
            if (word[0] == 'B')
                reference.Coefficients.push_back(value);
            else if (word == "Residual" && words >> reference.ResidualSum)
                continue;
        }
    }
    return reference;
}

// The number of leading digits that agree; 15 are certified.
double CommonDigits(double value, double certified)
{
    if (value == certified)
        return 15;
    return std::min(15.0, -std::log10(std::abs(value - certified) / (certified == 0 ? 1 : std::abs(certified))));
}

TEST(KxPolyRegr, AgreesWithCertifiedResults)
{
    struct TCase
    {
        const char* Name;
        int Order;
        double Digits;
        double ResidualDigits;
    };
    // The data are decimal: their rounding to doubles alone costs the last one or two digits.
    const TCase cases[] = {{"Norris", 1, 13.5, 13},   {"Pontius", 2, 13, 13},    {"Wampler1", 5, 15, 15},
                           {"Wampler2", 5, 13, 15},   {"Wampler3", 5, 14.5, 14}, {"Wampler4", 5, 14.5, 14},
                           {"Wampler5", 5, 14.5, 14}, {"Filip", 10, 13.5, 13.5}};
    for (const TCase& test : cases) {
        const TReference reference = ReferenceOf(test.Name);
        const TResults results = Fitted(test.Order, reference.X, reference.Y);
        ASSERT_EQ(reference.Coefficients.size(), results.Coeffs.Length()) << test.Name;
        double digits = 15;
        for (std::size_t k = 0; k < results.Coeffs.Length(); ++k)
            digits = std::min(digits, CommonDigits(results.Coeffs[k], reference.Coefficients[k]));
        EXPECT_GE(digits, test.Digits) << test.Name;
        EXPECT_GE(CommonDigits(results.ChiSquare, reference.ResidualSum), test.ResidualDigits) << test.Name;
    }
}

// Whole coefficients and abscissae in steps of 1/4, so that the ordinates are exact; points that must not count between
// them.
TEST(KxPolyRegr, RebuildsPolynomialsFromTheirValues)
{
    std::mt19937 random(7);
    const auto whole = [&](int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); };
    for (int round = 0; round < 200; ++round) {
        const int order = whole(0, 7);
        std::vector<double> coefficients;
        for (int k = 0; k <= order; ++k)
            coefficients.push_back(whole(-99, 99));
        std::vector<double> xs, ys, weights;
        const int count = order + 1 + whole(0, 100);
        for (int i = 0; i < count; ++i) {
            const double x = (whole(0, 1) + 2 * (i - count / 2)) / 4.;
            double y = 0;
            for (int k = order; k >= 0; --k)
                y = y * x + coefficients[static_cast<std::size_t>(k)];
            const bool isSpoiled = whole(0, 9) == 0;
            for (int copy = isSpoiled ? 0 : 1; copy < 2; ++copy) {
                const int fault = copy == 0 ? whole(0, 3) : 9;
                xs.push_back(fault == 0 ? NAN : fault == 1 ? 1e6 : x);
                ys.push_back(fault == 2 ? -Infinity : fault == 9 ? y : 1e9);
                weights.push_back(fault == 3 ? NAN : fault == 9 ? whole(1, 9) / 3. : 1);
            }
        }
        for (const bool isWeighted : {false, true}) {
            TResults results;
            results.Order = order;
            if (isWeighted)
                PolynomRegressionWithWeight(-1000, 1000, xs, ys, weights, results);
            else {
                for (std::size_t i = 0; i < xs.size(); ++i)
                    ys[i] = std::isnan(weights[i]) ? NAN : ys[i];
                PolynomRegression(-1000, 1000, xs, ys, results);
            }
            for (std::size_t k = 0; k < coefficients.size(); ++k)
                ASSERT_NEAR(results.Coeffs[k], coefficients[k], 1e-13) << "order " << order << " power " << k;
            EXPECT_LT(results.ChiSquare, 1e-30);
        }
    }
}

std::vector<double> NumbersOf(const TResults& results)
{
    std::vector<double> numbers(results.Coeffs.Read(), results.Coeffs.Read() + results.Coeffs.Length());
    for (const double number : {results.AverageX, results.AverageY, results.VarianceX, results.VarianceY, results.r2,
                                results.QRel, results.ChiSquare})
        numbers.push_back(number);
    return numbers;
}

void ExpectEqual(const TResults& a, const TResults& b, double tolerance)
{
    const std::vector<double> first = NumbersOf(a);
    const std::vector<double> second = NumbersOf(b);
    for (std::size_t i = 0; i < first.size(); ++i)
        EXPECT_NEAR(first[i], second[i], tolerance * std::abs(second[i])) << i;
}

TEST(KxPolyRegr, StatisticsOfAFewPoints)
{
    // 1, x - 2 and (x - 2)^2 - 2 are orthogonal on these abscissae.
    const TResults results = Fitted(2, {0, 1, 2, 3, 4}, {1, 0, 4, 2, 9});
    TResults expected;
    const double slope = 18. / 10;
    const double bend = 10. / 14;
    expected.Coeffs = {3.2 - 2 * slope + 2 * bend, slope - 4 * bend, bend};
    expected.AverageX = 2;
    expected.AverageY = 3.2;
    expected.VarianceX = 2.5;
    expected.VarianceY = 12.7;
    expected.ChiSquare = 50.8 - 10 * slope * slope - 14 * bend * bend;
    expected.r2 = 1 - expected.ChiSquare / 50.8;
    expected.QRel = std::sqrt(expected.ChiSquare / 3);
    ExpectEqual(results, expected, 1e-14);
}

TEST(KxPolyRegr, AWholeWeightIsSoManyPoints)
{
    std::mt19937 random(3);
    std::normal_distribution<double> noise;
    std::vector<double> xs, ys, weights, manyXs, manyYs;
    for (int i = 0; i < 77; ++i) {
        xs.push_back(1e3 + noise(random));
        ys.push_back(1e5 + noise(random));
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
    std::vector<double> xs, ys;
    for (int i = 0; i < 50; ++i) {
        xs.push_back(std::sqrt(i));
        ys.push_back(std::sin(i));
    }
    const TResults usual = Fitted(3, xs, ys);
    for (const auto& [px, py] : {std::pair{300, 0}, {-300, 0}, {0, 990}, {0, -700}, {100, -100}, {-250, 60}}) {
        std::vector<double> scaledX = xs, scaledY = ys;
        for (std::size_t i = 0; i < xs.size(); ++i) {
            scaledX[i] = std::ldexp(xs[i], px);
            scaledY[i] = std::ldexp(ys[i], py);
        }
        const TResults results = Fitted(3, scaledX, scaledY);
        for (int k = 0; k <= 3; ++k)
            EXPECT_EQ(results.Coeffs[k], std::ldexp(usual.Coeffs[k], py - k * px)) << px << " " << py;
        EXPECT_EQ(results.r2, usual.r2);
        EXPECT_EQ(results.AverageY, std::ldexp(usual.AverageY, py));
        EXPECT_EQ(results.QRel, std::ldexp(usual.QRel, py));
        EXPECT_DOUBLE_EQ(RegressionValue(results, scaledX[20]), std::ldexp(RegressionValue(usual, xs[20]), py));
    }
}

TEST(KxPolyRegr, RefusesWhatPointsDoNotDetermine)
{
    const auto message = [](int order, const std::vector<double>& x, const std::vector<double>& y,
                            std::vector<double> weights = {}) {
        TResults results;
        results.Order = order;
        const std::string told = MessageOf<EMathError>([&] {
            if (weights.empty())
                PolynomRegression(0, Infinity, x, y, results);
            else
                PolynomRegressionWithWeight(0, Infinity, x, y, weights, results);
        });
        EXPECT_EQ(results.AverageX, 0);
        EXPECT_EQ(std::count(results.Coeffs.Read(), results.Coeffs.Read() + results.Coeffs.Length(), 0.),
                  static_cast<std::ptrdiff_t>(results.Coeffs.Length()));
        return told;
    };
    const char* const tooFew = "Not enough data!";
    EXPECT_EQ(message(2, {1, 2}, {1, 4}), tooFew);
    EXPECT_EQ(message(2, {1, 2, -3}, {1, 4, 9}), tooFew);
    EXPECT_EQ(message(2, {1, 2, 3}, {1, 4, NAN}), tooFew);
    EXPECT_EQ(message(std::numeric_limits<int>::max(), {1, 2, 3}, {1, 4, 9}), tooFew);
    EXPECT_EQ(message(2, {1, 2, 3}, {1, 4, 9}, {0, 0, 0}), tooFew);
    EXPECT_EQ(message(2, {1, 2, 3}, {1, 4, 9}, {1, 1, 0.9}), tooFew);
    EXPECT_EQ(message(2, {1, 2, 3}, {1, 4, 9}, {5, 0, 5}), Singular);
    EXPECT_EQ(message(1, {1, 2, 3}, {1, 4, 9}, {-5, -5, -5}),
              "Cholesky Decomposition ([0,0]): Matrix is not positive definite!");
    for (const double scale : {1., 0.1, 1e200, 1e-200}) {
        const double x = scale / 3;
        EXPECT_EQ(message(2, {x, x, x, x}, {1, 2, 3, 4}), Singular);
        EXPECT_EQ(message(2, {x, 2 * x, 2 * x, x}, {1, 2, 3, 4}), Singular);
    }
    EXPECT_EQ(message(2, {1e200, 2e200, 3e200, 4e200}, {1, 2, 3, 5}), Singular) << "x^2 has a factor below doubles";
    EXPECT_EQ(message(2, {1e-200, 2e-200, 3e-200, 4e-200}, {1, 2, 3, 5}), Singular) << "and here one beyond them";
    std::vector<double> many(300);
    for (std::size_t i = 0; i < many.size(); ++i)
        many[i] = std::sin(static_cast<double>(i)) + 2;
    EXPECT_EQ(message(60, many, many), Singular);
    EXPECT_EQ(message(200, many, many), Singular);
}

// Far from 0 powers of x nearly cancel: the curve is right, or there is none.
TEST(KxPolyRegr, FarFromZeroRightOrRefused)
{
    int refused = 0;
    int right = 0;
    for (int order = 1; order <= 12; ++order) {
        for (double offset = 1; offset < 1e15; offset *= 10) {
            std::vector<double> xs, ys;
            for (int i = -20; i <= 20; ++i) {
                xs.push_back(offset / 3 + i);
                ys.push_back(std::cos(order * std::acos((xs.back() - offset / 3) / 21)));
            }
            try {
                const TResults results = Fitted(order, xs, ys);
                for (std::size_t i = 0; i < xs.size(); ++i)
                    ASSERT_NEAR(RegressionValue(results, xs[i]), ys[i], 1e-5) << order << " " << offset;
                ++right;
            } catch (const EMathError& error) {
                EXPECT_EQ(error.Message(), Singular);
                ++refused;
            }
        }
    }
    EXPECT_GT(right, 60);
    EXPECT_GT(refused, 20);
}

TEST(KxPolyRegr, ProcessorsAgree)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> uniform(-1, 1);
    TPreciseLanes t;
    for (std::size_t i = 0; i < StripLength; ++i) {
        t.High[i] = uniform(random);
        t.Low[i] = t.High[i] * 0x1p-54;
    }
    std::vector<TPreciseLanes> fused(7), plain(7);
    TPreciseLanes terms = t;
    AddPowers<TFused>(terms, t, fused.data(), fused.size());
    terms = t;
    AddPowers<TPlain>(terms, t, plain.data(), plain.size());
    for (std::size_t k = 0; k < fused.size(); ++k)
        for (std::size_t i = 0; i < StripLength; ++i) {
            const TDoubleDouble difference =
                TDoubleDouble(fused[k].High[i], fused[k].Low[i]) - TDoubleDouble(plain[k].High[i], plain[k].Low[i]);
            EXPECT_LE(std::abs(difference.High), 0x1p-100 * std::abs(fused[k].High[i]));
        }
}

}  // namespace
}  // namespace plotkit
