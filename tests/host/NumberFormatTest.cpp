#include "host/NumberFormat.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <tuple>

#include "host/CheckedMath.h"
#include "host/Errors.h"

namespace plotkit {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

TEST(NumberFormat, General)
{
    const std::tuple<double, int, const char*> cases[] = {
        {-0.0, 14, "0"},          {0.1 + 0.2, 14, "0.3"},   {1e14 - 0.1, 14, "1E14"}, {1e-5, 14, "0.00001"},
        {99e-7, 14, "9.9E-6"},    {123, 2, "1.2E2"},        {-0.25, 1, "-0.3"},       {123, 0, "1E2"},
        {-1234.5, 14, "-1234.5"}, {5e-324, 3, "4.94E-324"}, {NaN, 14, "NAN"},         {-Infinity, 14, "-INF"}};
    for (const auto& [value, precision, text] : cases)
        EXPECT_EQ(FormatGeneral(value, precision), text);
    EXPECT_EQ(FormatGeneral(1e-5 - 1e-21, 14), "0.00001");
    EXPECT_EQ(FormatGeneral(1e14 - 1, 14), "99999999999999");
    EXPECT_EQ(FormatGeneral(1.5e-7, 8, 4), "1.5E-0007");
    EXPECT_EQ(FormatGeneral(-2.5e300, 8, 4, ','), "-2,5E0300");
}

TEST(NumberFormat, FixedAndScientificRoundDecimalDigitsAwayFromZero)
{
    const std::tuple<double, int, const char*> cases[] = {
        {0, 1, "0.0"},     {2.5, 0, "3"}, {0.145, 2, "0.15"},  {-0.04, 1, "0.0"},    {-0.05, 1, "-0.1"},
        {1e18, 0, "1E18"}, {0.4, 0, "0"}, {0.0004, 2, "0.00"}, {999.96, 1, "1000.0"}};
    for (const auto& [value, decimals, text] : cases)
        EXPECT_EQ(FormatFixed(value, 15, decimals), text);
    EXPECT_EQ(FormatFixed(1.0 / 3, 15, 18), "0.333333333333333000");
    EXPECT_EQ(FormatFixed(1e17, 15, 1), "100000000000000000.0");
    EXPECT_EQ(FormatFixed(2.5, 15, 2, ','), "2,50");
    EXPECT_EQ(FormatScientific(-0.05), "-5.00000000000000E-0002");
    EXPECT_EQ(FormatScientific(0), " 0.00000000000000E+0000");
    EXPECT_EQ(FormatScientific(std::nextafter(10.0, 0)), " 1.00000000000000E+0001");
}

TEST(NumberFormat, TextsReadBack)
{
    std::mt19937_64 random(7);
    for (int i = 0; i < 20000; ++i) {
        const auto value = std::bit_cast<double>(random());
        if (!std::isfinite(value))
            continue;
        EXPECT_EQ(ParseReal(FormatExact(value)), value);
        EXPECT_EQ(ParseReal(FormatGeneral(value, 17)), value);
        EXPECT_EQ(ParseReal(FormatGeneral(value, 17, 3, ','), ','), value);
        EXPECT_EQ(FormatScientific(value).size(), 23U);
    }
}

TEST(NumberFormat, Parses)
{
    const std::pair<const char*, double> cases[] = {{"  -2  ", -2.0},
                                                    {"+3", 3},
                                                    {"5.", 5},
                                                    {"-.5e1", -5},
                                                    {"1E+2", 100},
                                                    {"1e-999", 0},
                                                    {"-1e999", -Infinity},
                                                    {"0e99999999999", 0},
                                                    {"0.01e400", Infinity}};
    for (const auto& [text, value] : cases)
        EXPECT_EQ(ParseReal(text), value) << text;
    for (const char* text : {" ", ".", "-", "+-1", "1e", "1e+", "e5", "0x10", "nan", "inf", "1,5", "1 2", "1.2.3"})
        EXPECT_EQ(ParseReal(text), std::nullopt) << text;
    EXPECT_EQ(ParseReal("1.5", ','), 1.5);
    EXPECT_EQ(ParseReal("1,5.2", ','), std::nullopt);
    EXPECT_EQ(ParseInteger(" +12 "), 12);
    EXPECT_EQ(ParseInteger("-9223372036854775808"), std::numeric_limits<long long>::min());
    for (const char* text : {"", "-", "+-3", "9223372036854775808", "1.0", "1 2", "0x1"})
        EXPECT_EQ(ParseInteger(text), std::nullopt) << text;
}

TEST(NumberFormat, ScanStopsAtWhatDoesNotFit)
{
    const std::tuple<const char*, double, int> reals[] = {
        {"1.5;2", 1.5, 4}, {"1.5", 1.5, 0}, {"  2 ", 2, 4}, {"1.2.3", 1.2, 4}, {"-1e2x", -100, 5}, {"", 0, 1},
        {"-;", 0, 2},      {".", 0, 2},     {"1e", 0, 3},   {"1e;5", 0, 3},    {"1e+", 0, 4},      {"e5", 0, 1}};
    for (const auto& [text, value, position] : reals) {
        EXPECT_EQ(ScanReal(text).Value, value) << text;
        EXPECT_EQ(ScanReal(text).ErrorPosition, position) << text;
    }
    const std::tuple<const char*, int, int> integers[] = {
        {"12;7", 12, 3}, {"+7", 7, 0}, {"-7.5", -7, 3}, {" ", 0, 2}, {"-", 0, 2}, {"e", 0, 1}, {"2147483648;", 0, 11}};
    for (const auto& [text, value, position] : integers) {
        EXPECT_EQ(ScanInteger(text).Value, value) << text;
        EXPECT_EQ(ScanInteger(text).ErrorPosition, position) << text;
    }
}

TEST(CheckedMath, RaisesWithoutAResultAndSaturatesRounding)
{
    EXPECT_THROW(Divide(1, 0), EMathError);
    EXPECT_THROW(Divide(1e300, 1e-300), EMathError);
    EXPECT_THROW(Log10(NaN), EMathError);
    EXPECT_THROW(SquareRoot(-1), EMathError);
    EXPECT_THROW(Power(10, 400), EMathError);
    EXPECT_THROW(Power(-8, 0.5), EMathError);
    EXPECT_EQ(Power(-2, 3), -8);
    EXPECT_TRUE(std::isnan(Divide(NaN, 2)));
    const std::pair<double, int> cases[] = {
        {0.5, 0}, {1.5, 2}, {-2.5, -2}, {2.6, 3}, {NaN, 0}, {1e300, INT32_MAX}, {-Infinity, INT32_MIN}};
    for (const auto& [value, rounded] : cases)
        EXPECT_EQ(RoundToInt(value), rounded);
    EXPECT_EQ(RoundToInt(2147483647.4), INT32_MAX);
    EXPECT_EQ(RoundToInt(-2147483648.5), INT32_MIN);
    EXPECT_EQ(RoundToInt64(0x1p63), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(RoundToInt64(-0x1p63), std::numeric_limits<std::int64_t>::min());
}

}  // namespace
}  // namespace plotkit
