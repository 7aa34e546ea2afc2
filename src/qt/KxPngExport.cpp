#include "qt/KxPngExport.h"

#include <QImageWriter>
#include <QPainter>
#include <QSaveFile>
#include <cmath>

#include "host/Errors.h"
#include "qt/KxQtDevice.h"

namespace plotkit {

namespace {

constexpr int LargestSide = 32767;
constexpr double InchMillimetres = 25.4;
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

/// Puts a root back to the resolution and place it had.
class TRootGuard
{
public:
    explicit TRootGuard(TWindowControl& root) : FRoot(root), FScale(root.OwnPixelScale()), FBounds(root.Bounds()) {}
    TRootGuard(const TRootGuard&) = delete;
    TRootGuard& operator=(const TRootGuard&) = delete;
    ~TRootGuard()
    {
        try {
            FRoot.SetPixelScale(FScale);
            FRoot.SetBounds(FBounds.Left, FBounds.Top, FBounds.Width(), FBounds.Height());
        } catch (const std::exception& error) {
            Host().HandleError(error);
        }
    }

private:
    TWindowControl& FRoot;
    double FScale;
    TRect FBounds;
};

[[noreturn]] void RaiseCannotWrite(const std::string& fileName, const QString& reason)
{
    throw EFileError("Cannot write \"" + fileName + "\": " + reason.toStdString());
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
    image.fill(QtColor(root.GetColor()));

    const int fineness = options.Antialias ? Fineness : 1;
    const TRootGuard guard(root);
    const double scale = options.Dpi / 96 * fineness;
    root.SetPixelScale(scale);
    root.SetBounds(root.GetLeft(), root.GetTop(), width * fineness, height * fineness);
    const TRecording picture = root.Picture();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, options.Antialias);
    painter.scale(1.0 / fineness, 1.0 / fineness);
    TQtDevice device(painter, scale);
    picture.Replay(device);
    return image;
}

void SavePng(const QImage& image, const std::string& fileName)
{
    QSaveFile file(QString::fromStdString(fileName));
    if (!file.open(QIODevice::WriteOnly))
        RaiseCannotWrite(fileName, file.errorString());
    QImageWriter writer(&file, "png");
    if (!writer.write(image)) {
        const QString reason = file.error() != QFileDevice::NoError ? file.errorString() : writer.errorString();
        file.cancelWriting();
        RaiseCannotWrite(fileName, reason);
    }
    if (!file.commit())
        RaiseCannotWrite(fileName, file.errorString());
}

void ExportPng(TWindowControl& root, const std::string& fileName, const TPngOptions& options)
{
    SavePng(RenderImage(root, options), fileName);
}

}  // namespace plotkit
