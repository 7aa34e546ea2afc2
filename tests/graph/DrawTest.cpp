#include "graph/KxDraw.h"

#include <gtest/gtest.h>

#include "host/Errors.h"
#include "host/Recording.h"
#include "host/WindowControl.h"

namespace plotkit {
namespace {

struct TDrawTest : testing::Test
{
    TFixedTextMeasurer Measurer;
    TRecording Recording;
    TCanvas Canvas{Recording, Measurer};

    void SetUp() override
    {
        Canvas.Pen = {clBlue, psDash, 1, dmCopy};
        Canvas.Brush.SetColor(clWhite);
    }
    template <class T>
    const T& Command(std::size_t i) const
    {
        return std::get<T>(Recording.Commands.at(i));
    }
};

using TPoints = std::vector<TPoint>;

TEST_F(TDrawTest, LinesAndFramesMakeAThinPenTheThinnest)
{
    DrawLine(1, 2, 3, 4, Canvas);
    EXPECT_EQ(Canvas.Pen.Width, 0);
    EXPECT_EQ(Command<TLineCommand>(0), (TLineCommand{{1, 2}, {3, 4}, {clBlue, psDash, 0}, {}}));
    Canvas.Pen.Width = 2;
    DrawFrame(1, 2, 3, 4, Canvas);
    EXPECT_EQ(Canvas.Pen.Width, 2);
    EXPECT_EQ(Command<TPolylineCommand>(1).Points, (TPoints{{1, 2}, {1, 4}, {3, 4}, {3, 2}, {1, 2}}));
}

TEST_F(TDrawTest, SymbolsOfLinesStartAtTheCentre)
{
    const TPoints cross{{15, 10}, {5, 10}, {10, 15}, {10, 5}}, x{{15, 15}, {15, 5}, {5, 15}, {5, 5}};
    TPoints star = cross;
    star.insert(star.end(), x.begin(), x.end());
    const auto unknown = static_cast<TKxPointSymbol>(LastPtSymbol + 1);
    const std::vector<std::pair<TKxPointSymbol, TPoints>> cases{
        {SyPoint, {{10, 11}}}, {SyCross, cross}, {SyX, x}, {SyStar, star}, {unknown, {}}};
    for (const auto& [symbol, ends] : cases) {
        Recording.Clear();
        DrawPointSymbol(10, 10, 5, symbol, Canvas);
        ASSERT_EQ(Recording.Commands.size(), ends.size()) << symbol;
        for (std::size_t i = 0; i < ends.size(); ++i)
            EXPECT_EQ(Command<TLineCommand>(i), (TLineCommand{{10, 10}, ends[i], {clBlue, psSolid, 1}, {}})) << symbol;
    }
    DrawPointSymbols(TPoints{{1, 1}}, 5, unknown, Canvas);
    EXPECT_TRUE(Recording.Commands.empty());
}

TEST_F(TDrawTest, ClosedSymbolsAreFilledWithTheBrushOrThePen)
{
    const TPoints star{{0, -10}, {2, -3}, {10, -3}, {4, 1}, {6, 8}, {0, 4}, {-6, 8}, {-4, 1}, {-10, -3}, {-2, -3}};
    const TPenState pen{clBlue, psSolid, 1};
    const TRect box{-10, -10, 11, 11};
    for (const bool filled : {false, true}) {
        const TBrushState brush{filled ? clBlue : clWhite, bsSolid};
        const std::vector<std::pair<TKxPointSymbol, TDrawCommand>> cases{
            {Sy5Star, TPolygonCommand{star, pen, brush, {}}},
            {SyDiamond, TPolygonCommand{{{0, -10}, {10, 0}, {0, 10}, {-10, 0}}, pen, brush, {}}},
            {SyDelta, TPolygonCommand{{{0, -10}, {10, 10}, {-10, 10}}, pen, brush, {}}},
            {SyNabla, TPolygonCommand{{{-10, -10}, {10, -10}, {0, 10}}, pen, brush, {}}},
            {SyCircle, TEllipseCommand{box, pen, brush, {}}},
            {SySquare, TRectangleCommand{box, pen, brush, {}}}};
        for (const auto& [symbol, expected] : cases) {
            Recording.Clear();
            Canvas.Brush.SetColor(clWhite);
            Canvas.Brush.SetStyle(bsCross);
            DrawPointSymbol(0, 0, 10, static_cast<TKxPointSymbol>(symbol + filled), Canvas);
            EXPECT_EQ(Recording.Commands, std::vector{expected}) << symbol << filled;
        }
    }
}

TEST_F(TDrawTest, OneStampIsThePictureOfManySymbols)
{
    const TPoints points{{10, 20}, MissingPoint, {-3, 7}, {10, 20}};
    for (const double scale : {1.0, 3.0})
        for (int symbol = 0; symbol <= LastPtSymbol; ++symbol) {
            TRecording stamped, single;
            TCanvas stamps(stamped, Measurer, scale), singles(single, Measurer, scale);
            for (TCanvas* canvas : {&stamps, &singles}) {
                canvas->SetOrigin({100, 200});
                canvas->SetClipRect({0, 0, 50, 60});
                canvas->Pen = {clRed, psDot, 2, dmXor};
                canvas->Brush.SetStyle(bsClear);
            }
            DrawPointSymbols(points, 4, static_cast<TKxPointSymbol>(symbol), stamps);
            for (const TPoint& point : points)
                DrawPointSymbol(point.X, point.Y, 4, static_cast<TKxPointSymbol>(symbol), singles);
            ASSERT_EQ(stamped.Commands.size(), 1U);
            EXPECT_EQ(std::get<TStampCommand>(stamped.Commands[0]).Points.size(), 3U);
            EXPECT_EQ(stamped.Expanded(), single) << symbol;
            EXPECT_EQ(stamps.Brush.State(), singles.Brush.State());
        }
}

TEST_F(TDrawTest, ArrowHeadsStandBehindTheTip)
{
    const std::vector<std::tuple<TPoint, TPoint, int, int, TPoints>> cases{
        {{0, 0}, {30, 40}, 10, 5, {{30, 40}, {28, 29}, {20, 35}}},
        {{30, 40}, {0, 0}, 10, 5, {{0, 0}, {2, 11}, {10, 5}}},
        {{0, 0}, {0, 20}, 10, 4, {{0, 20}, {4, 10}, {-4, 10}}},
        {{0, 0}, {64, 0}, 8, 4, {{64, 0}, {56, -4}, {56, 4}}},
        {{0, 0}, {147, 0}, 10, 5, {{147, 0}, {147, 0}, {147, 0}}},  // rounding overshoots
    };
    for (const auto& [from, to, length, width, head] : cases) {
        Recording.Clear();
        DrawArrow(from.X, from.Y, to.X, to.Y, length, width, Canvas);
        EXPECT_EQ(Command<TLineCommand>(0).To, to);
        EXPECT_EQ(Command<TPolygonCommand>(1), (TPolygonCommand{head, {clBlue, psDash, 0}, {clBlue, bsSolid}, {}}));
    }
    Recording.Clear();
    DrawArrow(7, 8, 7, 8, 0, 0, Canvas);
    ASSERT_EQ(Recording.Commands.size(), 1U);
    EXPECT_EQ(Command<TLineCommand>(0).To, (TPoint{7, 9}));
    EXPECT_EQ(Canvas.Brush.Style(), bsClear);
    EXPECT_THROW(DrawArrow(0, 0, 5, 5, 0, 3, Canvas), EMathError);
}

TEST_F(TDrawTest, BarsShowThreeFacesFromAnyCorners)
{
    const std::vector<std::array<int, 6>> corners{
        {10, 20, 30, 60, 4, 3}, {30, 60, 10, 20, 4, 3}, {10, 60, 30, 20, -4, 3}, {30, 20, 10, 60, 4, -3}};
    const TPenState pen{clBlack, psSolid, 1};
    const std::vector<TDrawCommand> expected{
        TRectangleCommand{{10, 20, 30, 60}, pen, {clRed, bsSolid}, {}},
        TPolygonCommand{{{10, 20}, {29, 20}, {33, 16}, {14, 16}}, pen, {clGray, bsSolid}, {}},
        TPolygonCommand{{{29, 20}, {33, 16}, {33, 56}, {29, 59}}, pen, {clBlue, bsSolid}, {}},
    };
    for (const auto& c : corners) {
        Recording.Clear();
        Canvas.Brush.SetStyle(bsCross);
        Draw3DBar(c[0], c[1], c[2], c[3], c[4], c[5], clBlack, clRed, clGray, clBlue, Canvas);
        EXPECT_EQ(Recording.Commands, expected);
    }
}

class TTestControl : public TWindowControl
{
public:
    using TWindowControl::TWindowControl;
    void Invalidate() override { ++Changes; }
    int Changes = 0;
};

TEST(StyleTest, OwnersHearOfChangesOnce)
{
    TTestControl owner(nullptr);
    TKxLineStyle line(&owner), otherLine(nullptr);
    TKxAreaStyle area(&owner);
    TKxPointStyle points(&owner);
    owner.Changes = 0;
    line.SetWidth(line.GetWidth());
    area.SetDrawXOred(area.GetDrawXOred());
    points.SetSize(-3);  // no size is the usual one
    EXPECT_EQ(owner.Changes, 0);
    line.SetWidth(-3);
    area.SetStyle(bsCross);
    points.SetWidth(-3);
    EXPECT_EQ(owner.Changes, 3);
    EXPECT_EQ(points.GetSize(), 5);
    EXPECT_EQ(line.GetWidth() | points.GetWidth(), 0);
    otherLine.SetStyle(psDot);
    line.Assign(otherLine);
    line.Assign(otherLine);
    EXPECT_EQ(owner.Changes, 4);
    EXPECT_EQ(line.GetStyle(), psDot);
    EXPECT_THROW(line.Assign(area), EConvertError);
}

}  // namespace
}  // namespace plotkit
