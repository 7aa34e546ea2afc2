#include "calculated/KxSort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <random>

#include "support/MessageOf.h"

namespace plotkit {
namespace {

using TReals = std::vector<double>;

/// The exchanges as they are defined, recursion and all.
void DefinedExchanges(int l, int r, TReals& x, TReals& y, TReals& w)
{
    const double pivot = x.at(static_cast<std::size_t>((l + r) / 2));
    const auto at = [](TReals& values, int k) -> double& { return values.at(static_cast<std::size_t>(k)); };
    int i = l, j = r;
    do {
        while (at(x, i) < pivot)
            ++i;
        while (pivot < at(x, j))
            --j;
        if (i <= j) {
            for (TReals* values : {&x, &y, &w})
                std::swap(at(*values, i), at(*values, j));
            ++i;
            --j;
        }
    } while (i <= j);
    if (l < j)
        DefinedExchanges(l, j, x, y, w);
    if (i < r)
        DefinedExchanges(i, r, x, y, w);
}

bool SameBits(const TReals& a, const TKxRealArray& b)
{
    return std::equal(a.begin(), a.end(), b.Read(), b.Read() + b.Length(),
                      [](double p, double q) { return p == q && std::signbit(p) == std::signbit(q); });
}

TEST(Sort, LeavesCarriedValuesWhereTheDefinedExchangesDo)
{
    std::mt19937 random(7);
    const auto real = [&] { return std::uniform_real_distribution<>(-1e3, 1e3)(random); };
    const auto whole = [&](int last) { return std::uniform_int_distribution<>(-last, last)(random); };
    const std::vector<std::function<double(int)>> kinds{
        [&](int) { return std::ldexp(real(), whole(900)); },
        [&](int) { return whole(40); },
        [&](int i) { return i % 500 == 3 ? 2.5 : real(); },
        [&](int i) { return i % 500 / 2 == 3 ? std::copysign(0.0, i % 2 - 0.5) : real(); },
        [&](int i) { return i / 2; },
        [&](int i) { return -i; },
        [](int) { return 4.0; },
    };
    for (std::size_t kind = 0; kind < kinds.size(); ++kind)
        for (const int n : {1, 2, 5, 100, 511, 512, 3000, 20000}) {
            TReals x, y(static_cast<std::size_t>(n));
            std::iota(y.begin(), y.end(), 0.0);
            std::transform(y.begin(), y.end(), std::back_inserter(x), kinds[kind]);
            TReals w(y.rbegin(), y.rend());
            const int l = n / 10, r = n - 1 - n / 20;
            TKxRealArray ax(x), ay(y), aw(w), bx(x), by(y);
            QuickSortYWtoX(l, r, ax, ay, aw);
            QuickSortYtoX(l, r, bx, by);
            DefinedExchanges(l, r, x, y, w);
            EXPECT_TRUE(SameBits(x, ax) && SameBits(y, ay) && SameBits(w, aw)) << "kind " << kind << ", n " << n;
            EXPECT_TRUE(ax == bx && ay == by) << "kind " << kind << ", n " << n;
        }
}

TEST(Sort, OnlyReadsWhatIsInOrderAndRefusesForeignElements)
{
    TKxRealArray x{1, 2, 3}, y{7, 8, 9};
    const TKxRealArray shared = x;
    QuickSortYtoX(0, 2, x, y);
    EXPECT_TRUE(x.IsSharedWith(shared));
    QuickSortYtoX(0, -1, x, y);
    EXPECT_EQ(MessageOf<ERangeError>([&] { QuickSortYtoX(0, 3, x, y); }),
              "QuickSort: elements 0 to 3 are not within an array of 3");
}

}  // namespace
}  // namespace plotkit
