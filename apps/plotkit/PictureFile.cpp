#include "plotkit/PictureFile.h"

#include "qt/KxPngExport.h"
#include "qt/KxVectorExport.h"

namespace plotkit {

std::string DrawPicture(TWindowControl& root, const TPictureWish& wish)
{
    if (wish.Format == pfPng) {
        TPngOptions png;
        png.Width = wish.Width;
        png.Height = wish.Height;
        png.Unit = wish.Unit;
        png.Dpi = wish.Dpi;
        png.Antialias = wish.Antialias;
        png.LightBackground = wish.LightBackground;
        return PngFile(RenderImage(root, png));
    }
    TVectorOptions vector;
    vector.Width = wish.Width;
    vector.Height = wish.Height;
    vector.Unit = wish.Unit;
    vector.LightBackground = wish.LightBackground;
    vector.Title = wish.Title;
    return wish.Format == pfSvg ? RenderSvg(root, vector) : RenderPdf(root, vector);
}

}  // namespace plotkit
