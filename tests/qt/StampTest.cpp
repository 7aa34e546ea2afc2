#include <gtest/gtest.h>

#include <array>
#include <random>

#include "PixelSheet.h"
#include "graph/KxDraw.h"
#include "host/Canvas.h"
#include "host/Recording.h"
#include "qt/KxQtSprite.h"

namespace plotkit {

namespace {

std::shared_ptr<TRecording> SymbolShape(TKxPointSymbol symbol, int size, int penWidth = 1)
{
    auto shape = std::make_shared<TRecording>();
    const TFixedTextMeasurer measurer;
    TCanvas canvas(*shape, measurer);
    canvas.Pen.Color = clBlue;
    canvas.Pen.Width = penWidth;
    canvas.Brush.SetColor(clRed);
    DrawPointSymbol(0, 0, size, symbol, canvas);
    return shape;
}

std::vector<TPoint> RandomPoints(unsigned count)
{
    std::mt19937 random(3);
    const auto coordinate = [&] { return static_cast<int>(random() % 160) - 30; };
    std::vector<TPoint> points{MissingPoint};
    while (points.size() < count)
        points.push_back({coordinate(), coordinate()});
    points.push_back(points[1]);
    return points;
}

/// Moved and clipped painters: stamping draws what replaying at each point does.
void ExpectAsReplayed(const std::shared_ptr<TRecording>& shape, std::span<const TPoint> points, const TRect& clip)
{
    TPixelSheet stamped(100, 100), replayed(100, 100);
    for (TPixelSheet* sheet : {&stamped, &replayed}) {
        sheet->Painter().translate(12, 7);
        sheet->Painter().setClipRect(-12, -7, 95, 98);
    }
    TQtDevice moved(stamped.Painter()), reference(replayed.Painter());
    moved.Stamp(shape, points, {dmCopy, clip});
    DrawStamp(reference, *shape, points, {dmCopy, clip});
    EXPECT_TRUE(stamped.Image() == replayed.Image());
    EXPECT_FALSE(stamped.Marked().empty());
    EXPECT_LE(stamped.Extent().Right, 95);
}

}  // namespace

TEST(Stamp, DrawsWhatReplayingAtEachPointDraws)
{
    const auto few = RandomPoints(80), many = RandomPoints(300);
    for (int symbol = SyPoint; symbol <= LastPtSymbol; ++symbol) {
        for (const int size : {1, 2, 5, 6}) {
            for (const int width : {1, 3}) {
                SCOPED_TRACE(std::string(PointSymbolNames[static_cast<std::size_t>(symbol)]) + " " +
                             std::to_string(size) + " pen " + std::to_string(width));
                const auto shape = SymbolShape(static_cast<TKxPointSymbol>(symbol), size, width);
                EXPECT_TRUE(TQtSprite::Of(*shape));
                ExpectAsReplayed(shape, few, NoClip);
                ExpectAsReplayed(shape, many, {17, 20, 75, 83});
            }
        }
    }
}

TEST(Stamp, OfShapesThatDependOnTheirPlaceIsReplayed)
{
    const auto hatched = SymbolShape(SyDelta, 4), toggling = SymbolShape(SyDelta, 4), text = SymbolShape(SyDelta, 4),
               nested = SymbolShape(SyDelta, 4), huge = SymbolShape(SyDelta, 4);
    hatched->Rectangle({-5, -5, 6, 6}, Pen(), Brush(bsDiagonalCross), {});
    toggling->Rectangle({-3, -3, 4, 4}, Pen(psSolid, 1, clWhite), Brush(), {dmXor, NoClip});
    TTextRun run;
    run.Text = "x";
    text->Text(run, {});
    nested->Stamp(SymbolShape(SySquare, 3), std::array{TPoint{0, 0}, TPoint{2, 2}, TPoint{4, 4}, TPoint{6, 6}}, {});
    huge->Rectangle({-600, -1, 600, 2}, Pen(), NoBrush, {});
    for (const auto& shape : {hatched, toggling, text, nested, huge}) {
        EXPECT_FALSE(TQtSprite::Of(*shape));
        ExpectAsReplayed(shape, RandomPoints(60), NoClip);
    }
}

TEST(Lines, DrawWhatEachLineDraws)
{
    std::vector<TPoint> ends = RandomPoints(400);
    ends.erase(ends.begin());
    for (std::size_t i = 1; i < ends.size(); i += 4)  // along rows and columns
        ends[i] = i % 8 == 1 ? TPoint{ends[i - 1].X, ends[i].Y} : TPoint{ends[i].X, ends[i - 1].Y};
    ends.insert(ends.end(), {{5, 5}, {5, 5}, {-2000000000, 9}, {2000000000, 9}, {9, 3}, {9, 2147483647}});
    for (const TPenState& pen :
         {TPenState{clBlue, psSolid, 1}, TPenState{clBlue, psDash, 1}, TPenState{clRed, psSolid, 3}}) {
        TPixelSheet together(100, 100), apart(100, 100);
        for (TPixelSheet* sheet : {&together, &apart}) {
            sheet->Painter().translate(12, 7);
            sheet->Painter().setClipRect(-12, -7, 95, 98);
        }
        TQtDevice one(together.Painter()), other(apart.Painter());
        one.Lines(ends, pen, {dmCopy, {3, 2, 90, 80}});
        other.TDrawDevice::Lines(ends, pen, {dmCopy, {3, 2, 90, 80}});
        EXPECT_TRUE(together.Image() == apart.Image());
        EXPECT_FALSE(together.Marked().empty());
    }
}

}  // namespace plotkit
