// The job of PictureFile is a graph as the content of a picture file.
#pragma once

#include <string>

#include "plotkit/Options.h"
#include "qt/KxPicture.h"

namespace plotkit {

struct TPictureWish
{
    TPictureFormat Format = pfSvg;
    double Width = 160, Height = 120;  ///< in `Unit`
    TLengthUnit Unit = luMillimetres;
    int Dpi = 300;          ///< of PNG
    bool Antialias = true;  ///< of PNG
    bool LightBackground = false;
    std::string Title;  ///< of SVG and PDF documents
};

/// Needs a QApplication and the Qt host in force, which is told of errors while painting. ERangeError for sizes that
/// the format cannot have.
std::string DrawPicture(TWindowControl& root, const TPictureWish& wish);

}  // namespace plotkit
