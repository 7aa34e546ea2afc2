// The job of PenPattern is how pens, dashes and hatches are made, for every device alike.
#pragma once

#include <cmath>

#include "host/VectorPath.h"

namespace plotkit {

inline constexpr std::array<double, 6> DashLengths{4, 2, 1, 2, 1, 2};
inline constexpr std::array<double, 2> DotLengths{1, 2};

constexpr bool IsDashed(TPenStyle style)
{
    return style >= psDash && style <= psDashDotDot;
}

/// Dashes and gaps in pen widths; empty for solid styles.
constexpr std::span<const double> DashPattern(TPenStyle style)
{
    if (style == psDot)
        return DotLengths;
    return std::span(DashLengths).first(style == psDash ? 2 : style == psDashDot ? 4 : style == psDashDotDot ? 6 : 0);
}

/// Of a pen with a width of at least a device pixel; solid lines end half the width behind their points.
TVectorPen StrokeOf(const TPenState& pen);

/// The lines of hatches in device pixels, at a resolution of `scale` device pixels per 1/96 inch.
struct THatch
{
    int Line = 1;
    int Period = 8;

    static THatch At(double scale)
    {
        const int line = std::max(1, static_cast<int>(std::lround(scale)));
        return {line, std::max(2 * line, static_cast<int>(std::lround(8 * scale)))};
    }
};

/// The middle lines of a hatch inside a polygon (even-odd); they count from the device's origin, so that neighbours
/// fit. Nothing for brushes without hatch.
TVectorPath HatchLines(std::span<const TVectorPoint> corners, TBrushStyle style, const THatch& hatch);
/// How wide these are to be stroked: slanted lines as the pixels of one are, corner to corner.
double HatchWidth(TBrushStyle style, const THatch& hatch);

}  // namespace plotkit
