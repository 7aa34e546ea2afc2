#include "series/KxNearestPoint.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

#include "foundation/KxArithm.h"
#include "graph/KxAxis.h"

namespace plotkit {

namespace {

bool Same(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool HasPlaceOn(const TKxAxisMapping& mapping, double value)
{
    return std::isfinite(value) && (!mapping.IsLog() || value > 0);
}

/// Grows with the distance from a value along an axis; cheaper than the distance in pixels.
struct TRemoteness
{
    double Value;
    bool IsLog;

    double operator()(double x) const
    {
        if (!IsLog)
            return std::fabs(x - Value);
        if (x <= 0)
            return std::numeric_limits<double>::infinity();
        return x > Value ? x / Value : Value / x;
    }
};

}  // namespace

double PlaceOf(const TKxAxisMapping& mapping, double value)
{
    if (!HasPlaceOn(mapping, value))
        return std::numeric_limits<double>::quiet_NaN();
    const double distance = ((mapping.IsLog() ? std::log10(value) : value) - mapping.Origin) / mapping.UnitsPerPixel;
    return mapping.Forward ? distance : mapping.PixelLength - distance;
}

double ValueAt(const TKxAxisMapping& mapping, double place)
{
    const double distance = mapping.Forward ? place : mapping.PixelLength - place;
    const double value = mapping.Origin + distance * mapping.UnitsPerPixel;
    return mapping.IsLog() ? Exp10(value) : value;
}

bool CanBeRead(TKxSeries& series)
{
    if (!series.GetShown() || !series.GetXData() || !series.GetYData() || !series.GetXAxis() || !series.GetYAxis())
        return false;
    const TKxPointStyle* const points = series.SamplePoints();
    return series.GetLineStyle().GetVisible() || series.GetAreaStyle().GetVisible() || (points && points->GetVisible());
}

TKxNearestPoint::TKxNearestPoint(TKxSeries& series)
    : FSeries(&series),
      FAlive(series.Lifeline().Watch()),
      FEvent([this](int index, bool wasDeleted) { ValueChanged(index, wasDeleted); })
{}

TKxNearestPoint::~TKxNearestPoint()
{
    Follow(nullptr);
}

void TKxNearestPoint::Follow(TKxCustomRealVector* vector)
{
    if (FVector == vector && (!vector || !FVectorAlive.expired()))
        return;
    if (FVector && !FVectorAlive.expired())
        FVector->ChangedList().Remove(FEvent);
    FVector = vector;
    FKnown = 0;
    FPlace = nullptr;
    if (!vector)
        return;
    FVectorAlive = vector->Lifeline().Watch();
    FDropped = vector->Dropped();
    vector->ChangedList().AddForDrops(FEvent);
}

void TKxNearestPoint::FollowDrops()
{
    const std::uint64_t count = FVector->Dropped() - std::exchange(FDropped, FVector->Dropped());
    if (count == 0 || FKnown == 0)
        return;
    FKnown = FOrder == orNone || count >= FKnown ? 0 : FKnown - count;
    FPlace = FVector->Values().data();
    FFirst = FVector->Values().front();
}

void TKxNearestPoint::ValueChanged(int index, bool wasDeleted)
{
    const auto at = static_cast<std::size_t>(index);
    FollowDrops();
    // Where the oldest values are passed over, indexes are not those of the points.
    if (wasDeleted || index < 0 || FSkips) {
        FKnown = 0;
        return;
    }
    if (at >= FKnown)
        return;
    const auto values = FVector->Values();
    const auto fits = [&](std::size_t i) {
        return FOrder == orAscending ? values[i - 1] <= values[i] : values[i - 1] >= values[i];
    };
    const bool keepsOrder = FOrder != orNone && FKnown <= values.size() && std::isfinite(values[at]) &&
                            (at == 0 || fits(at)) && (at + 1 >= FKnown || fits(at + 1));
    if (!keepsOrder) {
        FKnown = 0;
        return;
    }
    FFirst = values.front();
    FLast = values[FKnown - 1];
}

std::span<const double> TKxNearestPoint::Xs() const
{
    return FSeries->XValues().first(static_cast<std::size_t>(Count()));
}

bool TKxNearestPoint::TPlaces::Has(std::size_t i) const
{
    return HasPlaceOn(Across, Xs[i]) && HasPlaceOn(Along, Ys[i]);
}

TKxNearestPoint::TPlaces TKxNearestPoint::Places() const
{
    const auto xs = Xs();
    return {xs, FSeries->YValues().first(xs.size()), FSeries->GetXAxis()->Mapping(), FSeries->GetYAxis()->Mapping()};
}

int TKxNearestPoint::Count() const
{
    if (FAlive.expired() || !CanBeRead(*FSeries))
        return -1;
    return static_cast<int>(std::min(FSeries->XValues().size(), FSeries->YValues().size()));
}

bool TKxNearestPoint::HasPlace(int index) const
{
    return index >= 0 && index < Count() && Places().Has(static_cast<std::size_t>(index));
}

TKxNearestPoint::TOrder TKxNearestPoint::Order()
{
    Follow(FSeries->GetXData());
    const auto xs = Xs();
    const bool isKnown = FKnown > 0 && FKnown <= xs.size() && FPlace == xs.data() && Same(FFirst, xs.front()) &&
                         Same(FLast, xs[FKnown - 1]);
    if (!isKnown)
        FKnown = 0;
    if (FKnown == xs.size())
        return FOrder;
    if (FKnown == 0 || FOrder != orNone)
        FOrder = OrderOfNew(xs);
    FKnown = xs.size();
    FSkips = FSeries->XValues().data() != FVector->Values().data();
    FPlace = xs.data();
    FFirst = xs.front();
    FLast = xs.back();
    return FOrder;
}

TKxNearestPoint::TOrder TKxNearestPoint::OrderOfNew(std::span<const double> xs) const
{
    const std::size_t first = std::max<std::size_t>(FKnown, 1);
    bool ascends = FKnown <= 1 || FOrder == orAscending, descends = FKnown <= 1 || FOrder == orDescending;
    if (!std::isfinite(xs.front()) || !std::isfinite(xs.back()))
        return orNone;
    // A constant run is both until a value tells.
    if (FKnown > 1 && Same(FFirst, FLast))
        ascends = descends = true;
    for (std::size_t i = first; i < xs.size() && (ascends || descends); ++i) {
        ascends = ascends && xs[i - 1] <= xs[i];
        descends = descends && xs[i - 1] >= xs[i];
    }
    return ascends ? orAscending : descends ? orDescending : orNone;
}

int TKxNearestPoint::Find(double x, std::optional<double> y)
{
    if (Count() <= 0 || !std::isfinite(x))
        return -1;
    const TOrder order = Order();
    return order == orNone ? FindAnywhere(Places(), x, y) : FindInOrder(Places(), x, y, order == orDescending);
}

int TKxNearestPoint::FindInOrder(const TPlaces& places, double x, std::optional<double> y, bool descending)
{
    const auto xs = places.Xs;
    const double wanted = ValueAt(places.Across, x);
    const auto from = descending ? std::lower_bound(xs.begin(), xs.end(), wanted, std::greater<>())
                                 : std::lower_bound(xs.begin(), xs.end(), wanted);
    std::size_t right = static_cast<std::size_t>(from - xs.begin()), left = right;  // the next one is left of it
    const TRemoteness remoteness{wanted, places.Across.IsLog()};
    while (left > 0 || right < xs.size()) {
        const bool takesLeft = left > 0 && (right == xs.size() || remoteness(xs[left - 1]) <= remoteness(xs[right]));
        const std::size_t found = takesLeft ? --left : right++;
        if (places.Has(found))
            return NearestOfEqual(places, found, y);
    }
    return -1;
}

int TKxNearestPoint::NearestOfEqual(const TPlaces& places, std::size_t index, std::optional<double> y)
{
    const auto equal = [&](std::size_t i) { return places.Xs[i] == places.Xs[index]; };
    std::size_t first = index, end = index + 1;
    while (first > 0 && equal(first - 1))
        --first;
    while (end < places.Xs.size() && equal(end))
        ++end;
    std::optional<std::size_t> best;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = first; i < end && !(best && !y); ++i) {
        if (!places.Has(i))
            continue;
        const double distance = y ? std::fabs(places.Height(i) - *y) : 0;
        if (best && !(distance < least))
            continue;
        best = i;
        least = distance;
    }
    return static_cast<int>(best.value_or(index));
}

int TKxNearestPoint::FindAnywhere(const TPlaces& places, double x, std::optional<double> y)
{
    const auto xs = places.Xs;
    const TRemoteness remoteness{ValueAt(places.Across, x), places.Across.IsLog()};
    std::optional<std::size_t> best;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < xs.size(); ++i) {
        const double far = remoteness(xs[i]);
        if ((best && !(far < least)) || !places.Has(i))
            continue;
        best = i;
        least = far;
    }
    if (!best || !y)
        return best ? static_cast<int>(*best) : -1;
    const double reach = std::fabs(PlaceOf(places.Across, xs[*best]) - x) + 0.5;
    const double a = ValueAt(places.Across, x - reach), b = ValueAt(places.Across, x + reach);
    const double from = std::min(a, b), to = std::max(a, b);
    least = std::fabs(places.Height(*best) - *y);
    for (std::size_t i = 0; i < xs.size(); ++i) {
        if (!(xs[i] >= from && xs[i] <= to) || !places.Has(i))
            continue;
        const double distance = std::fabs(places.Height(i) - *y);
        if (!(distance < least))
            continue;
        best = i;
        least = distance;
    }
    return static_cast<int>(*best);
}

int TKxNearestPoint::Rightwards()
{
    const TOrder order = Order();
    if (order == orNone)
        return 1;
    return (order == orAscending) == FSeries->GetXAxis()->Mapping().Forward ? 1 : -1;
}

int TKxNearestPoint::Walk(int from, int by) const
{
    const TPlaces places = Places();
    const int count = static_cast<int>(places.Xs.size());
    int i = from + by;
    while (i >= 0 && i < count && !places.Has(static_cast<std::size_t>(i)))
        i += by;
    return i >= 0 && i < count ? i : -1;
}

int TKxNearestPoint::Next(int index, int by)
{
    if (Count() <= 0 || by == 0)
        return index;
    const int found = Walk(index, by > 0 ? Rightwards() : -Rightwards());
    return found < 0 ? index : found;
}

int TKxNearestPoint::Outermost(bool right)
{
    const int count = Count();
    if (count <= 0)
        return -1;
    return (Rightwards() > 0) == right ? Walk(count, -1) : Walk(-1, 1);
}

}  // namespace plotkit
