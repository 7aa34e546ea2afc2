#include <cmath>
#include <numeric>

#include "host/Host.h"
#include "series/SeriesFixture.h"

namespace plotkit {
namespace {

class TDataSeriesTest : public TSeriesTest
{
protected:
    TDataSeriesTest() { Series->GetPointStyle().SetVisible(false); }

    static std::vector<TPolylineCommand> LinesOf(const TRecording& picture, TColor color = clRed)
    {
        auto lines = CommandsOf<TPolylineCommand>(picture);
        std::erase_if(lines, [color](const TPolylineCommand& line) { return line.Pen.Color != color; });
        return lines;
    }
    std::vector<TPolylineCommand> Lines() { return LinesOf(Form->Picture()); }
    TPoint DataOrigin() const { return Graph->World().DataRect().TopLeft(); }

    TKxDataSeries* Series = MakeSeries<TKxDataSeries>();
};

TEST_F(TDataSeriesTest, LongLinesComeInPiecesThatShareAPoint)
{
    using TLengths = std::vector<std::size_t>;
    for (const auto& [count, lengths] :
         {std::pair{1, TLengths{}}, {2, {2}}, {1999, {1999}}, {2001, {2000, 2}}, {4500, {2000, 2000, 502}}}) {
        std::vector<double> values(static_cast<std::size_t>(count));
        std::iota(values.begin(), values.end(), 1);
        Fill(values, values);
        const auto lines = Lines();
        ASSERT_EQ(lines.size(), lengths.size()) << count;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            EXPECT_EQ(lines[i].Points.size(), lengths[i]);
            EXPECT_EQ(lines[i].Points.front(), Series->Points().GetValue(static_cast<int>(i) * 1999) + DataOrigin());
        }
    }
}

TEST_F(TDataSeriesTest, MissingValuesBreakLinesAndAreas)
{
    const double none = std::nan("");
    Series->GetAreaStyle().SetVisible(true);
    Series->GetAreaStyle().SetDrawXOred(false);
    Series->GetAreaStyle().SetColor(clBlue);
    Series->GetAreaStyle().SetStyle(bsCross);
    Fill({0, 1, 2, 3, 4, 5, INFINITY, 7, 8}, {2, 3, none, 4, none, 5, 6, 7, 8});
    const TRecording picture = Form->Picture();
    const auto lines = LinesOf(picture);
    ASSERT_EQ(lines.size(), 2U);
    const auto at = [&](int i) { return Series->Points().GetValue(i) + DataOrigin(); };
    EXPECT_EQ(lines[0].Points, (std::vector<TPoint>{at(0), at(1)}));
    EXPECT_EQ(lines[1].Points, (std::vector<TPoint>{at(7), at(8)}));
    const int zero = Series->GetYAxis()->RealToIntPosition(0) + DataOrigin().Y;
    const auto areas = CommandsOf<TPolygonCommand>(picture);
    ASSERT_EQ(areas.size(), 2U);
    EXPECT_EQ(areas[1].Points, (std::vector<TPoint>{at(7), at(8), {at(8).X, zero}, {at(7).X, zero}}));
    EXPECT_EQ(areas[1].Pen.Style, psClear);
    EXPECT_EQ(areas[1].Brush, (TBrushState{clBlue, bsCross}));
    EXPECT_EQ(areas[1].State.Mode, dmCopy);
}

TEST_F(TDataSeriesTest, ExclusiveOrShowsTheAreaColourOverTheBackground)
{
    Graph->SetDataColor(clWindow);
    Series->SetXAxis(nullptr);
    Series->SetXAxis(Graph->PrimaryXAxis());
    Series->GetAreaStyle().SetVisible(true);
    Series->GetAreaStyle().SetColor(clRed);
    Fill({1, 2, 3}, {1, 3, 2});
    const TRecording picture = Form->Picture();
    const auto areas = CommandsOf<TPolygonCommand>(picture);
    ASSERT_EQ(areas.size(), 1U);
    EXPECT_EQ(areas[0].State.Mode, dmXor);
    EXPECT_EQ(ColorToInt(areas[0].Brush.Color), (ColorToInt(Host().ResolveColor(clWindow)) & 0xFFFFFF) ^ 0x0000FF);
    EXPECT_EQ(LinesOf(picture).front().State.Mode, dmCopy);
}

TEST_F(TDataSeriesTest, LineStyleGoesToThePen)
{
    Fill({1, 2, 3}, {1, 3, 2});
    Series->GetLineStyle().SetWidth(3);
    Series->GetLineStyle().SetStyle(psDashDot);
    EXPECT_EQ(Lines().front().Pen, (TPenState{clRed, psDashDot, 3}));
    Graph->BeginUpdate();
    EXPECT_TRUE(Lines().empty());
    Graph->EndUpdate();
    EXPECT_EQ(Lines().size(), 1U);
    Series->GetLineStyle().SetVisible(false);
    EXPECT_TRUE(Lines().empty());
}

TEST_F(TDataSeriesTest, SymbolsReachOutUnlessBothAxesAreZoomed)
{
    Series->GetPointStyle().SetVisible(true);
    Series->GetPointStyle().SetStyle(SySquare);
    Series->GetPointStyle().SetWidth(2);
    Fill({0, 50, std::nan(""), 100}, {0, 70, 50, 100});
    const auto symbols = [this] { return CommandsOf<TStampCommand>(Form->Picture()).at(0); };
    const auto reachOut = [this](const TRect& clip) {
        const TRect data = Graph->World().DataRect();
        return clip.Left < data.Left && clip.Top < data.Top && clip.Right > data.Right && clip.Bottom > data.Bottom;
    };
    const TStampCommand whole = symbols();
    EXPECT_EQ(whole.Points.size(), 3U);
    EXPECT_TRUE(reachOut(whole.State.Clip));
    const auto& square = std::get<TRectangleCommand>(whole.Shape->Commands.front());
    EXPECT_EQ(square.Box, (TRect{-5, -5, 6, 6}));
    EXPECT_EQ(square.Pen, (TPenState{clBlue, psSolid, 2}));
    EXPECT_EQ(square.Brush.Color, Graph->GetDataColor());
    Series->GetXAxis()->ZoomIn(0, 50);
    EXPECT_TRUE(reachOut(symbols().State.Clip));
    Series->GetYAxis()->ZoomIn(0, 70);
    const TRect clip = symbols().State.Clip;
    EXPECT_EQ(clip, Graph->World().DataRect());
}

TEST_F(TDataSeriesTest, ClipOfTheCanvasStandsAfterTheSymbols)
{
    Series->GetPointStyle().SetVisible(true);
    auto* const second = MakeSeries<TKxDataSeries>();
    second->GetLineStyle().SetColor(clGray);
    Fill({1, 2, 3}, {3, 2, 1});
    const TRecording picture = Form->Picture();
    for (const TColor color : {clRed, clGray})
        EXPECT_EQ(LinesOf(picture, color).at(0).State.Clip, Graph->World().DataRect());
}

TEST_F(TDataSeriesTest, SymbolsSuitTheirPicture)
{
    Series->GetPointStyle().SetVisible(true);
    Fill({1, 2, 3}, {3, 2, 1});
    Form->SetPixelScale(2);
    const auto circleIn = [](const TRecording& picture) {
        return std::get<TEllipseCommand>(CommandsOf<TStampCommand>(picture).at(0).Shape->Commands.front());
    };
    EXPECT_EQ(circleIn(Form->Picture()).Box, (TRect{-10, -10, 11, 11}));
    EXPECT_EQ(circleIn(Form->Picture()).Brush.Color, clButtonFace);
    EXPECT_EQ(circleIn(Graph->GetMetafile().Recording).Brush.Color, clWhite);
}

}  // namespace
}  // namespace plotkit
