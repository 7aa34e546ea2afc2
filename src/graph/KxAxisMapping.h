// The job of KxAxisMapping is the rule that turns values into pixel positions along an axis and back, as a value.
#pragma once

#include <cstdint>
#include <limits>
#include <span>

#include "graph/KxAxisTypes.h"
#include "host/Types.h"

namespace plotkit {

/// The position of a value that is not a number; equal to the coordinates of a missing point. No other value maps
/// there.
inline constexpr std::int32_t MissingPosition = std::numeric_limits<std::int32_t>::min();

/// Positions are device pixels from the first pixel of the axis: from the left, from the top.
struct TKxAxisMapping
{
    TKxAxScaling Scaling = AxNormal;
    bool Forward = true;       ///< values grow with the positions
    int PixelLength = 0;       ///< where the values begin when they run backward
    double Origin = 0;         ///< first value, or its decimal logarithm for the logarithmic scalings
    double UnitsPerPixel = 1;  ///< values, or decades, per pixel; positive

    bool IsLog() const { return Scaling == AxLog || Scaling == AxLogEE; }

    /// To nearest, ties to even. Positions beyond 32 bits saturate at 2147483647 of either sign, values that are not
    /// numbers give `MissingPosition`; a value that is not positive gives -1 on a logarithmic scale.
    /// EConvertError "Axis scaling not supportet".
    std::int32_t RealToInt(double value) const;
    /// The value at a position, inside the axis or not. EConvertError as above.
    double IntToReal(int position) const;

    /// The same for many values; `positions` and `points` are at least as long as `values`. Of points, the other
    /// coordinate is left alone.
    void RealToInt(std::span<const double> values, std::span<std::int32_t> positions) const;
    void RealToIntX(std::span<const double> values, std::span<TPoint> points) const;
    void RealToIntY(std::span<const double> values, std::span<TPoint> points) const;

    friend bool operator==(const TKxAxisMapping&, const TKxAxisMapping&) = default;
};

}  // namespace plotkit
