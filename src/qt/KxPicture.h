// The job of KxPicture is to paint a control tree at a size and resolution of its own, the source of every picture that
// leaves the program.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "host/Metafile.h"
#include "host/WindowControl.h"

namespace plotkit {

enum TLengthUnit : std::uint8_t
{
    luInch96,
    luPixels,
    luMillimetres
};
inline constexpr std::array<std::string_view, 3> LengthUnitNames{"luInch96", "luPixels", "luMillimetres"};
constexpr std::span<const std::string_view> ValueNames(TLengthUnit)
{
    return LengthUnitNames;
}

inline constexpr double InchMillimetres = 25.4;

/// A length as 1/96 inches; `dpi` says how large pixels are.
double Inches96(double length, TLengthUnit unit, double dpi);

/// The tree of `root` laid out anew with `scale` device pixels per 1/96 inch and painted on its own colour until it
/// settles, without the overlay; the root's scale and bounds are afterwards as before. With `light` a picture on dark
/// ground gets the colours of LightColors.
TMetafile PaintPicture(TWindowControl& root, TSize pixels, double scale, bool light);

}  // namespace plotkit
