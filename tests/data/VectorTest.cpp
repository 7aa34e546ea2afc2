#include "data/KxVector.h"

#include <gtest/gtest.h>

#include <functional>
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

TEST(RealVector, TellsValuesThatCameFromThoseThatChanged)
{
    TKxRealVector vector(nullptr);
    vector.SetNewest(5);
    for (const auto& change :
         std::vector<std::function<void()>>{[&] {
                                                vector.Append(TReals{1, 2, 3, 4});
                                            },
                                            [&] { vector.Add(5); }, [&] { vector.Add(6); },
                                            [&] { vector.SetValue(7, 1); }, [&] { vector.Append(TReals(9, 1)); }}) {
        const auto before = vector.Version();
        change();
        EXPECT_LE(vector.EditedAt(), before);
        EXPECT_GT(vector.Version(), before);
    }
    for (const auto& change :
         std::vector<std::function<void()>>{[&] { vector.SetValue(4, 1); }, [&] { vector.Insert(2, 1); },
                                            [&] { vector.Delete(1); }, [&] { vector.SetNewest(3); },
                                            [&] {
                                                vector.Assign(TReals{7, 8});
                                            },
                                            [&] { vector.Clear(); }}) {
        const auto before = vector.Version();
        change();
        EXPECT_GT(vector.EditedAt(), before);
    }
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

/// Says what it hears of a ring when it knows of drops, what anybody hears otherwise.
std::string NotesOf(bool seesDrops)
{
    TKxLiveVector ring(nullptr);
    std::string notes;
    const TKxValueIChangedEvent event([&](int i, bool wasDeleted) {
        notes += std::to_string(i) + (wasDeleted ? "d-" : "-") + std::to_string(ring.Dropped()) + ' ';
    });
    seesDrops ? ring.ChangedList().AddForDrops(event) : ring.ChangedList().Add(event);
    ring.SetNewest(3);
    ring.Append(TReals{1, 2});
    ring.Add(3);
    ring.Add(4);
    ring.SetValue(0, 2);
    ring.Append(TReals{1, 2, 3, 4, 5});
    ring.SetValue(9, 1);
    ring.SetNewest(2);
    EXPECT_EQ(Elements(ring), (TReals{0, 1}));
    return notes;
}

TEST(Ring, TellsOfWhatGoes)
{
    EXPECT_EQ(NotesOf(true), "1-0 2-0 2-1 0-1 2-6 2-13 -1d-14 ");
    EXPECT_EQ(NotesOf(false), "1-0 2-0 -1d-1 0-1 -1d-6 -1d-13 -1d-14 ");
}

TEST(Ring, HoldsTheLastOfAllValues)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        const auto below = [&](std::size_t n) { return static_cast<int>(random() % n); };
        TKxRealVector ring(nullptr);
        TReals all, more;
        for (int step = 0; step < 300; ++step) {
            const int kind = all.size() > 9000 ? 1 : below(16), at = all.empty() ? 0 : below(all.size()),
                      gap = below(below(9) ? 4 : 3000);
            more.assign(static_cast<std::size_t>(below(below(9) ? 30 : 4000)), step);
            if (kind == 0)
                ring.SetNewest(below(4) ? 1 + below(2000) : 0);
            else if (kind == 1)
                ring.Clear(), all.clear();
            else if (kind == 2)
                ring.Take(TReals(all = more));
            else if (kind == 3)
                ring.Append(ring.Values()), more = all, all.insert(all.end(), more.begin(), more.end());
            else if (kind == 4 && ring.GetNewest() > 0)
                ring.SetValue(ring.GetCount() + gap, 7), all.resize(all.size() + static_cast<std::size_t>(gap)),
                    all.push_back(7);
            else if (kind < 7 && !all.empty())
                kind == 5 ? (ring.Insert(at, -1), all.insert(all.begin() + at, -1))
                          : (ring.Delete(at), all.erase(all.begin() + at));
            else if (kind == 7 && !all.empty())
                ring.SetValue(at, -2), all[static_cast<std::size_t>(at)] = -2;
            else if (kind < 12)
                ring.Append(more), all.insert(all.end(), more.begin(), more.end());
            else
                all.push_back(step), ring.Add(step);
            if (const auto newest = static_cast<std::size_t>(ring.GetNewest()); newest > 0 && all.size() > newest)
                all.erase(all.begin(), all.end() - static_cast<std::ptrdiff_t>(newest));
            ASSERT_EQ(Elements(ring), all) << seed << ' ' << step;
        }
    }
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
