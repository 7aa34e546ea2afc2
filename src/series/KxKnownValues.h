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
    bool Ascends() const { return FAscends; }
    void Extend(std::span<const double> values);
    /// Value `i`, a known one, has changed.
    void Renew(std::span<const double> values, std::size_t i);

private:
    std::size_t FKnown = 0;
    bool FAscends = true;
};

/// Of one vector. Where notes do not arrive its versions tell that values have changed. What nobody asks for is not
/// found out.
class TKxKnownValues
{
public:
    /// So many values are looked through each time; more are worth being known.
    static constexpr int Few = 50000;

    void Clear();
    /// A note of the vector.
    void ValueChanged(const TKxCustomRealVector& vector, int index, bool wasDeleted);

    /// Of the first `count` values, which the vector has.
    bool Ascend(const TKxCustomRealVector& vector, int count);
    const TKxPyramid& Pyramid(const TKxCustomRealVector& vector, int count);
    TKxPlacedExtremes Extremes(const TKxCustomRealVector& vector, int count);

private:
    /// Forgets everything when the vector has changed unheard.
    void Check(const TKxCustomRealVector& vector);

    TKxAscent FAscent;
    TKxPyramid FPyramid;
    std::optional<std::uint64_t> FVersion;
};

}  // namespace plotkit
