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
