// The job of KxLongLine is what a series keeps of a line with many points, so that drawing it again costs little.
#pragma once

#include <cstdint>
#include <optional>

#include "data/KxVector.h"
#include "series/KxLineReduction.h"

namespace plotkit {

/// Whether values are finite and ascend, found out once and then followed.
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

/// What is known of the values of a vector, kept by its notes. Its versions tell where notes did not arrive.
template <class TKnowledge>
class TKxFollowed
{
public:
    void ValueChanged(const TKxCustomRealVector& vector, int index, bool wasDeleted)
    {
        const bool heardAll = FVersion && *FVersion + 1 == vector.Version();
        FVersion = vector.Version();
        if (!heardAll || wasDeleted || index < 0)
            FKnowledge.Clear();
        else if (const auto i = static_cast<std::size_t>(index); i < FKnowledge.Known())
            FKnowledge.Renew(vector.Values(), i);
    }
    const TKnowledge& Of(const TKxCustomRealVector& vector, std::size_t count)
    {
        if (FVersion != vector.Version())
            FKnowledge.Clear();
        FVersion = vector.Version();
        FKnowledge.Extend(vector.Values().first(count));
        return FKnowledge;
    }

private:
    TKnowledge FKnowledge;
    std::optional<std::uint64_t> FVersion;
};

/// Of a series with the same two vectors all its life.
class TKxLongLine
{
public:
    /// Lines with more points are drawn through some of them.
    static constexpr int LongestWhole = 50000;

    /// Notes of the vectors.
    void XChanged(const TKxCustomRealVector& x, int index, bool wasDeleted);
    void YChanged(const TKxCustomRealVector& y, int index, bool wasDeleted);
    /// The points may have to be drawn elsewhere.
    void Forget() { FIsDrawn = false; }

    /// The line through the first `count` pairs, which both vectors have; nothing where abscissae do not ascend or
    /// stand in no order on their axis. Good until the next change.
    std::optional<TKxLineReduction> Line(const TKxCustomRealVector& x, const TKxCustomRealVector& y, int count,
                                         const TKxAxisMapping& across, const TKxAxisMapping& along);
    /// What a line, always that of this series, is drawn through; see TKxLineReduction.
    std::span<const TPoint> Drawn(const TKxLineReduction& line, int left, int right);

private:
    TKxFollowed<TKxAscent> FAscent;
    TKxFollowed<TKxPyramid> FPyramid;
    std::vector<TPoint> FDrawn;
    int FLeft = 0, FRight = 0;
    bool FIsDrawn = false;
};

}  // namespace plotkit
