// The job of KxRowQueue is to hand rows of numbers over from the threads that measure them to the one that keeps them.
#pragma once

#include <array>
#include <atomic>
#include <concepts>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <thread>

namespace plotkit {

enum TKxWhenFull : std::uint8_t
{
    wfWait,       ///< who pushes waits until rows are taken
    wfDropOldest  ///< the oldest rows that wait are dropped and counted
};

/// How many rows may wait to be taken.
struct TKxRowBound
{
    std::size_t Capacity = 0;  ///< 0: as many as the memory holds
    TKxWhenFull WhenFull = wfWait;
};

/// Rows of one value per column; the values of a column stand side by side.
class TKxRows
{
public:
    explicit TKxRows(std::size_t columns) : FWidth(columns) {}

    std::size_t GetCount() const { return FEnd - FFirst; }
    std::span<const double> Column(std::size_t i) const { return {FValues.get() + i * FRoom + FFirst, GetCount()}; }

private:
    friend class TKxRowQueue;

    /// Rows on their way in: values row by row, or a span per column.
    struct TBlock
    {
        const double* Rows = nullptr;
        std::span<const std::span<const double>> Columns;
        std::size_t First = 0, Count = 0;
    };

    /// The first `count` rows of `block`; all of them or, when memory is out, none.
    void Append(const TBlock& block, std::size_t count);
    void Grow(std::size_t count);
    void MoveTo(double* values, std::size_t room);
    void DropFirst(std::size_t count);
    void Clear();

    std::unique_ptr<double[]> FValues;  ///< column behind column
    std::size_t FWidth;
    std::size_t FRoom = 0;  ///< of a column
    std::size_t FFirst = 0, FEnd = 0;
};

/// Any number of threads push, one takes: the one that made the queue. It is shared, so that it lives as long as
/// somebody pushes. Rows of one thread keep their order, a block stays together unless it waits for room in between. A
/// row that was pushed is taken, unless the bound's policy is to drop. The lock is held while values are copied in and
/// while two buffers are exchanged, never while anybody works with the rows; buffers are kept, so that pushing
/// allocates nothing once they are as large as the largest batch.
class TKxRowQueue
{
public:
    /// `onRows` is called when rows wait that nobody was told of: once, until `Take` finds nothing. It runs on the
    /// pushing thread, under the lock: it tells the taking thread and does nothing else. EComponentError without
    /// columns.
    explicit TKxRowQueue(std::size_t columns, TKxRowBound bound = {}, std::function<void()> onRows = {});

    std::size_t ColumnCount() const { return FWidth; }
    /// Rows that wait.
    std::size_t GetCount() const;
    /// Rows that were dropped since the queue was made.
    std::uint64_t GetDropped() const { return FDropped.load(std::memory_order_relaxed); }

    /// For every thread, without exceptions. False: not taken, since the queue is closed or for a `Trouble`. A full
    /// queue that waits lets the taking thread itself through, which would wait for ever. One row, a value per column.
    template <std::convertible_to<double>... TValues>
    bool Push(TValues... values) noexcept
    {
        return PushRows(std::array<double, sizeof...(values)>{static_cast<double>(values)...});
    }
    /// A block of rows, a span per column, all of one length.
    template <std::convertible_to<std::span<const double>>... TColumns>
    bool Push(const TColumns&... columns) noexcept
    {
        return PushColumns(std::array<std::span<const double>, sizeof...(columns)>{columns...});
    }
    bool PushColumns(std::span<const std::span<const double>> columns) noexcept;
    /// A block of rows, value by value as a device that scans its channels gives them.
    bool PushRows(std::span<const double> values) noexcept;

    /// For the taking thread: all rows that wait, good until the next call.
    const TKxRows& Take();
    /// What was wrong with rows that were not taken, the first one since the last call; empty for nothing.
    std::string TakeTrouble();
    /// Nothing can be pushed any more, nobody waits; `onRows` is not running and will not be called. What waits can
    /// still be taken.
    void Close();

private:
    bool Put(TKxRows::TBlock&& block) noexcept;
    std::size_t MakeWay(std::unique_lock<std::mutex>& lock, TKxRows::TBlock& block);
    bool Complain(const char* format, std::size_t given, std::size_t wanted) noexcept;
    void Wake() noexcept;

    const std::size_t FWidth;
    const TKxRowBound FBound;
    const std::thread::id FTaker = std::this_thread::get_id();
    mutable std::mutex FMutex;
    std::condition_variable FHasRoom;
    std::function<void()> FOnRows;
    TKxRows FWaiting, FTaken;
    std::atomic<std::uint64_t> FDropped = 0;
    std::array<char, 128> FTrouble{};  ///< a text that needs no memory
    bool FIsTold = false, FIsClosed = false;
};

}  // namespace plotkit
