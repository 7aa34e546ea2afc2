#include "data/KxRealStore.h"

#include <algorithm>
#include <string>

#include "host/Errors.h"

namespace plotkit {

namespace {

constexpr std::size_t MostAhead = 512;
constexpr std::size_t LeastSlack = 1024;

int SumOf(int a, int b)
{
    return static_cast<int>(std::min<std::int64_t>(std::int64_t{a} + b, std::numeric_limits<int>::max()));
}

/// What a ring moves through before it is moved back: half of its length more, so that a value is moved twice at most.
std::size_t RingLength(int limit)
{
    const auto length = static_cast<std::size_t>(limit);
    return length + std::max(length / 2, LeastSlack);
}

}  // namespace

void TKxRealStore::RaiseOutOfRange(int i)
{
    throw ERangeError("i=" + std::to_string(i) + " index out of range");
}

TKxRealArray TKxRealStore::Array() const
{
    return FStart == 0 ? FValues : TKxRealArray(std::vector(Values().begin(), Values().end()));
}

int TKxRealStore::Push(int i, double value)
{
    if (i < 0 || i >= MostCount)
        RaiseOutOfRange(i);
    const int end = std::min(i + 1, FLimit), before = FCount;
    const int gone = i + 1 - end, left = std::max(before - gone, 0);
    Drop(before - left);
    FDropped += static_cast<std::uint64_t>(gone - (before - left));  // of the gap in front of the value
    CheckCount(end);
    double* const values = WriteNew();
    std::fill(values + left, values + end - 1, 0);
    values[end - 1] = value;
    return end - 1;
}

void TKxRealStore::Drop(int count)
{
    FStart += static_cast<std::size_t>(count);
    FDropped += static_cast<std::uint64_t>(count);
    FCount -= count;
}

void TKxRealStore::Append(std::span<const double> values)
{
    const auto held = Values();
    const bool own = values.data() >= held.data() && values.data() < held.data() + held.size();
    const std::vector<double> kept(own ? values.begin() : values.end(), values.end());  // growing moves them
    if (own)
        values = kept;
    const auto limit = static_cast<std::size_t>(FLimit);
    const std::size_t skipped = values.size() > limit ? values.size() - limit : 0;
    const std::size_t added = values.size() - skipped, first = std::min(held.size(), limit - added);
    Drop(static_cast<int>(held.size() - first));
    FDropped += skipped;
    CheckCount(static_cast<int>(first + added));
    std::copy_n(values.data() + skipped, added, WriteNew() + first);
}

int TKxRealStore::Open(int i)
{
    if (FCount == FLimit) {
        if (i == 0)
            return -1;
        Drop(1);
        --i;
    }
    const int count = FCount;
    CheckCount(count + 1);
    double* const values = Write();
    std::copy_backward(values + i, values + count, values + count + 1);
    return i;
}

void TKxRealStore::Close(int i)
{
    double* const values = Write();
    std::copy(values + i + 1, values + FCount, values + i);
}

void TKxRealStore::SetCount(int n)
{
    FCount = std::max(n, 0);
    Edited();
    if (FCount == 0)
        Filled();
}

void TKxRealStore::Filled()
{
    FFilledAt = FVersion;
    FDroppedAtFill = FDropped;
}

void TKxRealStore::Replace(TKxRealArray values)
{
    if (values.Length() > static_cast<std::size_t>(MostCount))
        RaiseOutOfRange(MostCount);
    FValues = std::move(values);
    FStart = 0;
    FCount = static_cast<int>(FValues.Length());
    Edited();
    Filled();
    Drop(std::max(FCount - FLimit, 0));
    ReserveFor(FCount);
    if (IsRing() && FValues.Length() > 2 * RingLength(FLimit))
        MoveBack();
}

void TKxRealStore::Refill(TKxRealArray values)
{
    const std::size_t count = values.Length();
    if (count > static_cast<std::size_t>(MostCount))
        RaiseOutOfRange(MostCount);
    if (const std::size_t held = FValues.Length(); held > count) {
        values.Resize(held);
        std::copy(FValues.Read() + count, FValues.Read() + held, values.Write() + count);
    }
    FValues = std::move(values);
    FCount = static_cast<int>(count);
    Edited();
    Filled();
    while (FCapacity <= FCount)
        FCapacity = SumOf(FCapacity, FIncrement);
}

void TKxRealStore::SetCapacity(int capacity)
{
    FCapacity = capacity;
    if (FStart == 0 && FValues.Length() > static_cast<std::size_t>(capacity))
        FValues.Resize(static_cast<std::size_t>(capacity));
}

void TKxRealStore::SetNewest(int newest)
{
    FLimit = newest > 0 ? std::min(newest, MostCount) : MostCount;
    if (FCount > FLimit) {
        Drop(FCount - FLimit);
        Edited();
    }
    if (!IsRing() || FValues.Length() > 2 * RingLength(FLimit))
        MoveBack();
}

/// The valid elements alone, at the front of memory of their own.
void TKxRealStore::MoveBack()
{
    if (FStart == 0 && !IsRing())
        return;
    FValues = TKxRealArray(std::vector(Values().begin(), Values().end()));
    FStart = 0;
}

void TKxRealStore::ReserveFor(int n)
{
    if (n >= FCapacity)
        FCapacity = SumOf(n, FIncrement);
}

void TKxRealStore::GrowFor(int n)
{
    ReserveFor(n);
    const auto needed = static_cast<std::size_t>(n);
    if (FStart + needed <= FValues.Length())
        return;
    if (FStart > 0) {
        double* const values = FValues.Write();
        std::copy_n(values + FStart, FCount, values);
        FStart = 0;
    }
    if (IsRing() && n == FLimit)
        FValues.Resize(RingLength(FLimit));
    else if (FValues.Length() < needed)
        FValues.Resize(needed + std::min(needed / 8, MostAhead));
}

}  // namespace plotkit
