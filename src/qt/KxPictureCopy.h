// The job of KxPictureCopy is to offer a picture to other programs in all forms that they may want.
#pragma once

#include <QImage>
#include <memory>

#include "host/WindowControl.h"

class QMimeData;

namespace plotkit {

class TMetafile;

struct TCopyOptions
{
    double Width = 0;  ///< 1/96 inches; 0: as the root is
    double Height = 0;
    double Dpi = 192;  ///< of the raster picture
    bool Antialias = true;
    bool LightBackground = false;
};

/// SVG, PDF and a raster picture, put on the clipboard as one thing. Raises what RenderImage and RenderVector raise.
void CopyPicture(TWindowControl& root, const TCopyOptions& options = {});

/// The vector forms of a picture with `image` as its raster form.
std::unique_ptr<QMimeData> MimeDataOf(const TMetafile& picture, const QImage& image);

}  // namespace plotkit
