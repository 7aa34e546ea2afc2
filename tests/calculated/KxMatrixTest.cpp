#include "calculated/KxMatrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "support/MessageOf.h"

namespace plotkit {
namespace {

constexpr const char* Singular = "Cholesky Decomposition ([i,i]): Matrix is not positive definite!";

TKxRealMatrix MatrixOf(std::size_t rows, std::size_t columns)
{
    TKxRealMatrix a(rows);
    for (std::size_t i = 0; i < rows; ++i)
        a.Write()[i] = TKxRealArray(columns);
    return a;
}

double& At(TKxRealMatrix& a, std::size_t i, std::size_t j)
{
    return a.Write()[i].Write()[j];
}

TEST(DoubleDouble, HoldsTwiceTheDigits)
{
    EXPECT_LE(Abs(Sqrt(2) - TDoubleDouble(1.4142135623730951, -9.667293313452913e-17)).High, 0x1p-104);
    EXPECT_EQ(TDoubleDouble(1) / 3, TDoubleDouble(0.3333333333333333, 1.850371707708594e-17));
    EXPECT_EQ(TwoProduct(0x1p53 - 1, 0x1p53 - 1), TDoubleDouble(0x1p106 - 0x1p54, 1));
    EXPECT_TRUE(std::isnan(Sqrt(-1).High));
    EXPECT_LT(TDoubleDouble(1), TDoubleDouble(1) + 0x1p-90);
    std::mt19937 random(5);
    std::uniform_real_distribution<double> uniform(1, 2);
    for (int round = 0; round < 1000; ++round) {
        const TDoubleDouble a(uniform(random), uniform(random) * 0x1p-55);
        const TDoubleDouble b(uniform(random), uniform(random) * 0x1p-55);
        EXPECT_LE(Abs(a / b * b - a).High, 0x1p-101);
        EXPECT_LE(Abs(Sqrt(a) * Sqrt(a) - a).High, 0x1p-102);
        EXPECT_LE(Abs(a + b - b - a).High, 0x1p-103);
        EXPECT_LE(Abs((a + b) * (a - b) - (a * a - b * b)).High, 0x1p-99);
    }
}

// A = L L' of whole numbers, so that the factor and the solution are known exactly.
TEST(KxMatrix, CholeskyFindsFactorAndSolution)
{
    std::mt19937 random(2);
    const auto whole = [&](int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); };
    for (std::size_t n = 1; n <= 9; ++n) {
        TKxRealMatrix u = MatrixOf(n, n);
        TKxRealMatrix a = MatrixOf(n, n);
        TKxRealArray b(n), x(n);
        for (std::size_t i = 0; i < n; ++i) {
            x.Write()[i] = whole(-9, 9);
            At(u, i, i) = whole(4, 9);
            for (std::size_t j = i + 1; j < n; ++j)
                At(u, i, j) = whole(-3, 3);
        }
        for (std::size_t i = 0; i < n; ++i)
            for (std::size_t j = 0; j < n; ++j) {
                for (std::size_t k = 0; k < n; ++k)
                    At(a, i, j) += u[k][i] * u[k][j];
                b.Write()[i] += a[i][j] * x[j];
            }
        CholeskyDecomposition(a);
        CholeskySubstitution(a, b);
        for (std::size_t i = 0; i < n; ++i) {
            EXPECT_DOUBLE_EQ(b[i], x[i]);
            for (std::size_t j = i; j < n; ++j)
                EXPECT_EQ(a[i][j], u[i][j]);
        }
    }
}

TEST(KxMatrix, CholeskyReportsDependentRows)
{
    std::mt19937 random(2);
    std::normal_distribution<double> normal;
    for (int round = 0; round < 500; ++round) {
        const auto n = static_cast<std::size_t>(2 + round % 7);
        std::vector<std::vector<double>> vectors(n, std::vector<double>(n));
        for (auto& vector : vectors)
            for (double& element : vector)
                element = normal(random) * std::pow(10, 8 * normal(random));
        const std::size_t dependent = static_cast<std::size_t>(round) % n;
        vectors[dependent].assign(n, 0);
        for (std::size_t i = 0; i < n; ++i) {
            const double factor = normal(random);
            for (std::size_t k = 0; i != dependent && k < n; ++k)
                vectors[dependent][k] += factor * vectors[i][k];
        }
        TKxRealMatrix a = MatrixOf(n, n);
        for (std::size_t i = 0; i < n; ++i)
            for (std::size_t j = 0; j < n; ++j)
                for (std::size_t k = 0; k < n; ++k)
                    At(a, i, j) += vectors[i][k] * vectors[j][k];
        const TKxRealMatrix before = a;
        EXPECT_EQ(MessageOf<EMathError>([&] { CholeskyDecomposition(a); }), Singular) << round;
        EXPECT_EQ(a, before);
    }
    TKxRealMatrix a = MatrixOf(2, 3);
    EXPECT_EQ(MessageOf<EMathError>([&] { CholeskyDecomposition(a); }),
              "Cholesky Decomposition: Matrix is not square!");
    for (const double first : {0., -1., std::nan("")}) {
        a = {{first, 0}, {0, 1}};
        EXPECT_EQ(MessageOf<EMathError>([&] { CholeskyDecomposition(a); }),
                  "Cholesky Decomposition ([0,0]): Matrix is not positive definite!");
    }
}

TEST(KxMatrix, BandsOfAnyWidth)
{
    std::mt19937 random(4);
    std::uniform_real_distribution<double> uniform(-1, 1);
    for (const auto& [n, lower, upper] :
         {std::tuple{3, 0, 0}, {3, 1, 2}, {4, 0, 3}, {5, 3, 0}, {40, 2, 2}, {9, 4, 1}}) {
        TKxRealMatrix a = MatrixOf(static_cast<std::size_t>(n), static_cast<std::size_t>(lower + 1 + upper));
        TKxRealArray b(static_cast<std::size_t>(n));
        std::vector<double> x(b.Length());
        for (double& value : x)
            value = uniform(random);
        for (int i = 0; i < n; ++i)
            for (int j = i - lower; j <= i + upper; ++j) {
                const auto row = static_cast<std::size_t>(i);
                double& entry = At(a, row, static_cast<std::size_t>(j - i + lower));
                entry = uniform(random) + (i == j ? 8 : 0);
                if (j >= 0 && j < n)
                    b.Write()[row] += entry * x[static_cast<std::size_t>(j)];
            }
        SolveBand(n, lower, upper, a, b);
        for (std::size_t i = 0; i < x.size(); ++i)
            EXPECT_NEAR(b[i], x[i], 1e-15) << n << " " << lower << " " << upper;
    }
}

TEST(KxMatrix, BandsThatCannotBeSolved)
{
    const auto message = [](int n, int lower, int upper, double pivot) {
        TKxRealMatrix a = MatrixOf(3, 3);
        for (std::size_t i = 0; i < 3; ++i)
            At(a, i, 1) = i == 1 ? pivot : 1;
        TKxRealArray b{1, 1, 1};
        return MessageOf<EMathError>([&] { SolveBand(n, lower, upper, a, b); });
    };
    EXPECT_EQ(message(2, 1, 1, 1), "Not enough data!");
    EXPECT_EQ(message(3, 2, 2, 1), "Not enough data!");
    EXPECT_EQ(message(4, 1, 1, 1), "Not enough data!") << "fewer rows than equations";
    EXPECT_EQ(message(3, 2, 1, 1), "Not enough data!") << "rows too short";
    EXPECT_EQ(message(3, 3, -1, 1), "Matrix: Diagonal-Dimensions must be positive!");
    EXPECT_EQ(message(3, 1, 1, 0), "Floating point division by zero");
    EXPECT_EQ(message(3, 1, 1, 1e-20), "") << "a pivot that is skipped is no error";
}

}  // namespace
}  // namespace plotkit
