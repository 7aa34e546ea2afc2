// The job of KxChangedList is to tell those who follow a data vector which of its elements changed.
#pragma once

#include <memory>
#include <vector>

#include "host/Event.h"

namespace plotkit {

/// The index of the element concerned, -1 for all; whether elements were removed (true) or a value was set (false).
using TKxValueIChangedEvent = TEvent<int, bool>;

/// Subscribers in the order of subscription. Entries match by their handler routine alone, whatever object it is bound
/// to: of two objects with the same handler only the one added last is subscribed.
class TKxValueIChangedList
{
public:
    TKxValueIChangedList() = default;
    TKxValueIChangedList(const TKxValueIChangedList&) = delete;
    TKxValueIChangedList& operator=(const TKxValueIChangedList&) = delete;
    ~TKxValueIChangedList();

    /// Takes the first entry with the same handler out and appends `event`.
    void Add(const TKxValueIChangedEvent& event);
    /// The same for somebody who looks at each note how many values the vector has dropped. All others hear (-1, true)
    /// in the place of a note that tells of a change and of values that went at the front.
    void AddForDrops(const TKxValueIChangedEvent& event);
    /// Takes out the first entry with the same handler, of whatever object.
    void Remove(const TKxValueIChangedEvent& event);
    void Clear() { Writable().clear(); }
    int GetCount() const { return static_cast<int>(FEntries->Items.size()); }
    const TKxValueIChangedEvent& GetItem(int i) const { return FEntries->Items.at(static_cast<std::size_t>(i)).Event; }

    /// Calls everybody in order. Those who join meanwhile are not called, those who leave before their turn neither.
    void Call(int i, bool wasDeleted, bool hasDropped = false) const;

private:
    struct TEntry
    {
        TKxValueIChangedEvent Event;
        bool SeesDrops;

        friend bool operator==(const TEntry&, const TEntry&) = default;
    };
    /// Calls that run hold on to the entries they began with; the last of them frees entries that the list has left.
    struct TEntries
    {
        std::vector<TEntry> Items;
        int Calls = 0;
        bool IsLeft = false, IsListGone = false;
    };
    struct TCall;

    void Append(TEntry entry);
    std::vector<TEntry>& Writable();
    void LeaveEntries();
    bool Contains(const TEntry& entry) const;

    std::unique_ptr<TEntries> FEntries = std::make_unique<TEntries>();
};

}  // namespace plotkit
