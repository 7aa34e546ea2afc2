// The job of KxVector is the components that hold the numbers a graph plots.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "data/KxChangedList.h"
#include "foundation/KxConsts.h"
#include "host/Component.h"

namespace plotkit {

/// A growable array of reals with a logical count. Any double is stored as it is, NaN and infinities too.
class TKxCustomRealVector : public TComponent
{
public:
    explicit TKxCustomRealVector(TComponent* owner);
    ~TKxCustomRealVector() override;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    int GetCount() const { return FCount; }
    /// The room the vector says it has; memory behind it grows geometrically and is taken when it is written.
    int GetCapacity() const { return FCapacity; }
    int GetIncrement() const { return FIncrement; }
    /// ERangeError "i=%d index out of range" at or past `Count` and below 0.
    double GetValue(int i) const
    {
        if (i < 0 || i >= FCount)
            RaiseOutOfRange(i);
        return FValues.Read()[i];
    }
    /// At or past `Count` the vector is extended to `i` + 1; what lies between keeps what the storage held: zeros, or
    /// values from before a `Clear`. ERangeError for negative indexes.
    virtual void SetValue(int i, double value);

    /// The valid elements; good until the next change.
    std::span<const double> Values() const { return FValues.Span().first(static_cast<std::size_t>(FCount)); }
    /// The storage, to be shared with other vectors; its first `Count` elements are the valid ones.
    const TKxRealArray& Array() const { return FValues; }

    TKxValueIChangedList& ChangedList() { return FChangedList; }
    /// Tells whether elements that were there have changed since: it grows with every change, by one for each
    /// `SetValue` and `Append`, so that those who count the notes see whether they heard of all.
    std::uint64_t Version() const { return FVersion; }

protected:
    /// Makes sure that `Count` is at least `n`; capacity grows to `n` + `Increment` when `n` reaches it.
    void CheckCount(int n)
    {
        if (n >= FCapacity || static_cast<std::size_t>(n) > FValues.Length())
            GrowFor(n);
        FCount = n > FCount ? n : FCount;
    }
    /// Lowers the count; storage is kept.
    void DropTo(int n);
    /// Replaces all elements; what lay behind them is zero afterwards. ERangeError beyond 2^31 - 2 elements.
    void Replace(TKxRealArray values);
    /// Count and storage as after setting the values one by one from a count of 0: elements behind them stay.
    void Refill(TKxRealArray values);
    double* Write()
    {
        ++FVersion;
        return FValues.Write();
    }

    void ResizeStorage(int capacity);
    void StoreIncrement(int increment) { FIncrement = increment; }

private:
    [[noreturn]] static void RaiseOutOfRange(int i);
    void ReserveFor(int n);
    void GrowFor(int n);

    TKxRealArray FValues;  ///< elements that were ever written; the rest of the capacity is zero
    TKxValueIChangedList FChangedList;
    std::uint64_t FVersion = 0;
    int FCount = 0;
    int FCapacity = 50;
    int FIncrement = 50;
};

/// A plain store: nobody hears of changes.
class TKxRealVector : public TKxCustomRealVector
{
public:
    using TKxCustomRealVector::TKxCustomRealVector;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    /// Appends; the new count.
    int Add(double value);
    /// Keeps storage and capacity.
    virtual void Clear();
    /// Nothing at or past `Count`.
    virtual void Delete(int i);
    /// Before element `i`; nothing at or past `Count`.
    virtual void Insert(int i, double value);

    using TComponent::Assign;
    /// Whole arrays with one note (-1, true) behind the change. Arrays are shared until one of the sharers is written.
    void Assign(std::span<const double> values);
    void Assign(const TKxRealArray& values);
    void Take(std::vector<double>&& values);
    void Take(TKxRealArray values);
    /// Appends all with one note (last index, false); nothing for no values.
    void Append(std::span<const double> values);

    /// Whether the values are stored with the form.
    bool GetPersistentValues() const { return FPersistentValues; }
    void SetPersistentValues(bool persistent) { FPersistentValues = persistent; }
    /// Ignored at or below `Count`.
    void SetCapacity(int capacity);
    /// Ignored at or below 50.
    void SetIncrement(int increment);

    /// As the form's text holds them: the valid elements. A vector that is read is filled one by one with `SetValue`.
    std::vector<double> GetStreamedValues() const;
    void SetStreamedValues(std::span<const double> values);

protected:
    /// Many elements changed at once.
    virtual void BulkChanged(int i, bool wasDeleted);

private:
    bool FPersistentValues = false;
};

/// The same store that tells every subscriber of each change.
class TKxLiveVector : public TKxRealVector
{
public:
    using TKxRealVector::TKxRealVector;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    void SetValue(int i, double value) override;
    /// Subscribers hear (-1, true) before the count drops.
    void Clear() override;
    /// Subscribers hear (i, true) before the count drops. Unlike the plain vector's, `i` = `Count` removes the last
    /// element.
    void Delete(int i) override;

protected:
    void BulkChanged(int i, bool wasDeleted) override { ChangedList().Call(i, wasDeleted); }
};

}  // namespace plotkit
