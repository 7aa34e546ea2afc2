#include "data/KxChangedList.h"

#include <algorithm>

namespace plotkit {

struct TKxValueIChangedList::TCall
{
    explicit TCall(TEntries& entries) : Entries(entries) { ++Entries.Calls; }
    TCall(const TCall&) = delete;
    TCall& operator=(const TCall&) = delete;
    ~TCall()
    {
        if (--Entries.Calls == 0 && Entries.IsLeft)
            std::default_delete<TEntries>()(&Entries);
    }

    TEntries& Entries;
};

TKxValueIChangedList::~TKxValueIChangedList()
{
    FEntries->IsListGone = true;
    LeaveEntries();
}

void TKxValueIChangedList::Add(const TKxValueIChangedEvent& event)
{
    Append({event, false});
}

void TKxValueIChangedList::AddForDrops(const TKxValueIChangedEvent& event)
{
    Append({event, true});
}

void TKxValueIChangedList::Append(TEntry entry)
{
    Remove(entry.Event);
    Writable().push_back(std::move(entry));
}

void TKxValueIChangedList::Remove(const TKxValueIChangedEvent& event)
{
    const auto& items = FEntries->Items;
    const auto found = std::find_if(items.begin(), items.end(),
                                    [&event](const TEntry& entry) { return entry.Event.SameHandler(event); });
    if (found == items.end())
        return;
    const auto place = found - items.begin();
    auto& entries = Writable();
    entries.erase(entries.begin() + place);
}

void TKxValueIChangedList::Call(int i, bool wasDeleted, bool hasDropped) const
{
    const TCall call(*FEntries);
    for (const TEntry& entry : call.Entries.Items) {
        if (call.Entries.IsListGone)
            return;
        if (call.Entries.IsLeft && !Contains(entry))
            continue;
        if (hasDropped && !entry.SeesDrops)
            entry.Event(-1, true);
        else
            entry.Event(i, wasDeleted);
    }
}

auto TKxValueIChangedList::Writable() -> std::vector<TEntry>&
{
    if (FEntries->Calls > 0) {
        auto copy = std::make_unique<TEntries>();
        copy->Items = FEntries->Items;
        LeaveEntries();
        FEntries = std::move(copy);
    }
    return FEntries->Items;
}

void TKxValueIChangedList::LeaveEntries()
{
    if (FEntries->Calls == 0)
        return;
    FEntries->IsLeft = true;
    static_cast<void>(FEntries.release());
}

bool TKxValueIChangedList::Contains(const TEntry& entry) const
{
    return std::find(FEntries->Items.begin(), FEntries->Items.end(), entry) != FEntries->Items.end();
}

}  // namespace plotkit
