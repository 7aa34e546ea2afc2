// The job of PixelMath is to move pixel positions without leaving 32 bits: what is too far away stays at the edge.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

#include "host/Types.h"

namespace plotkit {

constexpr std::int32_t SaturatePixel(std::int64_t value)
{
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, std::numeric_limits<std::int32_t>::min(),
                                                              std::numeric_limits<std::int32_t>::max()));
}

constexpr std::int32_t AddPixels(std::int32_t a, std::int32_t b)
{
    return SaturatePixel(std::int64_t{a} + b);
}

constexpr TPoint MovePoint(TPoint p, TPoint by)
{
    return {AddPixels(p.X, by.X), AddPixels(p.Y, by.Y)};
}

constexpr TRect MoveBox(const TRect& box, TPoint by)
{
    return {AddPixels(box.Left, by.X), AddPixels(box.Top, by.Y), AddPixels(box.Right, by.X),
            AddPixels(box.Bottom, by.Y)};
}

/// Of a clip: a side at the edge of 32 bits is open and stays where it is, so that moving there and back changes
/// nothing.
constexpr TRect MoveClip(const TRect& clip, TPoint by)
{
    constexpr auto side = [](std::int32_t value, std::int32_t shift) {
        const bool open =
            value == std::numeric_limits<std::int32_t>::min() || value == std::numeric_limits<std::int32_t>::max();
        return open ? value : AddPixels(value, shift);
    };
    return {side(clip.Left, by.X), side(clip.Top, by.Y), side(clip.Right, by.X), side(clip.Bottom, by.Y)};
}

}  // namespace plotkit
