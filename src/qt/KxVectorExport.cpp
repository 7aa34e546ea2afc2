#include "qt/KxVectorExport.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QPrinter>
#include <cmath>

#include "host/Errors.h"
#include "host/Host.h"
#include "host/StringList.h"
#include "host/SvgDevice.h"
#include "qt/KxQtVectorDevice.h"

namespace plotkit {

namespace {

constexpr double LargestSide = 19200;
constexpr double PointsPerInch96 = 72.0 / 96;

int SideOf(double length, TLengthUnit unit)
{
    const double side = Inches96(length, unit, 96);
    if (!(side >= 1 && side <= LargestSide))
        throw ERangeError("A page is from 1 to " + std::to_string(std::lround(LargestSide)) +
                          " 1/96 inches wide and high");
    return static_cast<int>(std::lround(side * VectorScale));
}

/// The picture for a page whose inner part has this size in 1/96 inches.
TMetafile PictureFor(TWindowControl& root, QSizeF page, const TPageOptions& options)
{
    const double scale = root.OwnPixelScale();
    TVectorOptions vector;
    vector.Width = options.Fill ? page.width() : root.GetWidth() / scale;
    vector.Height = options.Fill ? page.height() : root.GetHeight() / scale;
    vector.LightBackground = options.LightBackground;
    return RenderVector(root, vector);
}

/// As large as fits, in the middle.
QRectF Fitted(const TMetafile& picture, const QRectF& page)
{
    const QSizeF size = QSizeF(picture.Width, picture.Height).scaled(page.size(), Qt::KeepAspectRatio);
    QRectF target(QPointF(), size);
    target.moveCenter(page.center());
    return target;
}

void PaintPage(TWindowControl& root, QPagedPaintDevice& device, const TPageOptions& options)
{
    const QSizeF inches = device.pageLayout().paintRect(QPageLayout::Inch).size();
    const TMetafile picture = PictureFor(root, inches * 96, options);
    QPainter painter;
    if (!painter.begin(&device))
        throw EFileError("The page cannot be printed: the printer does not answer");
    DrawVectorPicture(painter, picture, Fitted(picture, QRectF(painter.viewport())));
}

/// What `draw` puts on the pages of a PDF document.
template <class TDraw>
std::string PdfDocument(const QPageLayout& layout, const std::string& title, TDraw draw)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(96 * VectorScale);
        writer.setPageLayout(layout);
        writer.setTitle(QString::fromStdString(title));
        writer.setCreator(QStringLiteral("Plotkit"));
        draw(writer);
    }
    return buffer.data().toStdString();
}

}  // namespace

TMetafile RenderVector(TWindowControl& root, const TVectorOptions& options)
{
    const TSize pixels{SideOf(options.Width, options.Unit), SideOf(options.Height, options.Unit)};
    return PaintPicture(root, pixels, VectorScale, options.LightBackground);
}

std::string RenderSvg(TWindowControl& root, const TVectorOptions& options)
{
    return SvgDocument(RenderVector(root, options), Host().TextMeasurer(), options.Title);
}

std::string RenderPdf(TWindowControl& root, const TVectorOptions& options)
{
    return PdfFile(RenderVector(root, options), options.Title);
}

std::string PdfFile(const TMetafile& picture, const std::string& title)
{
    const double points = PointsPerInch96 / picture.PixelScale;
    const QPageSize size(QSizeF(picture.Width * points, picture.Height * points), QPageSize::Point, {},
                         QPageSize::ExactMatch);
    QPageLayout layout(size, QPageLayout::Portrait, {});
    layout.setMode(QPageLayout::FullPageMode);
    return PdfDocument(layout, title, [&](QPdfWriter& writer) {
        QPainter painter(&writer);
        const double dots = 96 * VectorScale / (96 * picture.PixelScale);
        DrawVectorPicture(painter, picture, QRectF(0, 0, picture.Width * dots, picture.Height * dots));
    });
}

std::string RenderPdfPage(TWindowControl& root, const QPageLayout& paper, const TPageOptions& options)
{
    return PdfDocument(paper, options.Title, [&](QPdfWriter& writer) { PaintPage(root, writer, options); });
}

void PrintGraph(TWindowControl& root, QPrinter& printer, const TPageOptions& options)
{
    if (!options.Title.empty())
        printer.setDocName(QString::fromStdString(options.Title));
    PaintPage(root, printer, options);
}

void ExportSvg(TWindowControl& root, const std::string& fileName, const TVectorOptions& options)
{
    WriteWholeFile(fileName, RenderSvg(root, options));
}

void ExportPdf(TWindowControl& root, const std::string& fileName, const TVectorOptions& options)
{
    WriteWholeFile(fileName, RenderPdf(root, options));
}

}  // namespace plotkit
