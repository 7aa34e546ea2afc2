#include "host/Recording.h"

#include <gtest/gtest.h>

namespace plotkit {
namespace {

const TPenState Pen{clRed, psSolid, 1};
const TBrushState Brush{clWindow, bsCross};

/// One command of each kind.
TRecording Sample(TPoint at = {})
{
    TRecording recording;
    const std::vector<TPoint> points{{at.X, at.Y}, {at.X + 5, at.Y + 6}};
    const TRect box{at.X, at.Y, at.X + 3, at.Y + 4};
    const TDrawState clipped{dmXor, {at.X, at.Y, at.X + 9, at.Y + 9}};
    recording.Line(points[0], points[1], Pen, {});
    recording.Polyline(points, Pen, clipped);
    recording.Polygon(points, Pen, Brush, {});
    recording.Ellipse(box, Pen, Brush, {});
    recording.Rectangle(box, Pen, Brush, {});
    recording.FocusRect(box, {});
    TTextRun run{at, "a\"\n\xFF\xC3\xA9", {5, 10, 15, 20, 25}, {}, {}};
    run.Font.Bold = true;
    run.Font.Angle = 900;
    recording.Text(run, {});
    const auto shape = std::make_shared<TRecording>();
    shape->Ellipse({-1, -1, 2, 2}, Pen, Brush, {dmXor, {0, 0, 1, 1}});
    recording.Stamp(shape, points, {});
    recording.Stamp(std::make_shared<TRecording>(*shape), points, {});
    return recording;
}

TEST(RecordingTest, ReplayEqualsTheRecordMovedOrNot)
{
    TRecording same, moved;
    Sample().Replay(same);
    Sample().Replay(moved, {30, -40});
    EXPECT_EQ(same, Sample());
    EXPECT_EQ(moved, Sample({30, -40}));
    EXPECT_FALSE(same == moved);
    same.Replay(same);
    EXPECT_EQ(same.Commands.size(), 2 * Sample().Commands.size());
}

TEST(RecordingTest, TextHasOneLineACommandAndListsEqualShapesOnce)
{
    const char* expected =
        "line 0,0 5,6 pen #FF0000 psSolid 1\n"
        "polyline 0,0 5,6 pen #FF0000 psSolid 1 xor clip 0,0..9,9\n"
        "polygon 0,0 5,6 pen #FF0000 psSolid 1 brush system5 bsCross\n"
        "ellipse 0,0..3,4 pen #FF0000 psSolid 1 brush system5 bsCross\n"
        "rectangle 0,0..3,4 pen #FF0000 psSolid 1 brush system5 bsCross\n"
        "focus 0,0..3,4\n"
        "text 0,0 \"a\\\"\\x0A\\xFF\xC3\xA9\" advances 5 10 15 20 25 font \"Arial\" 8 system8 bold angle 900"
        " on #FFFFFF bsSolid\n"
        "shape 1\n"
        "  ellipse -1,-1..2,2 pen #FF0000 psSolid 1 brush system5 bsCross xor clip 0,0..1,1\n"
        "stamp 1 0,0 5,6\n"
        "stamp 1 0,0 5,6\n";
    EXPECT_EQ(Sample().ToText(), expected);
}

TEST(RecordingTest, ExpandedStampsTakeTheirClipFromTheCall)
{
    const auto dot = std::make_shared<TRecording>(), pair = std::make_shared<TRecording>();
    const std::vector<TPoint> two{{0, 0}, {10, 0}}, one{{100, 200}};
    const TRect clip{0, 0, 500, 500};
    dot->Line({0, 0}, {0, 1}, Pen, {dmXor, {0, 0, 1, 1}});
    pair->Stamp(dot, two, {});
    TRecording recording, expected;
    recording.Stamp(pair, one, {dmCopy, clip});
    expected.Line({100, 200}, {100, 201}, Pen, {dmXor, clip});
    expected.Line({110, 200}, {110, 201}, Pen, {dmXor, clip});
    EXPECT_EQ(recording.Expanded(), expected);
}

TEST(RecordingTest, ReplayLeavesOutFillingsThatTheNextOneCovers)
{
    const TPenState none{clBlack, psClear, 1};
    const TRect page{0, 0, 50, 40};
    const auto left = [&](const TRect& above, const TBrushState& brush, const TDrawState& state) {
        TRecording picture, replayed;
        picture.Rectangle({0, 0, 90, 90}, none, {clRed, bsSolid}, {dmCopy, page});
        picture.Rectangle(above, none, brush, state);
        picture.Replay(replayed);
        return replayed.Commands.size();
    };
    EXPECT_EQ(left(page, {clBlue, bsSolid}, {}), 1U);
    EXPECT_EQ(left({1, 0, 50, 40}, {clBlue, bsSolid}, {}), 2U);
    EXPECT_EQ(left(page, {clBlue, bsCross}, {}), 2U);
    EXPECT_EQ(left(page, {clBlue, bsSolid}, {dmXor, page}), 2U);
    EXPECT_EQ(left(page, {clBlue, bsSolid}, {dmCopy, {0, 0, 50, 39}}), 2U);
}

TEST(OverlayTest, TheSameExclusiveOrCommandTakesItsTwinAway)
{
    TOverlay overlay;
    const auto draw = [&overlay] {
        overlay.Line({0, 0}, {8, 0}, Pen, {dmXor, NoClip});
        overlay.FocusRect({1, 2, 3, 4}, {});
        overlay.Ellipse({1, 2, 3, 4}, Pen, Brush, {dmXor, NoClip});
    };
    draw();
    overlay.Line({0, 0}, {9, 0}, Pen, {});
    overlay.Line({0, 0}, {9, 0}, Pen, {});
    EXPECT_EQ(overlay.Commands.size(), 5U);
    draw();
    ASSERT_EQ(overlay.Commands.size(), 2U);
    EXPECT_EQ(std::get<TLineCommand>(overlay.Commands[0]).To, (TPoint{9, 0}));
}

}  // namespace
}  // namespace plotkit
