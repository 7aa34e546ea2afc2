// The job of KxNearestPoint is to find the point of a series that stands nearest to a place on its axes.
#pragma once

#include <memory>
#include <optional>
#include <span>

#include "data/KxVector.h"
#include "graph/KxAxisMapping.h"
#include "series/KxSeries.h"

namespace plotkit {

/// Where a value stands, device pixels from the first pixel of its axis, not rounded; NaN where it has no place.
double PlaceOf(const TKxAxisMapping& mapping, double value);
/// The value at such a place.
double ValueAt(const TKxAxisMapping& mapping, double place);

/// Whether a series can be read: both vectors, both axes, not hidden, something of it drawn.
bool CanBeRead(TKxSeries& series);

/// A search in the values of one series, whose axes are laid out. Abscissae that ascend or descend are searched by
/// halving; that they do is found out once and then followed, through the notes of live vectors and, for values that
/// change without notes, by their place in memory, their count and the first and the last of them.
class TKxNearestPoint
{
public:
    explicit TKxNearestPoint(TKxSeries& series);
    TKxNearestPoint(const TKxNearestPoint&) = delete;
    TKxNearestPoint& operator=(const TKxNearestPoint&) = delete;
    ~TKxNearestPoint();

    bool IsFor(const TKxSeries& series) const { return &series == FSeries && !FAlive.expired(); }
    /// nullptr once it is gone.
    TKxSeries* Series() const { return FAlive.expired() ? nullptr : FSeries; }
    /// Points with both values; -1 for a series that cannot be read.
    int Count() const;
    /// Whether a point has a place on both axes.
    bool HasPlace(int index) const;
    /// Whether abscissae ascend or descend.
    bool IsOrdered() { return Count() > 0 && Order() != orNone; }

    /// The point nearest to `x`, measured along the X axis in pixels that are not rounded, -1 for none. Of points with
    /// one abscissa, and, where abscissae have no order, of points that stand less than half a pixel farther, the one
    /// nearest to `y` when that is given, else the first.
    int Find(double x, std::optional<double> y = std::nullopt);
    /// The next point with a place, on the screen to the right of `index` (`by` > 0) or to the left, where abscissae
    /// have an order, in the order of the points otherwise; `index` itself when there is none.
    int Next(int index, int by);
    /// The leftmost or the rightmost one, the first or last where abscissae have no order; -1 for none.
    int Outermost(bool right);

private:
    enum TOrder : std::uint8_t
    {
        orNone,
        orAscending,
        orDescending,
    };

    /// The values, and which of them have a place.
    struct TPlaces
    {
        std::span<const double> Xs, Ys;
        TKxAxisMapping Across, Along;

        bool Has(std::size_t i) const;
        double Height(std::size_t i) const { return PlaceOf(Along, Ys[i]); }
    };

    TPlaces Places() const;
    void Follow(TKxCustomRealVector* vector);
    void FollowDrops();
    void ValueChanged(int index, bool wasDeleted);
    TOrder Order();
    TOrder OrderOfNew(std::span<const double> xs) const;
    std::span<const double> Xs() const;
    static int FindInOrder(const TPlaces& places, double x, std::optional<double> y, bool descending);
    static int FindAnywhere(const TPlaces& places, double x, std::optional<double> y);
    static int NearestOfEqual(const TPlaces& places, std::size_t index, std::optional<double> y);
    int Walk(int from, int by) const;
    int Rightwards();

    TKxSeries* FSeries;
    std::weak_ptr<const void> FAlive;
    TKxCustomRealVector* FVector = nullptr;
    std::weak_ptr<const void> FVectorAlive;
    TKxValueIChangedEvent FEvent;
    TOrder FOrder = orAscending;
    std::size_t FKnown = 0;      ///< the order is that of so many values
    std::uint64_t FDropped = 0;  ///< by the vector
    const double* FPlace = nullptr;
    bool FSkips = false;           ///< the oldest values have no partner and are no points
    double FFirst = 0, FLast = 0;  ///< of the known ones
};

}  // namespace plotkit
