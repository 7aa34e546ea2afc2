#include "calculated/KxMatrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "support/MessageOf.h"

namespace plotkit {
namespace {

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

// U'U
TKxRealMatrix SquareOf(const TKxRealMatrix& u)
{
    const std::size_t n = u.Length();
    TKxRealMatrix a = MatrixOf(n, n);
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < n; ++j)
            for (std::size_t k = 0; k < n; ++k)
                At(a, i, j) += u[k][i] * u[k][j];
    return a;
}

TEST(DoubleDouble, HoldsTwiceTheDigits)
{
    EXPECT_LE(Abs(Sqrt(2) - TDoubleDouble(1.4142135623730951, -9.667293313452913e-17)).High, 0x1p-104);
    EXPECT_EQ(TwoProductSplit(0x1p53 - 1, 0x1p53 - 1), TDoubleDouble(0x1p106 - 0x1p54, 1));
    std::mt19937 random(5);
    std::uniform_real_distribution<double> uniform(1, 2);
    for (int round = 0; round < 1000; ++round) {
        const TDoubleDouble a(uniform(random), uniform(random) * 0x1p-55);
        const TDoubleDouble b(uniform(random), uniform(random) * 0x1p-55);
        EXPECT_LE(Abs(a / b * b - a).High, 0x1p-101);
        EXPECT_LE(Abs(Sqrt(a) * Sqrt(a) - a).High, 0x1p-102);
        EXPECT_LE(Abs(a + b - b - a).High, 0x1p-103);
    }
}

TEST(KxMatrix, CholeskySolvesOrReports)
{
    std::mt19937 random(2);
    std::normal_distribution<double> normal;
    for (int round = 0; round < 500; ++round) {
        const auto n = static_cast<std::size_t>(2 + round % 7);
        TKxRealMatrix u = MatrixOf(n, n);
        for (std::size_t i = 0; i < n; ++i)
            for (std::size_t j = i; j < n; ++j)
                At(u, i, j) = i == j ? 5 : std::round(normal(random));
        TKxRealMatrix a = SquareOf(u);
        TKxRealArray b(n);
        for (std::size_t i = 0; i < n; ++i)
            for (std::size_t j = 0; j < n; ++j)
                b.Write()[i] += a[i][j] * static_cast<double>(j);
        CholeskyDecomposition(a);
        CholeskySubstitution(a, b);
        for (std::size_t i = 0; i < n; ++i) {
            EXPECT_NEAR(b[i], static_cast<double>(i), 1e-14);
            for (std::size_t j = i; j < n; ++j)
                EXPECT_EQ(a[i][j], u[i][j]) << "whole numbers lose nothing";
        }

        const auto dependent = static_cast<std::size_t>(round) % n;
        for (std::size_t k = 0; k < n; ++k)
            At(u, k, dependent) = 0;
        for (std::size_t j = 0; j < n; ++j) {
            const double factor = normal(random);
            for (std::size_t k = 0; j != dependent && k < n; ++k) {
                At(u, k, j) = normal(random) * std::pow(10, 8 * normal(random));
                At(u, k, dependent) += factor * u[k][j];
            }
        }
        const TKxRealMatrix singular = SquareOf(u);
        a = singular;
        EXPECT_EQ(MessageOf<EMathError>([&] { CholeskyDecomposition(a); }),
                  "Cholesky Decomposition ([i,i]): Matrix is not positive definite!");
        EXPECT_EQ(a, singular);
    }
    TKxRealMatrix a = MatrixOf(2, 3);
    EXPECT_EQ(MessageOf<EMathError>([&] { CholeskyDecomposition(a); }),
              "Cholesky Decomposition: Matrix is not square!");
    a = {{-1, 0}, {0, 1}};
    EXPECT_EQ(MessageOf<EMathError>([&] { CholeskyDecomposition(a); }),
              "Cholesky Decomposition ([0,0]): Matrix is not positive definite!");
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
    EXPECT_EQ(message(4, 1, 1, 1), "Not enough data!") << "fewer rows than equations";
    EXPECT_EQ(message(3, 3, -1, 1), "Matrix: Diagonal-Dimensions must be positive!");
    EXPECT_EQ(message(3, 1, 1, 0), "Floating point division by zero");
    EXPECT_EQ(message(3, 1, 1, 1e-20), "") << "a pivot that is skipped is no error";
}

}  // namespace
}  // namespace plotkit
