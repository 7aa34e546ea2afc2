#include "graph/KxAxisMapping.h"

#include <cmath>

#include "foundation/KxArithm.h"
#include "host/Errors.h"

namespace plotkit {

namespace {

// Adding and taking away this number leaves a double below 2^51 rounded to nearest, ties to even, without a call.
constexpr double RoundingShift = 0x1.8p52;
constexpr double BeyondPositions = 0x1p32;
constexpr double LastPosition = 2147483647;

double Clamped(double value, double limit)
{
    // NaN passes both comparisons.
    value = value > limit ? limit : value;
    return value < -limit ? -limit : value;
}

/// Turns a distance in pixels from the axis' origin into a position.
struct TPlacer
{
    double Base;
    double Direction;

    explicit TPlacer(const TKxAxisMapping& mapping)
        : Base(mapping.Forward ? 0 : mapping.PixelLength), Direction(mapping.Forward ? 1 : -1)
    {}

    std::int32_t operator()(double distance) const
    {
        const double rounded = (Clamped(distance, BeyondPositions) + RoundingShift) - RoundingShift;
        const double position = Clamped(Base + Direction * rounded, LastPosition);
        return static_cast<std::int32_t>(position == position ? position : -LastPosition - 1);
    }
};

[[noreturn]] void ThrowUnknownScaling()
{
    throw EConvertError("Axis scaling not supportet");
}

template <class TStore>
void MapAll(const TKxAxisMapping& mapping, std::span<const double> values, TStore store)
{
    const TPlacer place(mapping);
    const double origin = mapping.Origin, unitsPerPixel = mapping.UnitsPerPixel;
    switch (mapping.Scaling) {
        case AxNormal:
        case AxDateTime:
            for (std::size_t i = 0; i < values.size(); ++i)
                store(i, place((values[i] - origin) / unitsPerPixel));
            return;
        case AxLog:
        case AxLogEE:
            for (std::size_t i = 0; i < values.size(); ++i)
                store(i, values[i] <= 0 ? -1 : place((std::log10(values[i]) - origin) / unitsPerPixel));
            return;
    }
    ThrowUnknownScaling();
}

}  // namespace

std::int32_t TKxAxisMapping::RealToInt(double value) const
{
    std::int32_t result = 0;
    MapAll(*this, {&value, 1}, [&result](std::size_t, std::int32_t position) { result = position; });
    return result;
}

double TKxAxisMapping::IntToReal(int position) const
{
    const double length = PixelLength;
    const double distance = (Forward ? position : length - position) * UnitsPerPixel;
    switch (Scaling) {
        case AxNormal:
        case AxDateTime:
            return Origin + distance;
        case AxLog:
        case AxLogEE:
            return Exp10(Origin + distance);
    }
    ThrowUnknownScaling();
}

void TKxAxisMapping::RealToInt(std::span<const double> values, std::span<std::int32_t> positions) const
{
    MapAll(*this, values, [out = positions.data()](std::size_t i, std::int32_t position) { out[i] = position; });
}

void TKxAxisMapping::RealToIntX(std::span<const double> values, std::span<TPoint> points) const
{
    MapAll(*this, values, [out = points.data()](std::size_t i, std::int32_t position) { out[i].X = position; });
}

void TKxAxisMapping::RealToIntY(std::span<const double> values, std::span<TPoint> points) const
{
    MapAll(*this, values, [out = points.data()](std::size_t i, std::int32_t position) { out[i].Y = position; });
}

}  // namespace plotkit
