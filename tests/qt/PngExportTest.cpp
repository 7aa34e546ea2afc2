#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cmath>
#include <limits>
#include <tuple>

#include "PixelSheet.h"
#include "host/Errors.h"
#include "host/Panel.h"
#include "qt/KxPngExport.h"

namespace plotkit {

namespace {

class TDiagonal : public TGraphicControl
{
public:
    using TGraphicControl::TGraphicControl;

protected:
    void Paint() override
    {
        Canvas().Brush.SetColor(clRed);
        Canvas().Rectangle(0, 0, GetWidth(), GetHeight());
        Canvas().MoveTo(0, 0);
        Canvas().LineTo(GetWidth(), GetHeight() / 3);
    }
};

struct TTree
{
    TTree() : Box(new TDiagonal(&Root))
    {
        Root.SetBounds(3, 4, 320, 200);
        Box->SetParent(&Root);
        Box->SetBounds(16, 8, 64, 40);
    }
    ~TTree()
    {
        EXPECT_EQ(Root.OwnPixelScale(), 1);
        EXPECT_EQ(Root.Bounds(), (TRect{3, 4, 323, 204}));
        EXPECT_EQ(Box->Bounds(), (TRect{16, 8, 80, 48}));
    }

    TPanel Root{nullptr};
    TDiagonal* Box;
};

}  // namespace

TEST(PngExport, HasTheWantedSizeAndResolution)
{
    const std::tuple<TPngOptions, QSize, int> cases[] = {
        {{600, 400, luInch96, 96, false}, {600, 400}, 3780}, {{600, 400, luInch96, 300, false}, {1875, 1250}, 11811},
        {{301, 99, luPixels, 300, false}, {301, 99}, 11811}, {{254, 127, luMillimetres, 100, false}, {1000, 500}, 3937},
        {{600, 400, luInch96, 144, true}, {900, 600}, 5669},
    };
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("größe.png"));
    for (const auto& [options, size, dotsPerMeter] : cases) {
        TTree tree;
        tree.Root.Canvas().FocusRect({0, 0, 30, 12});  // over it, and so not in the picture
        ExportPng(tree.Root, file.toStdString(), options);
        const QImage image(file);
        EXPECT_EQ(image.size(), size);
        EXPECT_EQ(QSize(image.dotsPerMeterX(), image.dotsPerMeterY()), QSize(dotsPerMeter, dotsPerMeter));
        const double scale = options.Dpi / 96;
        const auto pixel = [&](double x, double y) {
            return image.pixel(static_cast<int>(std::lround(x * scale)), static_cast<int>(std::lround(y * scale)));
        };
        EXPECT_EQ(pixel(16, 8), Black) << "the frame of the box";
        EXPECT_EQ(pixel(30, 12), Red);
        EXPECT_EQ(pixel(0, 0), pixel(1, 0)) << "no dots";
        EXPECT_EQ(image.convertToFormat(QImage::Format_Indexed8).colorCount() > 16, options.Antialias);
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

TEST(PngExport, FilesHoldEveryColour)
{
    for (const int colors : {1, 2, 256, 257}) {
        QImage image(40, 30, QImage::Format_RGB32);
        for (int i = 0; i < 1200; ++i)
            image.setPixel(i % 40, i / 40, static_cast<QRgb>(i % colors * 0x10203));
        const std::string file = PngFile(image);
        const QImage read = QImage::fromData(QByteArray::fromStdString(file));
        EXPECT_EQ(read.convertToFormat(QImage::Format_RGB32), image) << colors;
        EXPECT_EQ(read.format() == QImage::Format_RGB32, colors > 256);
    }
}

TEST(PngExport, WritesWholeFilesOrNone)
{
    TTree tree;
    const QTemporaryDir folder;
    const auto in = [&](const char* name) { return folder.filePath(QString::fromLatin1(name)).toStdString(); };
    try {
        ExportPng(tree.Root, in("none/a.png"), {});
        FAIL() << "written into a folder that is not there";
    } catch (const EFileError& error) {
        EXPECT_EQ(error.Message(), "Cannot write \"" + in("none/a.png") + "\": No such file or directory");
    }
    QDir(folder.path()).mkdir(QStringLiteral("folder.png"));
    EXPECT_THROW(ExportPng(tree.Root, in("folder.png"), {}), EFileError);
    EXPECT_TRUE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());

    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const TPngOptions& options :
         {TPngOptions{0, 10}, TPngOptions{10, 40000}, TPngOptions{-5, 5}, TPngOptions{nan, 5},
          TPngOptions{10, 10, luInch96, nan}, TPngOptions{10, 10, luPixels, 0}, TPngOptions{10, 10, luPixels, -96}})
        EXPECT_THROW(ExportPng(tree.Root, in("kept.png"), options), ERangeError);
    EXPECT_FALSE(QFile::exists(QString::fromStdString(in("kept.png"))));
}

}  // namespace plotkit
