#include "foundation/KxRange.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

#include "host/Errors.h"
#include "support/MessageOf.h"

namespace plotkit {
namespace {

TEST(KxRange, NotifiesOncePerChange)
{
    TRange range, copy;
    int calls = 0;
    range.OnChanged = [&](TRange& changed) { calls += &changed == &range; };
    const std::tuple<double, TRangeChangedResult, double, double, int> cases[] = {
        {5, rgBothChanged, 5, 5, 1}, {5, rgNotChanged, 5, 5, 1},
        {7, rgMaxChanged, 5, 7, 2},  {2, rgMinChanged, 2, 7, 3},
        {7, rgNotChanged, 2, 7, 3},  {std::numeric_limits<double>::quiet_NaN(), rgNotChanged, 2, 7, 3}};
    for (const auto& [value, result, start, stop, callsBy] : cases) {
        EXPECT_EQ(range.IfRangeChanged(value), result);
        EXPECT_EQ(std::tuple(range.GetStart(), range.GetStop(), calls), std::tuple(start, stop, callsBy));
    }
    range.SetStart(2);
    range.SetStop(7);
    EXPECT_EQ(calls, 5);
    copy.Assign(range);
    EXPECT_EQ(copy.GetStart() + copy.GetStop(), 9);
    EXPECT_EQ(calls, 5);
    EXPECT_EQ(MessageOf<EConvertError>([&] { range.Assign(TPersistent()); }), "Cannot be assigned to TRange");
    range.Assign(copy);
    EXPECT_EQ(calls, 6);
    range.Reset();
    EXPECT_EQ(std::tuple(range.GetStart(), range.GetStop(), calls), std::tuple(1.7e308, -1.7e308, 6));
}

TEST(KxRange, ListHoldsEachRangeOnce)
{
    TRange a, b, c;
    TRangeList list;
    for (TRange* range : {&a, &b, &a})
        list.Add(range);
    EXPECT_EQ(list.Items(), (std::vector<TRange*>{&b, &a}));
    EXPECT_TRUE(list.Remove(&b));
    EXPECT_FALSE(list.Remove(&c));
    EXPECT_EQ(list.Items(), (std::vector<TRange*>{&a}));
}

}  // namespace
}  // namespace plotkit
