// The job of KxPointSymbol is to name the symbols that mark points.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace plotkit {

enum TKxPointSymbol : std::uint8_t
{
    SyPoint,
    SyCross,
    SyX,
    SyStar,
    Sy5Star,
    Sy5StarFilled,
    SyCircle,
    SyCircleFilled,
    SySquare,
    SySquareFilled,
    SyDiamond,
    SyDiamondFilled,
    SyDelta,
    SyDeltaFilled,
    SyNabla,
    SyNablaFilled,
};
inline constexpr TKxPointSymbol LastPtSymbol = SyNablaFilled;
inline constexpr std::array<std::string_view, 16> PointSymbolNames{
    "SyPoint",  "SyCross",        "SyX",      "SyStar",         "Sy5Star",   "Sy5StarFilled",
    "SyCircle", "SyCircleFilled", "SySquare", "SySquareFilled", "SyDiamond", "SyDiamondFilled",
    "SyDelta",  "SyDeltaFilled",  "SyNabla",  "SyNablaFilled"};
constexpr std::span<const std::string_view> ValueNames(TKxPointSymbol)
{
    return PointSymbolNames;
}

}  // namespace plotkit
