#include "data/KxRowQueue.h"

#include <gtest/gtest.h>

#include <set>

#include "host/Errors.h"

namespace plotkit {
namespace {

using TReals = std::vector<double>;

constexpr std::size_t Threads = 3;

/// The rows that were taken: the number of a thread and the count of its rows.
struct TTaken
{
    std::array<double, Threads> Last{};
    std::size_t Rows = 0;
    bool IsInOrder = true, HasGaps = false;

    std::size_t Add(const TKxRows& rows)
    {
        for (std::size_t i = 0; i < rows.GetCount(); ++i) {
            double& last = Last.at(static_cast<std::size_t>(rows.Column(0)[i]));
            const double count = rows.Column(1)[i];
            IsInOrder = IsInOrder && count > last;
            HasGaps = HasGaps || count != last + 1;
            last = count;
        }
        Rows += rows.GetCount();
        return rows.GetCount();
    }
};

/// A row, a block of columns and a block of rows in turn, until nothing is taken any more; how many rows were.
int PushAll(TKxRowQueue& queue, std::size_t thread)
{
    const auto t = static_cast<double>(thread);
    for (int n = 0;; n += 6) {
        if (!queue.Push(thread, n + 1))
            return n;
        if (!queue.Push(TReals{t, t, t}, TReals{n + 2., n + 3., n + 4.}))
            return n + 1;
        if (!queue.PushRows(TReals{t, n + 5., t, n + 6.}))
            return n + 4;
    }
}

TEST(RowQueue, ThreadsKeepTheirOrderAndLoseNothing)
{
    for (const TKxRowBound bound :
         {TKxRowBound{}, TKxRowBound{100, wfWait}, TKxRowBound{2, wfWait}, TKxRowBound{100, wfDropOldest}}) {
        std::atomic<int> wakes = 0, pushed = 0;
        TKxRowQueue queue(2, bound, [&] { ++wakes; });
        std::vector<std::jthread> threads;
        for (std::size_t i = 0; i < Threads; ++i)
            threads.emplace_back([&, i] { pushed += PushAll(queue, i); });
        TTaken taken;
        for (int heard = 0; taken.Rows < 50000;)
            if (wakes > heard) {
                ++heard;
                while (taken.Rows < 50000 && taken.Add(queue.Take()) > 0) {
                }
            }
        queue.Close();
        taken.Add(queue.Take());
        threads.clear();
        EXPECT_TRUE(taken.IsInOrder);
        EXPECT_EQ(taken.HasGaps, queue.GetDropped() > 0);
        EXPECT_TRUE(bound.WhenFull == wfDropOldest || queue.GetDropped() == 0);
        // A block that waits for room when the queue is closed is taken in part.
        const int more = static_cast<int>(taken.Rows + queue.GetDropped()) - pushed;
        EXPECT_GE(more, 0);
        EXPECT_LE(more, bound.Capacity > 0 && bound.WhenFull == wfWait ? static_cast<int>(2 * Threads) : 0);
    }
}

TEST(RowQueue, TellsOnceUntilNothingIsFoundAndRefusesWhatIsNoRow)
{
    EXPECT_THROW(TKxRowQueue(0), EComponentError);
    int told = 0;
    TKxRowQueue queue(2, {}, [&] { ++told; });
    EXPECT_TRUE(queue.Push(1, 2) && queue.Push(3, 4));
    EXPECT_EQ(queue.Take().GetCount(), 2u);
    EXPECT_TRUE(queue.Push(5, 6));
    EXPECT_EQ(told, 1);
    EXPECT_EQ(queue.Take().GetCount(), 1u);
    EXPECT_EQ(queue.Take().GetCount(), 0u);
    EXPECT_FALSE(queue.Push(1, 2, 3));
    EXPECT_EQ(told, 2);
    EXPECT_EQ(queue.TakeTrouble(), "3 values are no rows of 2 columns");
    EXPECT_FALSE(queue.Push(TReals{1}, TReals{1, 2}));
    EXPECT_FALSE(queue.Push(TReals{1}));
    EXPECT_EQ(queue.TakeTrouble(), "Columns of 1 and of 2 values are no rows");
    EXPECT_TRUE(queue.Push(TReals{}, TReals{}));
    EXPECT_EQ(queue.GetCount(), 0u);
}

TEST(RowQueue, DropsTheOldest)
{
    TKxRowQueue queue(1, {3, wfDropOldest});
    for (int i = 0; i < 1000; ++i)
        EXPECT_TRUE(queue.Push(i));
    const auto taken = [&] {
        const auto column = queue.Take().Column(0);
        return TReals(column.begin(), column.end());
    };
    EXPECT_EQ(taken(), (TReals{997, 998, 999}));
    EXPECT_TRUE(queue.Push(1) && queue.Push(TReals{2, 3, 4, 5, 6}) && queue.Push(7));
    EXPECT_EQ(taken(), (TReals{5, 6, 7}));
    EXPECT_EQ(queue.GetDropped(), 997u + 4u);
}

TEST(RowQueue, KeepsItsTwoBuffersAndGivesExceptionalOnesBack)
{
    TKxRowQueue queue(2, {10, wfWait});
    const auto push = [&](std::size_t count) {
        for (std::size_t i = 0; i < count; ++i)
            queue.Push(i, i);  // the taking thread does not wait
        return queue.Take().Column(1).data();
    };
    push(1000000);
    push(1000);
    push(1000);
    std::set<const double*> buffers;
    for (int i = 0; i < 50; ++i)
        buffers.insert(push(1000));
    EXPECT_EQ(buffers.size(), 2u);
}

}  // namespace
}  // namespace plotkit
