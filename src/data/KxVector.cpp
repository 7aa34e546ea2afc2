#include "data/KxVector.h"

#include "host/Errors.h"

namespace plotkit {

namespace {

constexpr int SmallestIncrement = 50;

constexpr std::array RealVectorProperties{
    Property<&TKxRealVector::GetPersistentValues, &TKxRealVector::SetPersistentValues>("PersistentValues"),
    Property<&TKxRealVector::GetCapacity, &TKxRealVector::SetCapacity>("Capacity"),
    Property<&TKxRealVector::GetIncrement, &TKxRealVector::SetIncrement>("Increment"),
    Property<&TKxRealVector::GetNewest, &TKxRealVector::SetNewest>("Newest"),
    Bulk<&TKxRealVector::GetStreamedValues, &TKxRealVector::SetStreamedValues, &TKxRealVector::GetPersistentValues>(
        "Values"),
};

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

int TKxRealVector::Add(double value)
{
    SetValue(GetCount(), value);
    return GetCount();
}

void TKxRealVector::Clear()
{
    Store().SetCount(0);
}

void TKxRealVector::Delete(int i)
{
    if (i < 0 || i >= GetCount())
        return;
    Store().Close(i);
    Store().SetCount(GetCount() - 1);
}

void TKxRealVector::Insert(int i, double value)
{
    if (i < 0 || i >= GetCount())
        return;
    if (const int at = Store().Open(i); at >= 0)
        SetValue(at, value);
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
    Store().Replace(std::move(values));
    BulkChanged(-1, true);
}

void TKxRealVector::Append(std::span<const double> values)
{
    if (values.empty())
        return;
    if (GetNewest() == 0 && values.size() > static_cast<std::size_t>(TKxRealStore::MostCount - GetCount()))
        throw ERangeError("Too many values for a vector");
    Store().Append(values);
    BulkChanged(GetCount() - 1, false);
}

void TKxRealVector::SetCapacity(int capacity)
{
    if (capacity > GetCount())
        Store().SetCapacity(capacity);
}

void TKxRealVector::SetIncrement(int increment)
{
    if (increment > SmallestIncrement)
        Store().SetIncrement(increment);
}

void TKxRealVector::SetNewest(int newest)
{
    if (newest < 0)
        return;
    const auto before = Dropped();
    Store().SetNewest(newest);
    if (Dropped() != before)
        BulkChanged(-1, true);
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
    Tell(Store().Set(i, value), false);
}

void TKxLiveVector::Clear()
{
    Tell(-1, true);
    TKxRealVector::Clear();
}

void TKxLiveVector::Delete(int i)
{
    const int count = GetCount();
    if (i < 0 || i > count)
        return;
    if (i + 1 < count)
        Store().Close(i);
    Tell(i, true);
    Store().SetCount(GetCount() - 1);
}

}  // namespace plotkit
