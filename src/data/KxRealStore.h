// The job of KxRealStore is the storage of a vector: values that come at the end and, where only the newest are kept,
// go at the front.
#pragma once

#include <cstdint>
#include <limits>
#include <span>

#include "foundation/KxConsts.h"

namespace plotkit {

/// The values stand side by side. Memory behind them grows geometrically; a ring moves through memory of a fixed length
/// and is moved back now and then, so that a value costs the same whatever the length.
class TKxRealStore
{
public:
    static constexpr int MostCount = std::numeric_limits<int>::max() - 1;

    int Count() const { return FCount; }
    int Capacity() const { return FCapacity; }
    int Increment() const { return FIncrement; }
    /// 0: all.
    int Newest() const { return FLimit == MostCount ? 0 : FLimit; }
    std::span<const double> Values() const { return {Read(), static_cast<std::size_t>(FCount)}; }
    const double* Read() const { return FValues.Read() + FStart; }
    /// Begins with the valid elements; shared where that is possible.
    TKxRealArray Array() const;

    std::uint64_t Version() const { return FVersion; }
    std::uint64_t EditedAt() const { return FEditedAt; }
    std::uint64_t Dropped() const { return FDropped; }
    std::uint64_t FilledAt() const { return FFilledAt; }
    std::uint64_t DroppedAtFill() const { return FDroppedAtFill; }
    /// Whether values were dropped since the last call.
    bool TakeDrop()
    {
        const bool hasDropped = FTakenDrop != FDropped;
        FTakenDrop = FDropped;
        return hasDropped;
    }

    double* Write()
    {
        Edited();
        return FValues.Write() + FStart;
    }
    /// The index at which the value stands, `i` but in a ring; ERangeError for indexes out of range.
    int Set(int i, double value)
    {
        if (i < 0 || i >= FLimit || (i > FCount && IsRing()))
            return Push(i, value);
        if (i < FCount)
            FEditedAt = FVersion + 1;
        CheckCount(i + 1);
        WriteNew()[i] = value;
        return i;
    }
    void Append(std::span<const double> values);
    /// Makes room before element `i`, which the count has; the index of the room, -1 where a value there would be
    /// dropped at once.
    int Open(int i);
    void Close(int i);
    void SetCount(int n);
    /// Replaces all elements; what lay behind them is zero afterwards.
    void Replace(TKxRealArray values);
    /// The same, but elements behind them stay.
    void Refill(TKxRealArray values);

    void SetCapacity(int capacity);
    void SetIncrement(int increment) { FIncrement = increment; }
    void SetNewest(int newest);

    [[noreturn]] static void RaiseOutOfRange(int i);

private:
    bool IsRing() const { return FLimit < MostCount; }
    /// Makes sure that `Count` is at least `n`; capacity grows to `n` + `Increment` when `n` reaches it.
    void CheckCount(int n)
    {
        if (n >= FCapacity || FStart + static_cast<std::size_t>(n) > FValues.Length())
            GrowFor(n);
        FCount = n > FCount ? n : FCount;
    }
    void Edited() { FEditedAt = ++FVersion; }
    /// For values behind those that are there.
    double* WriteNew()
    {
        ++FVersion;
        return FValues.Write() + FStart;
    }
    int Push(int i, double value);
    void Drop(int count);
    void Filled();
    void MoveBack();
    void ReserveFor(int n);
    void GrowFor(int n);

    TKxRealArray FValues;    ///< elements that were ever written; the rest of the capacity is zero
    std::size_t FStart = 0;  ///< of the valid elements; 0 but in a ring
    std::uint64_t FVersion = 0, FEditedAt = 0, FDropped = 0, FTakenDrop = 0, FFilledAt = 0, FDroppedAtFill = 0;
    int FCount = 0;
    int FCapacity = 50;
    int FIncrement = 50;
    int FLimit = MostCount;
};

}  // namespace plotkit
