#include "data/KxChangedList.h"

#include <algorithm>

namespace plotkit {

void TKxValueIChangedList::Add(const TKxValueIChangedEvent& event)
{
    const TKxValueIChangedEvent added = event;  // may be an entry of this list
    Remove(added);
    Writable().push_back(added);
}

void TKxValueIChangedList::Remove(const TKxValueIChangedEvent& event)
{
    const auto found = std::find_if(FEntries->begin(), FEntries->end(),
                                    [&event](const TKxValueIChangedEvent& entry) { return entry.SameHandler(event); });
    if (found == FEntries->end())
        return;
    const auto place = found - FEntries->begin();
    TEntries& entries = Writable();
    entries.erase(entries.begin() + place);
}

void TKxValueIChangedList::Call(int i, bool wasDeleted) const
{
    const std::shared_ptr<const TEntries> entries = FEntries;
    for (const TKxValueIChangedEvent& entry : *entries)
        if (entries == FEntries || Contains(entry))
            entry(i, wasDeleted);
}

TKxValueIChangedList::TEntries& TKxValueIChangedList::Writable()
{
    if (FEntries.use_count() > 1)
        FEntries = std::make_shared<TEntries>(*FEntries);
    return *FEntries;
}

bool TKxValueIChangedList::Contains(const TKxValueIChangedEvent& event) const
{
    return std::find(FEntries->begin(), FEntries->end(), event) != FEntries->end();
}

}  // namespace plotkit
