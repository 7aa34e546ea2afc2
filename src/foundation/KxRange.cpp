#include "foundation/KxRange.h"

#include "host/Errors.h"

namespace plotkit {

namespace {

constexpr std::array RangeProperties{
    Property<&TRange::GetStart, &TRange::SetStart>("Start").Always(),
    Property<&TRange::GetStop, &TRange::SetStop>("Stop").Always(),
};

}  // namespace

constinit const TClassInfo TRange::Class{"TRange", &TPersistent::Class, RangeProperties};

void TRange::SetStart(double value)
{
    FStart = value;
    DoOnChanged();
}

void TRange::SetStop(double value)
{
    FStop = value;
    DoOnChanged();
}

void TRange::SetStartStop(double start, double stop)
{
    FStart = start;
    FStop = stop;
    DoOnChanged();
}

void TRange::Reset()
{
    FStart = 1.7e308;
    FStop = -1.7e308;
}

TRangeChangedResult TRange::IfRangeChanged(double value)
{
    TRangeChangedResult result = rgNotChanged;
    if (value < FStart) {
        FStart = value;
        result = rgMinChanged;
    }
    if (value > FStop) {
        FStop = value;
        result = result == rgMinChanged ? rgBothChanged : rgMaxChanged;
    }
    if (result != rgNotChanged)
        DoOnChanged();
    return result;
}

void TRange::Assign(const TPersistent& source)
{
    const auto* range = dynamic_cast<const TRange*>(&source);
    if (!range)
        throw EConvertError("Cannot be assigned to TRange");
    SetStartStop(range->FStart, range->FStop);
}

void TRangeList::Add(TRange* range)
{
    Remove(range);
    TList::Add(range);
}

bool TRangeList::Remove(const TRange* range)
{
    bool removed = false;
    while (TList::Remove(range))
        removed = true;
    return removed;
}

}  // namespace plotkit
