#include <gtest/gtest.h>

#include <chrono>
#include <cmath>

#include "data/KxVector.h"
#include "foundation/KxLargeIni.h"
#include "host/NumberFormat.h"

namespace plotkit {
namespace {

TEST(LargeIniVectors, ReadsListsAsTheyAreFound)
{
    const std::pair<const char*, const char*> cases[] = {
        {"1.5;2;0.25", "1.5 2 0.25 "}, {"", ""},        {"1;;3", "1 nan 3 "}, {"x 1 y 2", "1 2 "},
        {"1;abc;-2e3", "1 -2000 "},    {"1;-;3", "1 "}, {"7;", "7 nan "}};
    for (const auto& [list, elements] : cases) {
        TKxIniList ini;
        ini.WriteString("S", "V", list);
        TKxRealVector vector(nullptr);
        vector.Add(99);
        ini.ReadRealVector("S", "V", vector);
        std::string read;
        for (const double value : vector.Values())
            read += (std::isnan(value) ? "nan" : FormatExact(value)) + ' ';
        EXPECT_EQ(read, elements) << list;
    }
}

TEST(LargeIniVectors, LongVectorsComeBackFast)
{
    TKxRealVector vector(nullptr), back(nullptr);
    for (int i = 0; i < 100'000; ++i)
        vector.Add(i * 0.125);
    TKxIniList list;
    const auto start = std::chrono::steady_clock::now();
    list.WriteRealVector("S", "V", vector);
    list.ReadRealVector("S", "V", back);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
    EXPECT_EQ(back.GetStreamedValues(), vector.GetStreamedValues());
}

TEST(LargeIniVectors, ReadsPairsOfASection)
{
    TKxIniList list;
    list.SetText("[P]\n1 2\nx=3; y=4.5\n\nnothing\n6\n-7\t8\n[Q]\n9 10\n");
    TKxRealVector xs(nullptr), ys(nullptr);
    xs.Add(1);
    list.ReadXYVector("p", xs, ys);
    EXPECT_EQ(xs.GetStreamedValues(), (std::vector<double>{1, 3, -7}));
    EXPECT_EQ(ys.GetStreamedValues(), (std::vector<double>{2, 4.5, 8}));
}

}  // namespace
}  // namespace plotkit
