#include "series/KxPyramid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace plotkit {
namespace {

TEST(Pyramid, KnowsWhatAScanFinds)
{
    std::mt19937 random(1);
    const auto below = [&](std::size_t n) { return random() % n; };
    const auto value = [&](bool gappy) {
        return gappy && below(50) == 0 ? (below(2) ? NAN : -INFINITY) : static_cast<double>(below(1000)) - 500;
    };
    for (int seed = 0; seed < 30; ++seed) {
        std::vector<double> values;
        TKxPyramid pyramid;
        for (int step = 0; step < 60; ++step) {
            const std::size_t more = below(4) ? below(200) : below(9000);
            const bool gappy = below(3) == 0;
            for (std::size_t i = 0; i < more; ++i)
                values.push_back(gappy && more > 5000 ? NAN : value(gappy));
            pyramid.Extend(values);
            if (values.empty())
                continue;
            const std::size_t changed = below(values.size());
            values[changed] = value(true);
            pyramid.Renew(values, changed);
            const std::size_t first = below(values.size()), end = first + below(values.size() - first) + 1;
            const auto from = values.begin() + static_cast<std::ptrdiff_t>(first),
                       to = values.begin() + static_cast<std::ptrdiff_t>(end);
            const auto isMissing = [](double v) { return !std::isfinite(v); };
            const auto missing = std::find_if(from, to, isMissing);
            ASSERT_EQ(pyramid.FindMissing(values, first, end), static_cast<std::size_t>(missing - values.begin()));
            ASSERT_EQ(pyramid.FindPresent(values, first, end),
                      static_cast<std::size_t>(std::find_if_not(from, to, isMissing) - values.begin()));
            if (missing == from)
                continue;
            const TKxExtremes found =
                pyramid.Extremes(values, first, static_cast<std::size_t>(missing - values.begin()));
            ASSERT_EQ(found.Min, *std::min_element(from, missing)) << seed << " " << step;
            ASSERT_EQ(found.Max, *std::max_element(from, missing));
        }
    }
}

TEST(Extremes, AreTheFirstOfEqualOnesAndSkipWhatIsMissing)
{
    std::mt19937 random(2);
    for (const std::size_t count : {0U, 1U, 7U, 40U, 5000U, 20'000U})
        for (int seed = 0; seed < 20; ++seed) {
            std::vector<double> values(count);
            for (double& value : values)
                value =
                    random() % 9 == 0 ? (random() % 2 ? NAN : INFINITY) : static_cast<double>(random() % (seed + 1U));
            TKxPlacedExtremes expected;
            for (std::size_t i = 0; i < count; ++i) {
                if (!std::isfinite(values[i]))
                    continue;
                if (values[i] < expected.Min)
                    expected = {values[i], expected.Max, static_cast<int>(i), expected.MaxIndex};
                if (values[i] > expected.Max)
                    expected = {expected.Min, values[i], expected.MinIndex, static_cast<int>(i)};
            }
            const TKxPlacedExtremes found = PlacedExtremesOf(values);
            EXPECT_EQ(std::tuple(found.Min, found.Max, found.MinIndex, found.MaxIndex),
                      std::tuple(expected.Min, expected.Max, expected.MinIndex, expected.MaxIndex));
            std::sort(values.begin(), values.end(),
                      [](double a, double b) { return std::isnan(b) ? !std::isnan(a) : a < b; });
            while (!values.empty() && !std::isfinite(values.back()))
                values.pop_back();
            EXPECT_TRUE(Ascends(values));
            if (values.size() > 1 && values.front() < values.back()) {
                std::swap(values[values.size() / 2],
                          values.front() < values[values.size() / 2] ? values.front() : values.back());
                EXPECT_FALSE(Ascends(values));
            }
        }
}

}  // namespace
}  // namespace plotkit
