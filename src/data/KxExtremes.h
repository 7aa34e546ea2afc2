// The job of KxExtremes is to look through many values at the speed of memory: smallest, largest, ascending or not.
#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <span>

namespace plotkit {

/// Of values that are finite; `Min` lies above `Max` when there is none.
struct TKxExtremes
{
    double Min = std::numeric_limits<double>::infinity();
    double Max = -std::numeric_limits<double>::infinity();

    bool IsEmpty() const { return Min > Max; }
    void Add(const TKxExtremes& other)
    {
        Min = other.Min < Min ? other.Min : Min;
        Max = other.Max > Max ? other.Max : Max;
    }
};

/// The first of the smallest and the first of the largest value; -1, and the ends of an empty range, for none.
struct TKxPlacedExtremes
{
    double Min = 1.7e308;
    double Max = -1.7e308;
    int MinIndex = -1;
    int MaxIndex = -1;
};

/// Finds them from the extremes of stretches of the values.
class TKxExtremeSearch
{
public:
    explicit TKxExtremeSearch(std::span<const double> values) : FValues(values) {}

    /// Of a stretch that begins at value `first`; they come in order.
    void Add(const TKxExtremes& stretch, std::size_t first);
    TKxPlacedExtremes Found() const;

private:
    std::span<const double> FValues;
    TKxPlacedExtremes FFound;
    std::optional<std::size_t> FLowest, FHighest;  ///< the stretches that hold them
};

/// What a stretch of values holds. `IsWhole`: all of them are finite.
struct TKxStretch
{
    TKxExtremes Extremes;
    bool IsWhole = true;
};

TKxStretch StretchOf(std::span<const double> values);
TKxPlacedExtremes PlacedExtremesOf(std::span<const double> values);

/// Whether all are finite and none is smaller than the one before.
bool Ascends(std::span<const double> values);
/// The last value that does not ascend from the one before it, because it is smaller or one of them is no number; 0 for
/// none.
std::size_t LastDescent(std::span<const double> values);

}  // namespace plotkit
