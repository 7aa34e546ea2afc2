#include "data/KxVector.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

#include "data/KxPointVector.h"
#include "host/Errors.h"
#include "host/Streaming.h"
#include "support/MessageOf.h"

namespace plotkit {
namespace {

using TReals = std::vector<double>;

TReals Elements(const TKxCustomRealVector& vector)
{
    return {vector.Values().begin(), vector.Values().end()};
}

/// Follows a vector and writes down the notes and the count at each.
struct TFollower
{
    explicit TFollower(TKxLiveVector& followed) : Vector(followed)
    {
        Vector.ChangedList().Add(TKxValueIChangedEvent::Bind<&TFollower::Changed>(this));
    }
    void Changed(int i, bool wasDeleted)
    {
        Notes += std::to_string(i) + (wasDeleted ? "d" : "") + '/' + std::to_string(Vector.GetCount()) + ' ';
    }

    TKxLiveVector& Vector;
    std::string Notes;
};

TEST(RealVector, GrowsByItsRuleAndKeepsStorage)
{
    TKxRealVector vector(nullptr);
    for (int i = 1; i <= 50; ++i) {
        EXPECT_EQ(vector.GetCapacity(), 50);
        EXPECT_EQ(vector.Add(i), i);
    }
    EXPECT_EQ(vector.GetCapacity(), 100);
    vector.SetIncrement(51);
    vector.SetIncrement(10);
    vector.SetValue(199, 7);
    vector.SetCapacity(200);
    EXPECT_EQ(vector.GetCapacity(), 251);
    EXPECT_EQ(vector.GetValue(120), 0);
    vector.Clear();
    vector.SetCapacity(3);
    EXPECT_EQ(vector.GetCapacity(), 3);
    vector.SetValue(4, 9);
    EXPECT_EQ(Elements(vector), (TReals{1, 2, 3, 0, 9}));
}

TEST(RealVector, RefusesIndexesOutOfRangeAndStoresWhenAsked)
{
    TKxRealVector vector(nullptr);
    TKxIntegerVector numbers(0);
    TKxPointVector points(10);
    vector.Add(1);
    points.SetCount(1);
    for (const int i : {1, 60, -1}) {
        EXPECT_EQ(MessageOf<ERangeError>([&] { vector.GetValue(i); }),
                  "i=" + std::to_string(i) + " index out of range");
        EXPECT_EQ(MessageOf<ERangeError>([&] { numbers.GetValue(i); }),
                  "Error during floating point number extraction");
        EXPECT_THROW(points.GetPointer(i), ERangeError);
    }
    EXPECT_EQ(WriteComponentTree(vector), "object TKxRealVector\nend\n");
    EXPECT_THROW(vector.SetValue(-1, 0), ERangeError);
    EXPECT_THROW(vector.SetValue(std::numeric_limits<int>::max(), 0), ERangeError);
}

TEST(RealVector, SharesArraysUntilOneIsWritten)
{
    const TKxRealArray common{1, 2, 3};
    TKxRealVector a(nullptr), b(nullptr);
    a.Assign(common);
    b.Take(common);
    EXPECT_TRUE(a.Array().IsSharedWith(b.Array()));
    b.SetValue(1, 9);
    EXPECT_EQ(Elements(a), (TReals{1, 2, 3}));
    b.Append(b.Values());
    EXPECT_EQ(Elements(b), (TReals{1, 9, 3, 1, 9, 3}));
    TReals values(1000, 4.0);
    const double* const place = values.data();
    a.Take(std::move(values));
    EXPECT_EQ(a.Values().data(), place);
    EXPECT_EQ(a.GetCapacity(), 1050);
}

TEST(LiveVector, TellsOfEachChange)
{
    TKxLiveVector vector(nullptr);
    TFollower follower(vector);
    vector.Add(1);
    vector.Assign({1, 2, 3});
    vector.Insert(0, 5);
    vector.Insert(4, 5);
    vector.Delete(1);
    vector.Delete(3);  // behind the last element, which goes
    vector.Delete(9);
    vector.Append(TReals{7, 8});
    vector.Append({});
    EXPECT_EQ(Elements(vector), (TReals{5, 2, 7, 8}));
    vector.Clear();
    EXPECT_EQ(follower.Notes, "0/1 -1d/3 0/4 1d/4 3d/3 3/4 -1d/4 ");
}

TEST(ChangedList, TakesTheSameHandlerForTheSameSubscriber)
{
    TKxLiveVector vector(nullptr);
    TFollower first(vector), second(vector);
    vector.Add(1);
    EXPECT_EQ(first.Notes + '|' + second.Notes, "|0/1 ");
    vector.ChangedList().Remove(TKxValueIChangedEvent::Bind<&TFollower::Changed>(&first));
    EXPECT_EQ(vector.ChangedList().GetCount(), 0);
}

TEST(ChangedList, LivesThroughChangesDuringACall)
{
    TKxValueIChangedList list;
    std::string calls;
    const auto noting = [&](char name) { return TKxValueIChangedEvent([&calls, name](int, bool) { calls += name; }); };
    const TKxValueIChangedEvent late = noting('l'), last = noting('z'), gone = noting('g');
    TKxValueIChangedEvent busy;
    busy = TKxValueIChangedEvent([&](int, bool) {
        calls += 'b';
        list.Remove(gone);
        list.Add(busy);
        list.Add(late);
    });
    for (const TKxValueIChangedEvent& event : {busy, gone, last})
        list.Add(event);
    list.Call(0, false);
    list.Add([&](int, bool) { list.Clear(); });
    list.Add(noting('!'));
    list.Call(0, false);
    EXPECT_EQ(calls, "bzzbl");
    auto mortal = std::make_unique<TKxValueIChangedList>();
    mortal->Add([&](int, bool) { mortal.reset(); });
    mortal->Add(noting('?'));
    mortal->Call(0, false);
    EXPECT_EQ(calls, "bzzbl");
}

/// A random course of edits against the rules written down plainly.
TEST(LiveVector, BehavesLikeAPlainList)
{
    std::mt19937 random(7);
    TKxLiveVector vector(nullptr);
    TReals list;
    for (int step = 0; step < 3000; ++step) {
        const int at = static_cast<int>(random() % 60), size = static_cast<int>(list.size());
        const auto act = random() % 4;
        if (act == 0) {
            vector.Add(step);
            list.push_back(step);
        } else if (act == 1) {
            vector.Insert(at, step);
            if (at < size)
                list.insert(list.begin() + at, step);
        } else if (act == 2) {
            vector.Delete(at);
            if (at <= size && size > 0)
                list.erase(list.begin() + std::min(at, size - 1));
        } else if (at < size) {
            vector.SetValue(at, step);
            list[static_cast<std::size_t>(at)] = step;
        }
        ASSERT_EQ(Elements(vector), list);
        ASSERT_GT(vector.GetCapacity(), vector.GetCount());
    }
}

TEST(PlainVectors, GrowByTheirIncrement)
{
    TKxIntegerVector numbers(0);
    EXPECT_EQ(numbers.GetCapacity(), 50);
    numbers.Add(3);
    EXPECT_EQ(numbers.Add(4), 2);
    TKxPointVector points(10);
    for (const auto& [count, capacity] : {std::pair{9, 10}, {10, 20}, {1000, 1010}}) {
        points.SetCount(count);
        EXPECT_EQ(points.GetCapacity(), capacity);
    }
    points.SetValue(999, {1, 2});
    EXPECT_EQ(*points.GetPointer(999), (TPoint{1, 2}));
}

}  // namespace
}  // namespace plotkit
