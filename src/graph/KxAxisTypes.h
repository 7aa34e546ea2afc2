// The job of KxAxisTypes is to name the choices that an axis offers.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace plotkit {

/// A side of the plotting area.
enum TKxAxisPos : std::uint8_t
{
    AxBottomPos,
    AxLeftPos,
    AxTopPos,
    AxRightPos,
    AxFreeFloating,
};
inline constexpr std::array<std::string_view, 5> AxisPosNames{"AxBottomPos", "AxLeftPos", "AxTopPos", "AxRightPos",
                                                              "AxFreeFloating"};
constexpr std::span<const std::string_view> ValueNames(TKxAxisPos)
{
    return AxisPosNames;
}

/// How an end of the displayed range follows the data.
enum TKxAxEnd : std::uint8_t
{
    AxAutoRange,  ///< always that of the data
    AxFirstSet,   ///< only ever widens
    AxFixed,      ///< stays
};
inline constexpr std::array<std::string_view, 3> AxEndNames{"AxAutoRange", "AxFirstSet", "AxFixed"};
constexpr std::span<const std::string_view> ValueNames(TKxAxEnd)
{
    return AxEndNames;
}

enum TKxAxScaling : std::uint8_t
{
    AxNormal,
    AxLog,
    AxLogEE,     ///< logarithmic, labels as powers of ten
    AxDateTime,  ///< values are day numbers
};
inline constexpr std::array<std::string_view, 4> AxScalingNames{"AxNormal", "AxLog", "AxLogEE", "AxDateTime"};
constexpr std::span<const std::string_view> ValueNames(TKxAxScaling)
{
    return AxScalingNames;
}

/// The unit of time that the labels of a date-time axis show.
enum TKxDTRegion : std::uint8_t
{
    rgYear,
    rgMonth,
    rgDay,
    rgHour,
    rgMinute,
    rgSecond,
    rgMilliSecond,
};
inline constexpr std::array<std::string_view, 7> DTRegionNames{"rgYear",   "rgMonth",  "rgDay",        "rgHour",
                                                               "rgMinute", "rgSecond", "rgMilliSecond"};
constexpr std::span<const std::string_view> ValueNames(TKxDTRegion)
{
    return DTRegionNames;
}

enum TKxAxisOrientation : std::uint8_t
{
    AxHorizontal,
    AxVertical,
};
inline constexpr std::array<std::string_view, 2> AxisOrientationNames{"AxHorizontal", "AxVertical"};
constexpr std::span<const std::string_view> ValueNames(TKxAxisOrientation)
{
    return AxisOrientationNames;
}

}  // namespace plotkit
