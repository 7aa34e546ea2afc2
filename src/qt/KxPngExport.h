// The job of KxPngExport is to turn a control tree into a picture of any size and resolution.
#pragma once

#include <QImage>
#include <array>
#include <span>
#include <string>
#include <string_view>

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

struct TPngOptions
{
    double Width = 600;  ///< in `Unit`: 1/96 inches, pixels of the picture or millimetres
    double Height = 400;
    TLengthUnit Unit = luInch96;
    double Dpi = 96;  ///< pixels per inch; Dpi / 96 is the scale of the tree
    bool Antialias = false;
};

/// The tree of `root` as an opaque picture, without the overlay; the root's scale and bounds are afterwards as before.
/// ERangeError when the picture would have no pixels, more than 32767 along a side or more than memory holds.
QImage RenderImage(TWindowControl& root, const TPngOptions& options);
/// The same into a file, whole or not at all. EFileError names the file and the reason.
void ExportPng(TWindowControl& root, const std::string& fileName, const TPngOptions& options);
/// A picture that is there already, with its resolution.
void SavePng(const QImage& image, const std::string& fileName);

}  // namespace plotkit
