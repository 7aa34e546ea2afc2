#include <gtest/gtest.h>

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QMimeData>
#include <QPrinter>
#include <QTemporaryDir>
#include <random>
#include <tuple>

#include "PixelSheet.h"
#include "graph/KxGraph2D.h"
#include "host/Errors.h"
#include "host/Form.h"
#include "host/Host.h"
#include "host/SvgDevice.h"
#include "qt/KxPictureCopy.h"
#include "qt/KxPngExport.h"
#include "qt/KxQtVectorDevice.h"
#include "qt/KxVectorExport.h"

namespace plotkit {

namespace {

/// A form filled by a dark graph.
struct TTree
{
    TTree() : Graph(new TKx2DGraph(&Form))
    {
        Form.SetBounds(3, 4, 600, 400);
        Graph->SetParent(&Form);
        Graph->SetAlign(alClient);
        Graph->SetColor(RgbColor(20, 20, 30));
        Graph->SetDataColor(RgbColor(20, 20, 30));
        Graph->SetCaption("Gr\xC3\xBC\xC3\x9F");
        Graph->SetShowTitle(true);
        Graph->GetTitleFont().SetColor(clWhite);
    }
    ~TTree()
    {
        EXPECT_EQ(Form.OwnPixelScale(), 1);
        EXPECT_EQ(Form.Bounds(), (TRect{3, 4, 603, 404}));
    }

    TForm Form{nullptr};
    TKx2DGraph* Graph;
};

bool Contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

/// Lines, fillings, hatches and texts, some cut, at four pixels per 1/96 inch.
TRecording Sample()
{
    TRecording picture;
    const TDrawState cut{dmCopy, {100, 100, 700, 500}};
    const std::vector<TPoint> zigzag{{20, 300}, {200, 40}, {320, 580}, {500, 60}, {780, 320}};
    picture.Polygon(zigzag, Pen(psClear), Brush(bsSolid, RgbColor(200, 220, 255)), cut);
    picture.Polygon(zigzag, Pen(psSolid, 4), Brush(bsBackwardDiagonal), cut);
    picture.Polyline(zigzag, Pen(psSolid, 8, clBlue), cut);
    picture.Polyline(zigzag, Pen(psSolid, 40, clGray), {dmCopy, {300, 200, 500, 400}});
    picture.Ellipse({40, 400, 240, 560}, Pen(psSolid, 8), Brush(), cut);
    picture.Ellipse({600, 30, 760, 90}, Pen(psSolid, 4), Brush(bsCross), {});
    picture.Rectangle({600, 440, 760, 560}, Pen(psSolid, 12), Brush(bsSolid, clBlue), {});
    picture.Line({40, 40}, {40, 560}, Pen(psSolid, 4), {});
    TTextRun run{{420, 80}, "Cut", {40, 80, 120}, {}, NoBrush};
    run.Font.Size = 40;
    run.Font.Color = clBlack;
    picture.Text(run, cut);
    const auto shape = std::make_shared<TRecording>();
    shape->Polygon(std::vector<TPoint>{{0, -20}, {20, 20}, {-20, 20}}, Pen(psSolid, 4), Brush(), {});
    picture.Stamp(shape, std::vector<TPoint>{{700, 300}, {560, 300}, {520, 300}, {600, 300}}, cut);
    return picture;
}

/// 50 x 37.5 1/96 inches.
TMetafile PictureOf(const std::vector<TPoint>& points, TPenStyle style = psSolid)
{
    TMetafile picture;
    picture.Width = 800;
    picture.Height = 600;
    picture.PixelScale = 16;
    picture.Recording.Polyline(points, Pen(style, 16), {});
    return picture;
}

/// So fine because Qt makes the edges darker where strokes lie on each other.
QImage Drawn(const TMetafile& picture)
{
    QImage image(picture.Width, picture.Height, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    DrawVectorPicture(painter, picture, QRectF(image.rect()));
    painter.end();
    return image;
}

/// 5,000 points across the picture.
template <class TOrdinate>
std::vector<TPoint> LongLine(TOrdinate y)
{
    std::vector<TPoint> points;
    for (int i = 0; i < 5000; ++i)
        points.push_back({50 + i * 7 / 50, static_cast<int>(300 + 250 * y(i))});
    return points;
}

}  // namespace

TEST(VectorExport, LongLinesLookAsAllTheirPointsDo)
{
    std::mt19937 random(7);
    std::normal_distribution<double> one;
    double walk = 0;
    auto circle = LongLine([](int i) { return std::sin(i * 12e-4); });
    for (std::size_t i = 0; i < circle.size(); ++i)
        circle[i].X = static_cast<int>(400 + 250 * std::cos(12e-4 * static_cast<double>(i)));
    const std::tuple<const char*, std::vector<TPoint>, int, double> cases[]{
        {"noise", LongLine([&](int) { return one(random) / 4; }), 120, 5},
        {"walk", LongLine([&](int) { return walk += one(random) / 150; }), 80, 18},
        {"spikes", LongLine([&](int i) { return i % 1171 == 0 ? 1 : one(random) / 50; }), 48, 5},
        {"steps", LongLine([](int i) { return i / 777 % 2; }), 24, 3},
        {"circle", circle, 24, 12},
    };
    for (const auto& [name, points, most, mean] : cases) {
        TMetafile picture = PictureOf(points);
        const QImage kept = Drawn(picture);
        picture.PixelScale = 1;  // where nothing is merged
        const QImage all = Drawn(picture);
        for (const int zoom : {1, 4}) {
            const QImage a = all.scaledToWidth(50 * zoom, Qt::SmoothTransformation);
            const QImage b = kept.scaledToWidth(50 * zoom, Qt::SmoothTransformation);
            double drawn = 0, sum = 0, worst = 0;
            for (int y = 0; y < a.height(); ++y)
                for (int x = 0; x < a.width(); ++x) {
                    const int was = qGray(a.pixel(x, y)), difference = std::abs(was - qGray(b.pixel(x, y)));
                    drawn += was < 255;
                    sum += difference;
                    worst = std::max<double>(worst, difference);
                }
            EXPECT_LE(worst, zoom == 1 ? most : 255) << name;
            EXPECT_LE(sum / drawn, mean) << name << " " << zoom;
        }
    }
    const auto size = [&](TPenStyle style) {
        return SvgDocument(PictureOf(std::get<1>(cases[0]), style), Host().TextMeasurer()).size();
    };
    EXPECT_LT(size(psSolid), 1600U);
    EXPECT_GT(size(psDash), 12000U) << "dashes would stand elsewhere";
    EXPECT_LT(PdfFile(PictureOf(std::get<1>(cases[0])), {}).size(), 2400U);
}

TEST(VectorExport, ShapesLookAsTheRasterDeviceDrawsThem)
{
    TPixelSheet raster(800, 600), vector(800, 600);
    raster.Painter().setRenderHint(QPainter::Antialiasing);
    TQtDevice device(raster.Painter(), 4);
    Sample().Replay(device);
    TMetafile picture;
    picture.Width = 800;
    picture.Height = 600;
    picture.PixelScale = 4;
    picture.Recording = Sample();
    DrawVectorPicture(vector.Painter(), picture, QRectF(0, 0, 800, 600));
    int different = 0, drawn = 0;
    for (int y = 0; y < 600; ++y)
        for (int x = 0; x < 800; ++x) {
            const QColor a = raster.Image().pixelColor(x, y), b = vector.Image().pixelColor(x, y);
            drawn += a != QColor(Qt::white);
            different += std::abs(a.red() - b.red()) > 128 || std::abs(a.blue() - b.blue()) > 128;
        }
    EXPECT_GT(drawn, 100000);
    EXPECT_LT(different, drawn / 300);
}

TEST(VectorExport, DocumentsHaveTheSizeAskedForAndTextAsText)
{
    TTree tree;
    const TVectorOptions options{127, 254, luMillimetres, false, "Wei\xC3\x9F & <schwarz>"};
    const std::string svg = RenderSvg(tree.Form, options), pdf = RenderPdf(tree.Form, options);
    EXPECT_TRUE(Contains(svg, " width=\"480\" height=\"960\" viewBox=\"0 0 7680 15360\""));
    EXPECT_TRUE(Contains(svg, ">Gr\xC3\xBC\xC3\x9F</text>"));
    EXPECT_TRUE(Contains(svg, "<title>Wei\xC3\x9F &amp; &lt;schwarz&gt;</title>"));
    EXPECT_EQ(svg, RenderSvg(tree.Form, options));
    EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
    EXPECT_TRUE(Contains(pdf, "/MediaBox [0 0 360.0"));
    EXPECT_TRUE(Contains(pdf, "/FontFile2") && Contains(pdf, "/ToUnicode"));
    const QPageLayout a4(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF(40, 40, 40, 40));
    EXPECT_TRUE(Contains(RenderPdfPage(tree.Form, a4, {}), "/MediaBox [0 0 842.0"));

    for (const TVectorOptions& bad : {TVectorOptions{0, 10}, TVectorOptions{10, 19201}, TVectorOptions{10, -1}})
        EXPECT_THROW(RenderSvg(tree.Form, bad), ERangeError);
}

TEST(VectorExport, LightBackgroundOnRequestOnly)
{
    TTree tree;
    TVectorOptions vector;
    EXPECT_TRUE(Contains(RenderSvg(tree.Form, vector), "<g fill=\"#14141e\">"));
    vector.LightBackground = true;
    EXPECT_FALSE(Contains(RenderSvg(tree.Form, vector), "#14141e"));
    TPngOptions png;
    EXPECT_EQ(RenderImage(tree.Form, png).pixel(0, 0), 0xFF14141E);
    png.LightBackground = true;
    EXPECT_EQ(RenderImage(tree.Form, png).pixel(0, 0), White);
}

TEST(VectorExport, WritesWholeFilesOrNone)
{
    TTree tree;
    const QTemporaryDir folder;
    const auto in = [&](const char* name) { return folder.filePath(QString::fromLatin1(name)).toStdString(); };
    EXPECT_THROW(ExportSvg(tree.Form, in("none/a.svg"), {}), EFileError);
    EXPECT_THROW(ExportPdf(tree.Form, in("none/a.pdf"), {}), EFileError);
    EXPECT_TRUE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
    ExportSvg(tree.Form, in("a.svg"), {});
    ExportPdf(tree.Form, in("a.pdf"), {});
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath(QStringLiteral("b.pdf")));
    printer.setPageSize(QPageSize(QPageSize::A5));
    PrintGraph(tree.Form, printer, {true, true, "Print"});
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), (QStringList{"a.pdf", "a.svg", "b.pdf"}));
    QFile printed(printer.outputFileName());
    ASSERT_TRUE(printed.open(QIODevice::ReadOnly));
    EXPECT_TRUE(printed.readAll().contains("/MediaBox [0 0 420.0"));
}

TEST(VectorExport, TheClipboardHoldsAllFormsAtOnce)
{
    TTree tree;
    const QClipboard* clipboard = QGuiApplication::clipboard();
    CopyPicture(tree.Form);
    EXPECT_TRUE(clipboard->mimeData()->data("image/svg+xml").contains("viewBox=\"0 0 9600 6400\""));
    EXPECT_TRUE(clipboard->mimeData()->data("application/pdf").startsWith("%PDF-"));
    EXPECT_EQ(clipboard->image().size(), QSize(1200, 800));
    EXPECT_EQ(Host().ClipboardMetafile(), nullptr);
    tree.Graph->CopyToClipboard();
    EXPECT_TRUE(clipboard->mimeData()->data("image/svg+xml").contains("viewBox=\"0 0 600 400\""));
    EXPECT_EQ(clipboard->image().size(), QSize(600, 400));
    EXPECT_NE(Host().ClipboardMetafile(), nullptr);
}

}  // namespace plotkit
