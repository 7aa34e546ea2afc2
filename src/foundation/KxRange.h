// The job of KxRange is a pair of reals that tells one listener when it changes.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "host/Event.h"
#include "host/List.h"
#include "host/Persistent.h"

namespace plotkit {

class TRange;

/// Called with the range that changed.
using TRangeChangedEvent = TEvent<TRange&>;

/// What `IfRangeChanged` moved.
enum TRangeChangedResult : std::uint8_t
{
    rgNotChanged,
    rgMinChanged,
    rgMaxChanged,
    rgBothChanged
};
inline constexpr std::array<std::string_view, 4> TRangeChangedResultNames{"rgNotChanged", "rgMinChanged",
                                                                          "rgMaxChanged", "rgBothChanged"};
constexpr std::span<const std::string_view> ValueNames(TRangeChangedResult)
{
    return TRangeChangedResultNames;
}

/// `Start` may lie above `Stop`. The empty range is inverted on purpose: the first value offered becomes both ends.
class TRange : public TPersistent
{
public:
    /// An empty range without listener.
    TRange() = default;

    static const TClassInfo Class;
    const TClassInfo& ClassInfo() const override { return Class; }

    double GetStart() const { return FStart; }
    double GetStop() const { return FStop; }
    /// The setters notify even when nothing changes.
    void SetStart(double value) { SetStartStop(value, FStop); }
    void SetStop(double value) { SetStartStop(FStart, value); }
    /// Sets both and notifies once.
    void SetStartStop(double start, double stop)
    {
        FStart = start;
        FStop = stop;
        DoOnChanged();
    }

    /// Start = 1.7e308, Stop = -1.7e308, without notification.
    void Reset()
    {
        FStart = 1.7e308;
        FStop = -1.7e308;
    }
    /// Widens the range to include `value`; notifies once when that moved an end.
    TRangeChangedResult IfRangeChanged(double value)
    {
        const bool isMin = value<FStart, isMax = value> FStop;
        if (!isMin && !isMax)
            return rgNotChanged;
        SetStartStop(isMin ? value : FStart, isMax ? value : FStop);
        return isMin && isMax ? rgBothChanged : isMin ? rgMinChanged : rgMaxChanged;
    }
    /// The same for both ends of another range, one after the other, unless that is empty.
    void Unite(const TRange& other)
    {
        if (other.FStop < other.FStart)
            return;
        if (FStart > FStop && !OnChanged) {
            FStart = other.FStart;
            FStop = other.FStop;
            return;
        }
        IfRangeChanged(other.FStart);
        IfRangeChanged(other.FStop);
    }
    /// Start and Stop of another range, with notification; the listener is not copied.
    /// EConvertError "Cannot be assigned to TRange" from anything else.
    void Assign(const TPersistent& source) override;

    void DoOnChanged() { OnChanged(*this); }

    TRangeChangedEvent OnChanged;

private:
    double FStart = 1.7e308;
    double FStop = -1.7e308;
};

/// References to ranges, each held once.
class TRangeList : public TList<TRange>
{
public:
    /// At the end, also when the range stood elsewhere before.
    void Add(TRange* range);
    /// False when the range was not in the list.
    bool Remove(const TRange* range);
};

}  // namespace plotkit
