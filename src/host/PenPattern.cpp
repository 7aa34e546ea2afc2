#include "host/PenPattern.h"

#include <numbers>
#include <utility>

namespace plotkit {

namespace {

/// Parallel lines A·x + B·y = k·period + offset. `Place` is where a point stands along them, `At` the point there.
struct TFamily
{
    double A, B, Offset;

    double Level(TVectorPoint p) const { return A * p.X + B * p.Y; }
    double Place(TVectorPoint p) const { return B == 0 ? p.Y : p.X; }
    TVectorPoint At(double level, double place) const
    {
        return B == 0 ? TVectorPoint{level / A, place} : TVectorPoint{place, (level - A * place) / B};
    }
};

struct TCrossing
{
    double Line, Place;

    friend bool operator<(const TCrossing& a, const TCrossing& b)
    {
        return std::pair(a.Line, a.Place) < std::pair(b.Line, b.Place);
    }
};

void AddCrossings(const TFamily& family, double period, TVectorPoint from, TVectorPoint to,
                  std::vector<TCrossing>& crossings)
{
    if (family.Level(from) > family.Level(to))
        std::swap(from, to);
    const double low = family.Level(from), high = family.Level(to);
    for (double k = std::ceil((low - family.Offset) / period);; ++k) {
        const double level = k * period + family.Offset;
        if (!(level < high))
            return;
        const double t = (level - low) / (high - low);
        crossings.push_back({k, family.Place(from + (to - from) * t)});
    }
}

void AddLines(const TFamily& family, double period, std::span<const TVectorPoint> corners, TVectorPath& path)
{
    std::vector<TCrossing> crossings;
    for (std::size_t i = 0; i < corners.size(); ++i)
        AddCrossings(family, period, corners[i], corners[(i + 1) % corners.size()], crossings);
    std::sort(crossings.begin(), crossings.end());
    for (std::size_t i = 1; i < crossings.size(); i += 2) {
        const double level = crossings[i].Line * period + family.Offset;
        const std::array ends{family.At(level, crossings[i - 1].Place), family.At(level, crossings[i].Place)};
        if (ends[0] != ends[1])
            path.Add(ends);
    }
}

}  // namespace

TVectorPen StrokeOf(const TPenState& pen)
{
    constexpr int widest = 100000;
    TVectorPen stroke;
    stroke.Color = pen.Color;
    stroke.Width = std::clamp(pen.Width, 1, widest);
    stroke.Style = IsDashed(pen.Style) ? pen.Style : psSolid;
    stroke.Ends = IsDashed(pen.Style) ? veFlat : veSquare;
    return stroke;
}

TVectorPath HatchLines(std::span<const TVectorPoint> corners, TBrushStyle style, const THatch& hatch)
{
    // Of the pixels 0 up to Line of each period, seen as areas, the middle.
    const double middle = hatch.Line / 2.0;
    const TFamily horizontal{0, 1, middle}, vertical{1, 0, middle};
    const TFamily falling{1, -1, middle - 0.5}, rising{1, 1, middle + 0.5};
    TVectorPath path;
    const auto add = [&](const TFamily& family) { AddLines(family, hatch.Period, corners, path); };
    if (style == bsHorizontal || style == bsCross)
        add(horizontal);
    if (style == bsVertical || style == bsCross)
        add(vertical);
    if (style == bsForwardDiagonal || style == bsDiagonalCross)
        add(falling);
    if (style == bsBackwardDiagonal || style == bsDiagonalCross)
        add(rising);
    return path;
}

double HatchWidth(TBrushStyle style, const THatch& hatch)
{
    const bool isSlanted = style == bsForwardDiagonal || style == bsBackwardDiagonal || style == bsDiagonalCross;
    return isSlanted ? hatch.Line / std::numbers::sqrt2 : hatch.Line;
}

}  // namespace plotkit
