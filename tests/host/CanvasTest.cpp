#include "host/Canvas.h"

#include <gtest/gtest.h>

#include "host/Recording.h"

namespace plotkit {
namespace {

constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();

struct TCanvasTest : testing::Test
{
    TFixedTextMeasurer Measurer;
    TRecording Recording;
    TCanvas Canvas{Recording, Measurer};
};

TEST_F(TCanvasTest, ScalingRoundsToEvenAndNeverLosesAPixel)
{
    const std::vector<std::tuple<int, double, int>> pixels{
        {0, 4, 0},   {7, 1, 7},   {1, 0.1, 1},   {-1, 0.1, -1},   {1, 1.5, 2},
        {3, 1.5, 4}, {5, 0.5, 2}, {-3, 1.5, -4}, {Most, 2, Most}, {Least, 2, Least}};
    for (const auto& [value, scale, expected] : pixels)
        EXPECT_EQ(ScalePixels(value, scale), expected) << value << " at " << scale;
    const std::vector<std::tuple<int, double, int>> pens{{0, 1, 0}, {5, 1, 5},    {0, 4, 4},    {1, 4, 4},
                                                         {2, 4, 8}, {0, 0.25, 1}, {1, 0.25, 1}, {8, 0.25, 2}};
    for (const auto& [width, scale, expected] : pens) {
        TCanvas canvas(Recording, Measurer, scale);
        canvas.Pen.Width = width;
        EXPECT_EQ(canvas.DevicePen().Width, expected) << width << " at " << scale;
    }
}

TEST_F(TCanvasTest, EveryCallMovesByTheOriginAndCarriesTheState)
{
    Canvas.SetOrigin({100, 200});
    Canvas.Pen = {clBlue, psDash, 3, dmXor};
    Canvas.Brush.SetColor(clRed);
    Canvas.SetClipRect({0, 0, 50, 60});
    const TPenState pen{clBlue, psDash, 3};
    const TBrushState brush{clRed, bsSolid};
    const TDrawState state{dmXor, {100, 200, 150, 260}};
    const std::vector<TPoint> points{{1, 2}, {3, 4}}, moved{{101, 202}, {103, 204}};

    Canvas.MoveTo(1, 2);
    Canvas.LineTo(3, 4);
    Canvas.Polyline(points);
    Canvas.Polygon(points);
    Canvas.Ellipse(1, 2, 3, 4);
    Canvas.Rectangle(1, 2, 3, 4);
    Canvas.FocusRect({1, 2, 3, 4});
    Canvas.FillRect({1, 2, 3, 4});
    const auto shape = std::make_shared<TRecording>(Recording);
    Canvas.Stamp(shape, points);

    const TRect box{101, 202, 103, 204};
    const std::vector<TDrawCommand> expected{
        TLineCommand{{101, 202}, {103, 204}, pen, state},
        TPolylineCommand{moved, pen, state},
        TPolygonCommand{moved, pen, brush, state},
        TEllipseCommand{box, pen, brush, state},
        TRectangleCommand{box, pen, brush, state},
        TFocusRectCommand{box, state},
        TRectangleCommand{box, {clBlack, psClear, 1}, brush, state},
        TStampCommand{shape, moved, state},
    };
    EXPECT_EQ(Recording.Commands, expected);
    EXPECT_EQ(Canvas.PenPos(), (TPoint{3, 4}));
}

TEST_F(TCanvasTest, ClipFollowsTheOriginAndStaysInsideTheWindow)
{
    Canvas.SetOrigin({10, -10});
    EXPECT_EQ(Canvas.ClipRect(), NoClip);
    Canvas.SetWindowClip({0, 0, 100, 100});
    EXPECT_EQ(Canvas.ClipRect(), (TRect{-10, 10, 90, 110}));
    Canvas.SetClipRect({20, 30, 500, 40});
    EXPECT_EQ(Canvas.DeviceState().Clip, (TRect{30, 20, 100, 30}));
    Canvas.IntersectClipRect({0, 0, 25, 35});
    EXPECT_EQ(Canvas.ClipRect(), (TRect{20, 30, 25, 35}));
    Canvas.SetOrigin({});
    EXPECT_EQ(Canvas.ClipRect(), (TRect{30, 20, 35, 25}));
    Canvas.IntersectClipRect({600, 600, 700, 700});
    EXPECT_TRUE(Canvas.ClipRect().IsEmpty());
    Canvas.RemoveClip();
    EXPECT_EQ(Canvas.DeviceState().Clip, Canvas.WindowClip());
}

TEST_F(TCanvasTest, FarPositionsSaturate)
{
    Canvas.SetOrigin({Most, Least});
    Canvas.MoveTo(Most, Least);
    Canvas.LineTo(-1, 1);
    const TLineCommand expected{{Most, Least}, {Most - 1, Least + 1}, {}, {}};
    EXPECT_EQ(Recording.Commands, std::vector<TDrawCommand>{expected});
}

TEST_F(TCanvasTest, TextIsMeasuredByCharacterAndNeverExclusiveOr)
{
    Canvas.Font.Size = 9;  // 12 pixels, 6 a character
    Canvas.Pen.Mode = dmXor;
    Canvas.SetOrigin({1, 1});
    const std::vector<std::int32_t> measured{6, 12, 18}, given{4, 5};
    Canvas.TextOut(2, 3, "a\xC3\xA9\xFF");
    Canvas.TextOut(0, 0, "ab", given);
    Canvas.TextOut(0, 0, "");
    const TFontState& font = Canvas.Font;
    const std::vector<TDrawCommand> expected{
        TTextCommand{{{3, 4}, "a\xC3\xA9\xFF", measured, font, Canvas.Brush.State()}, {dmCopy, NoClip}},
        TTextCommand{{{1, 1}, "ab", given, font, Canvas.Brush.State()}, {dmCopy, NoClip}}};
    EXPECT_EQ(Recording.Commands, expected);
}

TEST_F(TCanvasTest, AColourMakesAClearBrushSolidAndAClearBrushFillsNothing)
{
    Canvas.Brush.SetStyle(bsClear);
    Canvas.FillRect({0, 0, 9, 9});
    EXPECT_TRUE(Recording.Commands.empty());
    Canvas.Brush.SetColor(clRed);
    EXPECT_EQ(Canvas.Brush.Style(), bsSolid);
    Canvas.Brush.SetStyle(bsCross);
    Canvas.Brush.SetColor(clBlue);
    EXPECT_EQ(Canvas.Brush.Style(), bsCross);
}

TEST(TextMeasurerTest, CountsCodePoints)
{
    const std::vector<std::tuple<const char*, int, int>> cases{
        {"abc", 3, 1},      {"\xC3\xA4", 1, 2},     {"\xE2\x82\xAC!", 2, 3}, {"\xF0\x9F\x98\x80", 1, 4},
        {"\xC0\x80", 2, 1}, {"\xE0\x80\x80", 3, 1}, {"\xED\xA0\x80", 3, 1},  {"\xF4\x90\x80\x80", 4, 1},
        {"\xE2\x82", 2, 1}, {"\x80", 1, 1},         {"\xFF\xFE", 2, 1}};
    for (const auto& [text, count, firstLength] : cases) {
        EXPECT_EQ(CodePointCount(text), count) << text;
        EXPECT_EQ(CodePointLength(text, 0), firstLength) << text;
    }
}

TEST(FontTest, AssignKeepsTheResolutionAndTellsOnlyOfChanges)
{
    TFont font, other;
    int changes = 0;
    font.OnChanged = [&] { ++changes; };
    other.SetSize(20);
    font.SetPixelsPerInch(192);
    font.Assign(other);
    font.Assign(other);
    font.SetSize(20);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(font.State().Height(), -53);
}

}  // namespace
}  // namespace plotkit
