// The job of KxPointVector is the plain growable arrays in which series keep pixel points and indexes.
#pragma once

#include <span>

#include "foundation/KxConsts.h"
#include "host/Types.h"

namespace plotkit {

/// `Increment` is the argument of the constructor, or 50 when that is below 1. Capacity grows by one increment, or to
/// the needed count plus one increment where that does not suffice; memory behind it grows geometrically.
template <class T>
class TKxPlainVector
{
public:
    explicit TKxPlainVector(int initialSize = 0);

    int GetCount() const { return FCount; }
    int GetCapacity() const { return FCapacity; }
    int GetIncrement() const { return FIncrement; }
    /// ERangeError "Error during floating point number extraction" at or past `Count` and below 0.
    const T& GetValue(int i) const;
    /// Extends the count to `i` + 1 when needed. ERangeError for negative indexes.
    void SetValue(int i, const T& value);
    /// Lowers and raises the count; values are kept, new ones are zero. Negative counts are taken as 0.
    void SetCount(int n);
    /// Appends; the new count.
    int Add(const T& value);
    void Clear() { FCount = 0; }

    std::span<const T> Values() const { return FValues.Span().first(static_cast<std::size_t>(FCount)); }
    /// The valid elements for writing; good until the next change of the count.
    std::span<T> Write() { return {FValues.Write(), static_cast<std::size_t>(FCount)}; }

protected:
    T* Storage() { return FValues.Write(); }

private:
    void GrowFor(int n);
    void CheckCount(int n);

    TArray<T> FValues;
    int FCount = 0;
    int FIncrement;
    int FCapacity;
};

extern template class TKxPlainVector<TPoint>;
extern template class TKxPlainVector<std::int32_t>;

class TKxPointVector : public TKxPlainVector<TPoint>
{
public:
    using TKxPlainVector::TKxPlainVector;

    /// Direct access to a valid element, good until the next change of the count; ERangeError as `GetValue`.
    TPoint* GetPointer(int i);
};

class TKxIntegerVector : public TKxPlainVector<std::int32_t>
{
public:
    using TKxPlainVector::TKxPlainVector;
};

}  // namespace plotkit
