#include "data/KxVector.h"

#include <algorithm>
#include <limits>
#include <string>

#include "host/Errors.h"

namespace plotkit {

namespace {

constexpr int MaxCount = std::numeric_limits<int>::max() - 1;
constexpr int SmallestIncrement = 50;
constexpr std::size_t MostAhead = 512;

constexpr std::array RealVectorProperties{
    Property<&TKxRealVector::GetPersistentValues, &TKxRealVector::SetPersistentValues>("PersistentValues"),
    Property<&TKxRealVector::GetCapacity, &TKxRealVector::SetCapacity>("Capacity"),
    Property<&TKxRealVector::GetIncrement, &TKxRealVector::SetIncrement>("Increment"),
    Bulk<&TKxRealVector::GetStreamedValues, &TKxRealVector::SetStreamedValues, &TKxRealVector::GetPersistentValues>(
        "Values"),
};

int SumOf(int a, int b)
{
    return static_cast<int>(std::min<std::int64_t>(std::int64_t{a} + b, std::numeric_limits<int>::max()));
}

}  // namespace

constinit const TClassInfo TKxCustomRealVector::Class{"TKxCustomRealVector", &TComponent::Class};
constinit const TClassInfo TKxRealVector::Class{"TKxRealVector", &TKxCustomRealVector::Class, RealVectorProperties,
                                                &CreateComponent<TKxRealVector>};
constinit const TClassInfo TKxLiveVector::Class{
    "TKxLiveVector", &TKxRealVector::Class, {}, &CreateComponent<TKxLiveVector>};

TKxCustomRealVector::TKxCustomRealVector(TComponent* owner) : TComponent(owner) {}

TKxCustomRealVector::~TKxCustomRealVector()
{
    BeginDestroy();
}

void TKxCustomRealVector::RaiseOutOfRange(int i)
{
    throw ERangeError("i=" + std::to_string(i) + " index out of range");
}

void TKxCustomRealVector::SetValue(int i, double value)
{
    if (i < 0 || i >= MaxCount)
        RaiseOutOfRange(i);
    CheckCount(i + 1);
    Write()[i] = value;
}

void TKxCustomRealVector::ReserveFor(int n)
{
    if (n >= FCapacity)
        FCapacity = SumOf(n, FIncrement);
}

void TKxCustomRealVector::GrowFor(int n)
{
    ReserveFor(n);
    const auto needed = static_cast<std::size_t>(n);
    if (FValues.Length() < needed)
        FValues.Resize(needed + std::min(needed / 8, MostAhead));
}

void TKxCustomRealVector::DropTo(int n)
{
    FCount = std::max(n, 0);
    ++FVersion;
}

void TKxCustomRealVector::Replace(TKxRealArray values)
{
    if (values.Length() > MaxCount)
        RaiseOutOfRange(MaxCount);
    FValues = std::move(values);
    ++FVersion;
    FCount = static_cast<int>(FValues.Length());
    ReserveFor(FCount);
}

void TKxCustomRealVector::Refill(TKxRealArray values)
{
    const std::size_t count = values.Length();
    if (count > static_cast<std::size_t>(MaxCount))
        RaiseOutOfRange(MaxCount);
    if (const std::size_t held = FValues.Length(); held > count) {
        values.Resize(held);
        std::copy(FValues.Read() + count, FValues.Read() + held, values.Write() + count);
    }
    FValues = std::move(values);
    ++FVersion;
    FCount = static_cast<int>(count);
    while (FCapacity <= FCount)
        FCapacity = SumOf(FCapacity, FIncrement);
}

void TKxCustomRealVector::ResizeStorage(int capacity)
{
    FCapacity = capacity;
    if (FValues.Length() > static_cast<std::size_t>(capacity))
        FValues.Resize(static_cast<std::size_t>(capacity));
}

int TKxRealVector::Add(double value)
{
    SetValue(GetCount(), value);
    return GetCount();
}

void TKxRealVector::Clear()
{
    DropTo(0);
}

void TKxRealVector::Delete(int i)
{
    const int count = GetCount();
    if (i < 0 || i >= count)
        return;
    double* const values = Write();
    std::copy(values + i + 1, values + count, values + i);
    DropTo(count - 1);
}

void TKxRealVector::Insert(int i, double value)
{
    const int count = GetCount();
    if (i < 0 || i >= count)
        return;
    CheckCount(count + 1);
    double* const values = Write();
    std::copy_backward(values + i, values + count, values + count + 1);
    SetValue(i, value);
}

void TKxRealVector::Assign(std::span<const double> values)
{
    Take(std::vector<double>(values.begin(), values.end()));
}

void TKxRealVector::Assign(const TKxRealArray& values)
{
    Take(values);
}

void TKxRealVector::Take(std::vector<double>&& values)
{
    Take(TKxRealArray(std::move(values)));
}

void TKxRealVector::Take(TKxRealArray values)
{
    Replace(std::move(values));
    BulkChanged(-1, true);
}

void TKxRealVector::Append(std::span<const double> values)
{
    if (values.empty())
        return;
    if (values.size() > static_cast<std::size_t>(MaxCount - GetCount()))
        throw ERangeError("Too many values for a vector");
    const auto held = Values();
    const auto first = static_cast<std::size_t>(GetCount());
    // The values may be this vector's own: growing moves them.
    const bool own = values.data() >= held.data() && values.data() < held.data() + held.size();
    const auto offset = own ? values.data() - held.data() : 0;
    CheckCount(static_cast<int>(first + values.size()));
    double* const all = Write();
    std::copy_n(own ? all + offset : values.data(), values.size(), all + first);
    BulkChanged(GetCount() - 1, false);
}

void TKxRealVector::SetCapacity(int capacity)
{
    if (capacity > GetCount())
        ResizeStorage(capacity);
}

void TKxRealVector::SetIncrement(int increment)
{
    if (increment > SmallestIncrement)
        StoreIncrement(increment);
}

std::vector<double> TKxRealVector::GetStreamedValues() const
{
    const auto values = Values();
    return {values.begin(), values.end()};
}

void TKxRealVector::SetStreamedValues(std::span<const double> values)
{
    const std::vector<double> taken(values.begin(), values.end());  // may be this vector's own
    if (GetCount() > 0)
        Clear();
    for (const double value : taken)
        SetValue(GetCount(), value);
}

void TKxRealVector::BulkChanged(int, bool) {}

void TKxLiveVector::SetValue(int i, double value)
{
    TKxRealVector::SetValue(i, value);
    ChangedList().Call(i, false);
}

void TKxLiveVector::Clear()
{
    ChangedList().Call(-1, true);
    TKxRealVector::Clear();
}

void TKxLiveVector::Delete(int i)
{
    const int count = GetCount();
    if (i < 0 || i > count)
        return;
    if (i + 1 < count) {
        double* const values = Write();
        std::copy(values + i + 1, values + count, values + i);
    }
    ChangedList().Call(i, true);
    DropTo(GetCount() - 1);
}

}  // namespace plotkit
