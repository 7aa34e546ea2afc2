#include "foundation/KxArithm.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <tuple>

#include "host/NumberFormat.h"

namespace plotkit {
namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

TEST(KxArithm, PowersOfTen)
{
    for (int n = -308; n <= 308; ++n)
        EXPECT_DOUBLE_EQ(IntExp10(n), *ParseReal("1e" + std::to_string(n)));
    EXPECT_EQ(IntExp10(-22), 1e-22);
    EXPECT_EQ(Exp10(400), 1.7e308);
    EXPECT_EQ(IntExp10(std::numeric_limits<int>::max()), 1.7e308);
    EXPECT_EQ(IntExp10(std::numeric_limits<int>::min()), 0);
}

TEST(KxArithm, Exponents)
{
    const std::tuple<double, int, int> cases[] = {{0, 0, 0},    {1e3 - 1e-13, 3, 1}, {NaN, 0, 0},      {0.05, -2, 1},
                                                  {-250, 2, 2}, {1.25, 0, 3},        {1.0 / 3, -1, 15}};
    for (const auto& [value, exponent, digits] : cases) {
        EXPECT_EQ(GetExponent(value), exponent) << value;
        EXPECT_EQ(LastSignificant(value), digits) << value;
    }
}

TEST(KxArithm, ExpMinusKeepsDecimalDigits)
{
    EXPECT_EQ(ExpMinus(1e300, -300), 1e300);
    EXPECT_EQ(ExpMinus(0.1 + 0.2, 1), 0.03) << "rounded to 15 digits";
    EXPECT_EQ(ExpMinus(5e-324, -324), 4.94065645841247);
    EXPECT_EQ(ExpMinus(2, std::numeric_limits<int>::min()), 2);
    EXPECT_EQ(ExpMinus(2, std::numeric_limits<int>::max()), 0);
    std::mt19937 random(3);
    for (int i = 0; i < 5000; ++i) {
        const double digits = static_cast<double>(random()) * (i % 2 ? 1 : -1);
        const int exponent = static_cast<int>(random() % 200) - 100;
        const double value = *ParseReal(FormatExact(digits) + "e" + std::to_string(exponent));
        EXPECT_EQ(ExpMinus(value, exponent), digits);
        EXPECT_EQ(ExpMinus(ExpMinus(value, exponent), -exponent), value);
    }
}

TEST(KxArithm, RoundsToSteps)
{
    // The tolerance of a value on the other side of zero is absolute, not a share of the step.
    const std::tuple<double, double, int, double, double> cases[] = {
        {10.0005, 1, 0, 10, 10},       {10.02, 1, 0, 11, 10},       {-2.5, 1, 0, -2, -3},
        {2.999999, 1, 0, 3, 2},        {0.37, 2, -1, 0.4, 0.2},     {12345, 5, 2, 12500, 12000},
        {-2.9999999995, 1, 0, -3, -3}, {-2.99999999, 1, 0, -2, -3}, {0, 1, 0, 0, 0}};
    for (const auto& [value, step, exponent, up, down] : cases) {
        EXPECT_EQ(RoundUp(value, step, exponent), up) << value;
        EXPECT_EQ(RoundDown(value, step, exponent), down) << value;
    }
    EXPECT_TRUE(std::isnan(RoundUp(1, 0, 0)));
}

TEST(KxArithm, RoundsOnALogarithmicScale)
{
    const std::tuple<double, double, double, double> cases[] = {
        {350, 1, 400, 300}, {1000, 1, 1000, 1000}, {0.035, 1, 0.04, 0.03}, {70, 2, 80, 60}, {950, 1, 1000, 900}};
    for (const auto& [value, step, up, down] : cases) {
        EXPECT_DOUBLE_EQ(RoundLogUp(value, step, 1), up);
        EXPECT_DOUBLE_EQ(RoundLogDown(value, step, 1), down);
    }
    for (const double value : {0.0, -1.0, NaN}) {
        EXPECT_THROW(RoundLogUp(value, 1, 1), EMathError);
        EXPECT_THROW(RoundLogDown(1, value, 1), EMathError);
    }
}

TEST(KxArithm, CopiesKeepTheRest)
{
    TKxRealArray dest{1, 2, 3};
    const TKxRealArray shared = dest;
    AssignRealArrays({7, 8}, dest);
    EXPECT_EQ(dest, (TKxRealArray{7, 8, 3}));
    EXPECT_EQ(shared, (TKxRealArray{1, 2, 3}));
    EXPECT_THROW(AssignRealArrays({1, 2, 3, 4}, dest), ERangeError);
}

}  // namespace
}  // namespace plotkit
