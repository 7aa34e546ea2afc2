#include "qt/KxPictureCopy.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "host/Host.h"
#include "host/SvgDevice.h"
#include "qt/KxPngExport.h"
#include "qt/KxVectorExport.h"

namespace plotkit {

std::unique_ptr<QMimeData> MimeDataOf(const TMetafile& picture, const QImage& image)
{
    auto data = std::make_unique<QMimeData>();
    const auto add = [&](const char* type, const std::string& content) {
        data->setData(QString::fromLatin1(type), QByteArray::fromStdString(content));
    };
    add("image/svg+xml", SvgDocument(picture, Host().TextMeasurer()));
    add("application/pdf", PdfFile(picture, {}));
    data->setImageData(image);
    return data;
}

void CopyPicture(TWindowControl& root, const TCopyOptions& options)
{
    const double scale = root.OwnPixelScale();
    TVectorOptions vector;
    vector.Width = options.Width > 0 ? options.Width : root.GetWidth() / scale;
    vector.Height = options.Height > 0 ? options.Height : root.GetHeight() / scale;
    vector.LightBackground = options.LightBackground;
    TPngOptions raster;
    raster.Width = vector.Width;
    raster.Height = vector.Height;
    raster.Dpi = options.Dpi;
    raster.Antialias = options.Antialias;
    raster.LightBackground = options.LightBackground;
    const QImage image = RenderImage(root, raster);
    // The clipboard takes it.
    QGuiApplication::clipboard()->setMimeData(MimeDataOf(RenderVector(root, vector), image).release());
}

}  // namespace plotkit
