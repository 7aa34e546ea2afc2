// The job of KxVector is the components that hold the numbers a graph plots.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "data/KxChangedList.h"
#include "data/KxRealStore.h"
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

    int GetCount() const { return FStore.Count(); }
    /// The room the vector says it has; memory behind it grows geometrically and is taken when it is written.
    int GetCapacity() const { return FStore.Capacity(); }
    int GetIncrement() const { return FStore.Increment(); }
    /// ERangeError "i=%d index out of range" at or past `Count` and below 0.
    double GetValue(int i) const
    {
        if (i < 0 || i >= GetCount())
            TKxRealStore::RaiseOutOfRange(i);
        return FStore.Read()[i];
    }
    /// At or past `Count` the vector is extended to `i` + 1; what lies between keeps what the storage held: zeros, or
    /// values from before a `Clear`. ERangeError for negative indexes.
    virtual void SetValue(int i, double value) { FStore.Set(i, value); }

    /// The valid elements; good until the next change.
    std::span<const double> Values() const { return FStore.Values(); }
    /// The storage, to be shared with other vectors; its first `Count` elements are the valid ones.
    TKxRealArray Array() const { return FStore.Array(); }

    TKxValueIChangedList& ChangedList() { return FChangedList; }
    /// Tells whether elements that were there have changed since: it grows with every change, by one for each
    /// `SetValue` and `Append`, so that those who count the notes see whether they heard of all.
    std::uint64_t Version() const { return FStore.Version(); }
    /// The version at which elements that were there changed last, but for those that went at the front. Those who
    /// know all of a version still know them when that is no later.
    std::uint64_t EditedAt() const { return FStore.EditedAt(); }
    /// How many values were pushed out at the front since the vector was made: of two vectors that get their values in
    /// step, the difference tells which of them belong together.
    std::uint64_t Dropped() const { return FStore.Dropped(); }
    /// The version at which all values were replaced or removed last.
    std::uint64_t FilledAt() const { return FStore.FilledAt(); }
    /// What `Dropped` was then.
    std::uint64_t DroppedAtFill() const { return FStore.DroppedAtFill(); }

protected:
    TKxRealStore& Store() { return FStore; }
    const TKxRealStore& Store() const { return FStore; }
    double* Write() { return FStore.Write(); }
    /// Tells everybody; of values that were dropped, too.
    void Tell(int i, bool wasDeleted) { FChangedList.Call(i, wasDeleted, FStore.TakeDrop()); }

private:
    TKxRealStore FStore;
    TKxValueIChangedList FChangedList;
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
    /// Of more than `Newest` values the oldest go, 0: none. The others move up: index 0 is the oldest one that is left,
    /// and the value that was set last stands at `Count` - 1. Gaps are zero in a ring. One note (-1, true) when values
    /// go with the setting; negative numbers are ignored.
    int GetNewest() const { return Store().Newest(); }
    void SetNewest(int newest);

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
    void BulkChanged(int i, bool wasDeleted) override { Tell(i, wasDeleted); }
};

}  // namespace plotkit
