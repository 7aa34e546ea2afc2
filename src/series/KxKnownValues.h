// The job of KxKnownValues is what is found out once about the values of a vector and then followed through its notes.
#pragma once

#include <cstdint>
#include <optional>

#include "data/KxVector.h"
#include "series/KxPyramid.h"

namespace plotkit {

/// Whether values are finite and ascend.
class TKxAscent
{
public:
    void Clear();
    /// How many of the first values it has looked at.
    std::size_t Known() const { return FKnown; }
    /// Of all known values and those only.
    bool Ascends(std::span<const double> values) const;
    /// The first `count` values went.
    void Drop(std::size_t count);
    void Extend(std::span<const double> values);
    /// Value `i`, a known one, has changed.
    void Renew(std::span<const double> values, std::size_t i);

private:
    std::size_t FKnown = 0;
    std::size_t FFault = 0;  ///< the last known value that does not ascend from the one before it; 0 for none
};

/// Of one vector. Where notes do not arrive its versions tell that values have changed. What nobody asks for is not
/// found out.
class TKxKnownValues
{
public:
    /// So many values are looked through each time; more are worth being known.
    static constexpr int Few = 50000;

    void Clear();
    /// A note of the vector. Its first `skip` values do not count, here and in what follows; more and more of them may
    /// go.
    void ValueChanged(const TKxCustomRealVector& vector, int skip, int index, bool wasDeleted);

    /// Of the `count` values behind the skipped ones, which the vector has.
    bool Ascend(const TKxCustomRealVector& vector, int skip, int count);
    const TKxPyramid& Pyramid(const TKxCustomRealVector& vector, int skip, int count);
    TKxPlacedExtremes Extremes(const TKxCustomRealVector& vector, int skip, int count);

private:
    /// Forgets everything when values that were there have changed unheard; others may have come.
    void Check(const TKxCustomRealVector& vector, int skip);
    void GoTo(std::uint64_t place);

    TKxAscent FAscent;
    TKxPyramid FPyramid;
    std::optional<std::uint64_t> FVersion;
    std::uint64_t FPlace = 0;  ///< of the first value, counted from the first one that the vector ever had
};

}  // namespace plotkit
