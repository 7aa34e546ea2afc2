#include "data/KxRowQueue.h"

#include <algorithm>
#include <cstdio>

#include "host/Errors.h"

namespace plotkit {

namespace {

constexpr std::size_t SmallestRoom = 64;
/// Room beyond this that a batch leaves mostly empty was taken for an exception and is given back.
constexpr std::size_t KeptRoom = 65536;

}  // namespace

void TKxRows::MoveTo(double* values, std::size_t room)
{
    for (std::size_t i = 0; i < FWidth && FValues; ++i) {
        const auto column = Column(i);
        std::copy(column.begin(), column.end(), values + i * room);
    }
    FEnd -= FFirst;
    FFirst = 0;
}

void TKxRows::Grow(std::size_t count)
{
    const std::size_t room = std::max({FEnd + count, 2 * FRoom, SmallestRoom});
    auto values = std::make_unique_for_overwrite<double[]>(FWidth * room);
    MoveTo(values.get(), room);
    FValues = std::move(values);
    FRoom = room;
}

void TKxRows::Append(const TBlock& block, std::size_t count)
{
    if (FEnd + count > FRoom)
        Grow(count);
    double* column = FValues.get() + FEnd;
    for (std::size_t i = 0; i < FWidth; ++i, column += FRoom) {
        if (block.Rows) {
            const double* value = block.Rows + block.First * FWidth + i;
            for (std::size_t row = 0; row < count; ++row, value += FWidth)
                column[row] = *value;
        } else {
            std::copy_n(block.Columns[i].data() + block.First, count, column);
        }
    }
    FEnd += count;
}

void TKxRows::DropFirst(std::size_t count)
{
    FFirst += count;
    // Moved down when as many are gone as are left, so that a row moves once at most.
    if (FFirst >= GetCount())
        MoveTo(FValues.get(), FRoom);
}

void TKxRows::Clear()
{
    if (FRoom > KeptRoom && FEnd < FRoom / 8) {
        FValues.reset();
        FRoom = 0;
    }
    FFirst = FEnd = 0;
}

TKxRowQueue::TKxRowQueue(std::size_t columns, TKxRowBound bound, std::function<void()> onRows)
    : FWidth(columns), FBound(bound), FOnRows(std::move(onRows)), FWaiting(columns), FTaken(columns)
{
    if (columns == 0)
        throw EComponentError("Rows need at least one column");
}

std::size_t TKxRowQueue::GetCount() const
{
    const std::lock_guard lock(FMutex);
    return FWaiting.GetCount();
}

bool TKxRowQueue::PushRows(std::span<const double> values) noexcept
{
    if (values.size() % FWidth != 0)
        return Complain("%zu values are no rows of %zu columns", values.size(), FWidth);
    return Put({values.data(), {}, 0, values.size() / FWidth});
}

bool TKxRowQueue::PushColumns(std::span<const std::span<const double>> columns) noexcept
{
    if (columns.size() != FWidth)
        return Complain("Rows have %zu columns instead of %zu", columns.size(), FWidth);
    const std::size_t count = columns.front().size();
    for (const auto& column : columns)
        if (column.size() != count)
            return Complain("Columns of %zu and of %zu values are no rows", count, column.size());
    return Put({nullptr, columns, 0, count});
}

bool TKxRowQueue::Put(TKxRows::TBlock&& block) noexcept
{
    std::unique_lock lock(FMutex);
    while (block.Count > 0) {
        const std::size_t count = MakeWay(lock, block);
        if (FIsClosed)
            return false;
        try {
            FWaiting.Append(block, count);
        } catch (const std::exception&) {
            lock.unlock();
            return Complain("No memory for %zu more rows of %zu columns", block.Count, FWidth);
        }
        block.First += count;
        block.Count -= count;
        Wake();
    }
    return !FIsClosed;
}

/// How many rows of `block` may come now; the lock is given up while they have to wait.
std::size_t TKxRowQueue::MakeWay(std::unique_lock<std::mutex>& lock, TKxRows::TBlock& block)
{
    const std::size_t capacity = FBound.Capacity;
    if (capacity == 0 || FIsClosed)
        return block.Count;
    if (FBound.WhenFull == wfWait) {
        if (std::this_thread::get_id() == FTaker)
            return block.Count;
        FHasRoom.wait(lock, [&] { return FIsClosed || FWaiting.GetCount() < capacity; });
        return FIsClosed ? 0 : std::min(block.Count, capacity - FWaiting.GetCount());
    }
    const std::size_t skipped = block.Count - std::min(block.Count, capacity);
    block.First += skipped;
    block.Count -= skipped;
    const std::size_t waiting = FWaiting.GetCount();
    const std::size_t dropped = waiting - std::min(waiting, capacity - block.Count);
    FWaiting.DropFirst(dropped);
    FDropped.fetch_add(skipped + dropped, std::memory_order_relaxed);
    return block.Count;
}

bool TKxRowQueue::Complain(const char* format, std::size_t given, std::size_t wanted) noexcept
{
    const std::lock_guard lock(FMutex);
    if (FIsClosed || FTrouble.front() != '\0')
        return false;
    std::snprintf(FTrouble.data(), FTrouble.size(), format, given, wanted);
    Wake();
    return false;
}

void TKxRowQueue::Wake() noexcept
{
    if (FIsTold || !FOnRows)
        return;
    try {
        FOnRows();
        FIsTold = true;
    } catch (...) {
        // Without memory for the message, the next row tries again.
    }
}

const TKxRows& TKxRowQueue::Take()
{
    FTaken.Clear();
    {
        const std::lock_guard lock(FMutex);
        std::swap(FTaken, FWaiting);
        FIsTold = FTaken.GetCount() > 0;
    }
    FHasRoom.notify_all();
    return FTaken;
}

std::string TKxRowQueue::TakeTrouble()
{
    const std::lock_guard lock(FMutex);
    std::string trouble(FTrouble.data());
    FTrouble.front() = '\0';
    return trouble;
}

void TKxRowQueue::Close()
{
    {
        const std::lock_guard lock(FMutex);
        FIsClosed = true;
        FOnRows = nullptr;
    }
    FHasRoom.notify_all();
}

}  // namespace plotkit
