// The job of KxPngExport is to turn a control tree into a raster picture of any size and resolution.
#pragma once

#include <QImage>
#include <string>

#include "qt/KxPicture.h"

namespace plotkit {

struct TPngOptions
{
    double Width = 600;  ///< in `Unit`: 1/96 inches, pixels of the picture or millimetres
    double Height = 400;
    TLengthUnit Unit = luInch96;
    double Dpi = 96;  ///< pixels per inch; Dpi / 96 is the scale of the tree
    bool Antialias = false;
    bool LightBackground = false;  ///< a picture on dark ground in colours for white paper
};

/// The tree of `root` as an opaque picture, without the overlay; the root's scale and bounds are afterwards as before.
/// ERangeError when the picture would have no pixels, more than 32767 along a side or more than memory holds.
QImage RenderImage(TWindowControl& root, const TPngOptions& options);
/// The same into a file, whole or not at all. EFileError names the file and the reason.
void ExportPng(TWindowControl& root, const std::string& fileName, const TPngOptions& options);
/// A picture that is there already, with its resolution.
void SavePng(const QImage& image, const std::string& fileName);
/// The content of such a file. EFileError when there is no memory for it.
std::string PngFile(const QImage& image);

}  // namespace plotkit
