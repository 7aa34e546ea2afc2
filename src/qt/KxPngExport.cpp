#include "qt/KxPngExport.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>
#include <cmath>

#include "host/Errors.h"
#include "host/StringList.h"
#include "qt/KxPalette.h"
#include "qt/KxQtDevice.h"

namespace plotkit {

namespace {

constexpr int LargestSide = 32767;
/// Antialiased pictures are laid out so much finer, then drawn through a transform.
constexpr int Fineness = 4;

int PixelsOf(double length, const TPngOptions& options)
{
    const double perUnit = options.Unit == luPixels   ? 1
                           : options.Unit == luInch96 ? options.Dpi / 96
                                                      : options.Dpi / InchMillimetres;
    const double pixels = std::round(length * perUnit);
    if (!(pixels >= 1 && pixels <= LargestSide))
        throw ERangeError("A picture is from 1 to " + std::to_string(LargestSide) + " pixels wide and high");
    return static_cast<int>(pixels);
}

}  // namespace

QImage RenderImage(TWindowControl& root, const TPngOptions& options)
{
    const int width = PixelsOf(options.Width, options), height = PixelsOf(options.Height, options);
    QImage image(width, height, QImage::Format_RGB32);
    if (image.isNull())
        throw ERangeError("There is no memory for a picture of " + std::to_string(width) + " x " +
                          std::to_string(height) + " pixels");
    image.setDotsPerMeterX(static_cast<int>(std::lround(options.Dpi * 1000 / InchMillimetres)));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    image.fill(Qt::white);

    const int fineness = options.Antialias ? Fineness : 1;
    const double scale = options.Dpi / 96 * fineness;
    const TMetafile picture = PaintPicture(root, {width * fineness, height * fineness}, scale, options.LightBackground);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, options.Antialias);
    painter.scale(1.0 / fineness, 1.0 / fineness);
    TQtDevice device(painter, scale);
    picture.Recording.Replay(device);
    return image;
}

std::string PngFile(const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "png");
    if (!writer.write(WithPalette(image)))
        throw EFileError("Cannot write the picture: " + writer.errorString().toStdString());
    return buffer.data().toStdString();
}

void SavePng(const QImage& image, const std::string& fileName)
{
    WriteWholeFile(fileName, PngFile(image));
}

void ExportPng(TWindowControl& root, const std::string& fileName, const TPngOptions& options)
{
    SavePng(RenderImage(root, options), fileName);
}

}  // namespace plotkit
