#include <functional>

#include "graph/GraphFixture.h"
#include "graph/KxLabel.h"
#include "host/Streaming.h"

namespace plotkit {

static std::ostream& operator<<(std::ostream& out, const TRect& r)
{
    return out << r.Left << " " << r.Top << " " << r.Right << " " << r.Bottom;
}

namespace {

/// A form with a graph of 600 by 400; the fixed text metrics make a number's character 5 wide and 11 high.
struct TScene
{
    TScene()
    {
        Graph.SetParent(&Form);
        Form.MakeRoot();
        X = Graph.GetPrimaryXAxis();
        Y = Graph.GetPrimaryYAxis();
    }

    TKxAxis& AddAxis(TKxAxisPos position)
    {
        auto* axis = new TKxAxis(&Form);
        axis->SetParent(&Graph);
        axis->SetPosition(position);
        return *axis;
    }
    TFakeLegend& AddLegend(TKxAxisPos side)
    {
        auto* legend = new TFakeLegend(&Graph);
        legend->Side = side;
        legend->SetBounds(1, 2, 50, 20);
        legend->SetParent(&Graph);
        Graph.Attach(*legend);
        return *legend;
    }
    const TRect& DataRect()
    {
        Form.Picture();
        return Graph.World().DataRect();
    }

    TForm Form{nullptr};
    TKx2DGraph& Graph = *new TKx2DGraph(&Form);
    TKxAxis* X;
    TKxAxis* Y;
};

TEST(AxisLayoutTest, ThePlottingAreaIsWhatIsLeft)
{
    struct TCase
    {
        const char* Name;
        TRect Data;
        std::function<void(TScene&)> Change;
        std::string LeftOut{};  ///< end grid lines of X and Y
    };
    const auto insideX = [](TScene& s) { s.X->SetMajorTickLength(-10); };
    const auto insideY = [](TScene& s) { s.Y->SetMajorTickLength(10); };
    const auto apartX = [](TScene& s) { s.X->SetValuesTicksGap(5); };
    const auto frame = [](TScene& s) { s.Graph.GetFrameLine().SetVisible(true), s.Graph.GetFrameLine().SetWidth(3); };
    const auto title = [](TScene& s) { s.Graph.SetCaption("T"), s.Graph.SetShowTitle(true); };
    const auto invisibleX = [](TScene& s) { s.X->SetBorderCaptionGap(7), s.X->SetVisible(false); };
    const auto caption = [](TScene& s) {
        s.X->SetShowCaption(true), s.X->SetCaptionScalingsGap(3), s.X->SetCaption("abc");
    };
    const std::vector<TCase> cases{
        {"plain", {25, 4, 593, 379}, [](TScene&) {}},
        {"frame", {28, 7, 590, 376}, frame},
        {"title", {25, 10, 593, 379}, title},
        {"invisible X axis", {25, 4, 593, 394}, invisibleX},
        {"X ticks inside", {25, 4, 593, 389}, insideX, "X first"},
        {"Y ticks inside", {15, 4, 593, 379}, insideY, "Y last"},
        {"all ticks inside, X apart", {15, 4, 593, 384}, [&](TScene& s) { insideX(s), insideY(s), apartX(s); }},
        {"X apart", {25, 4, 593, 374}, apartX},
        {"thick X axis", {25, 4, 593, 379}, [](TScene& s) { s.X->SetAxisThicknes(5); }},
        {"right axis", {25, 4, 574, 379}, [](TScene& s) { s.AddAxis(AxRightPos); }},
        {"top axis", {25, 21, 593, 379}, [](TScene& s) { s.AddAxis(AxTopPos).SetMajorTickLength(-10); }},
        {"caption", {25, 4, 593, 365}, caption},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Name);
        TScene scene;
        scene.Form.Picture();
        c.Change(scene);
        scene.Graph.Modified();
        EXPECT_EQ(scene.DataRect(), c.Data);
        const auto flags = [](const TKxAxis& axis) {
            return std::string(axis.DrawFirstGridLine() ? "" : " first") + (axis.DrawLastGridLine() ? "" : " last");
        };
        const std::string x = flags(*scene.X), y = flags(*scene.Y);
        EXPECT_EQ((x.empty() ? "" : "X" + x) + (y.empty() ? "" : "Y" + y), c.LeftOut);
        // The lines run along the data, whatever stands around them.
        if (scene.X->GetVisible() && scene.X->GetValuesTicksGap() == 0) {
            EXPECT_EQ(scene.X->GetTop() + scene.X->AxisY(), c.Data.Bottom - 1);
        }
        EXPECT_EQ(scene.Y->GetLeft() + scene.Y->AxisX(), c.Data.Left);
        EXPECT_FALSE(scene.X->GetVisible() && scene.X->NeedsCalculate());
        scene.Graph.Modified();
        EXPECT_EQ(scene.DataRect(), c.Data) << "once more";
    }
}

TEST(AxisLayoutTest, LegendsAreCentredOnTheDataTheyLeaveRoomFor)
{
    for (const auto& [side, bounds, data] : {std::tuple{AxBottomPos, TRect{283, 376, 333, 396}, TRect{25, 4, 593, 351}},
                                             {AxTopPos, {283, 4, 333, 24}, {25, 27, 593, 379}},
                                             {AxLeftPos, {4, 181, 54, 201}, {83, 4, 593, 379}},
                                             {AxRightPos, {546, 181, 596, 201}, {25, 4, 542, 379}},
                                             {AxFreeFloating, {1, 2, 51, 22}, {25, 4, 593, 379}}}) {
        TScene scene;
        const TFakeLegend& legend = scene.AddLegend(side);
        EXPECT_EQ(scene.DataRect(), data) << int{side};
        EXPECT_EQ(legend.Bounds(), bounds) << int{side};
    }
}

TEST(AxisLayoutTest, AxesCrossAtZero)
{
    TScene scene;
    scene.Graph.SetZeroOrigin(true);
    scene.X->Range().SetStartStop(-1, 1);
    scene.Y->Range().SetStartStop(-10, 30);
    const TRect data = scene.DataRect();
    EXPECT_EQ(data, (TRect{9, 4, 590, 396}));
    EXPECT_EQ(scene.X->GetTop() + scene.X->AxisY(), data.Top + scene.Y->RealToIntPosition(0));
    EXPECT_EQ(scene.Y->GetLeft() + scene.Y->AxisX(), data.Left + scene.X->RealToIntPosition(0));
    scene.Y->SetStart(1);
    scene.Graph.Modified();
    EXPECT_EQ(scene.DataRect().Bottom, 379);
}

TEST(AxisLayoutTest, SlavesShowTheRangeOfTheirMaster)
{
    for (const TKxAxScaling scaling : {AxNormal, AxLog, AxDateTime}) {
        TScene scene;
        TKxAxis &first = scene.AddAxis(AxTopPos), &second = scene.AddAxis(AxTopPos);
        scene.Form.Picture();
        first.SetMasterAxis(&second);
        scene.X->SetMasterAxis(&second);
        second.SetScaling(scaling);
        for (const double start : {1.4, 2.24}) {
            second.Range().SetStartStop(start, 15.3);
            second.Modified();
            scene.Form.Picture();
            const auto view = [](const TKxAxis& axis) {
                return std::tuple(axis.GetScaling(), axis.GetStart(), axis.GetStop(), axis.TickValues());
            };
            for (const TKxAxis* slave : {&first, scene.X})
                EXPECT_EQ(view(*slave), view(second));
            EXPECT_LE(second.GetStart(), start);
        }
    }
}

TEST(AxisLayoutTest, AnotherResolutionIsTheSameLayout)
{
    TScene scene;
    scene.X->SetShowCaption(true);
    scene.X->SetCaption("time");
    scene.Y->SetScaling(AxDateTime);
    scene.Y->Range().SetStartStop(41211.3, 41215.9);
    const TRect data = scene.DataRect();
    const std::vector<double> ticks = scene.Y->TickValues();
    scene.Form.SetPixelScale(4);
    const TRect& large = scene.DataRect();
    for (const auto side : {&TRect::Left, &TRect::Top, &TRect::Right, &TRect::Bottom})
        EXPECT_NEAR(large.*side, data.*side * 4, 8);
    EXPECT_EQ(scene.Y->TickValues(), ticks);
}

TEST(AxisLayoutTest, GraphsWithoutRoomPaint)
{
    for (const TKxAxScaling scaling : {AxNormal, AxLog, AxDateTime})
        for (const int extent : {0, 1, 13, 30, 60}) {
            TScene scene;
            scene.X->SetScaling(scaling);
            scene.Y->SetScaling(scaling);
            scene.Graph.SetBounds(0, 0, extent, extent);
            scene.Form.Picture();
            EXPECT_LE(scene.X->PixelLength(), extent);
            EXPECT_FALSE(scene.X->NeedsCalculate());
        }
}

TEST(AxisLayoutTest, PaintsMajorTicksMinorTicksAndTheLine)
{
    using TLines = std::vector<std::pair<TPoint, TPoint>>;
    const auto linesOf = [](TScene& scene, TColor color) {
        TLines lines;
        for (const TLineCommand& line : CommandsOf<TLineCommand>(scene.Form.Picture()))
            if (line.Pen.Color == color && line.Pen.Width == (color == clRed ? 3 : 0))
                lines.emplace_back(line.From, line.To);
        return lines;
    };
    for (const bool vertical : {false, true}) {
        TScene scene;
        TKxAxis& axis = vertical ? *scene.Y : *scene.X;
        scene.Y->SetMajorTickLength(10);
        axis.SetAxisColor(clRed);
        axis.SetAxisThicknes(3);
        axis.SetMajorTickColor(clBlue);
        axis.SetTickColor(clGray);
        const auto [left, top, right, bottom] = scene.DataRect();
        const TPoint origin{left, bottom - 1};
        EXPECT_EQ(linesOf(scene, clRed), (TLines{{origin, vertical ? TPoint{left, top} : TPoint{right, bottom - 1}}}));
        const TLines ticks = linesOf(scene, clBlue);
        // The tick along the bottom axis is left out.
        ASSERT_EQ(ticks.size(), vertical ? 10U : 11U);
        EXPECT_EQ(ticks[0].first, (vertical ? TPoint{left, top} : origin));
        EXPECT_EQ(ticks[1].second, ticks[1].first + (vertical ? TPoint{10, 0} : TPoint{0, 10}));
        EXPECT_EQ(linesOf(scene, clGray).size(), 40U);
        axis.SetVisible(false);
        EXPECT_TRUE(linesOf(scene, clRed).empty());
    }
}

TEST(AxisLayoutTest, CaptionsStandBesideTheLabels)
{
    TScene scene;
    const TKxCustomLabel &below = scene.X->CaptionLabel(), &beside = scene.Y->CaptionLabel();
    for (TKxAxis* axis : {scene.X, scene.Y}) {
        axis->SetCaption("pressure");
        axis->SetShowCaption(true);
        axis->SetCaptionScalingsGap(2);
        axis->SetBorderCaptionGap(1);
    }
    const TRect data = scene.DataRect();
    EXPECT_EQ(below.GetXPosition(), data.Left + scene.X->PixelLength() / 2);
    EXPECT_EQ(below.GetTop(), data.Bottom - 1 + 10 + 1 + 11 + 2);
    EXPECT_EQ(below.GetTop() + below.GetHeight() + 1, 400);
    EXPECT_EQ(beside.GetAngle(), 900);
    EXPECT_EQ(beside.GetLeft(), 1);
    EXPECT_EQ(beside.GetTop(), data.Top + (scene.Y->PixelLength() - beside.GetHeight()) / 2);
    scene.X->SetVisible(false);
    scene.Y->SetShowCaption(false);
    scene.Form.Picture();
    EXPECT_FALSE(below.GetVisible() || beside.GetVisible());
}

TEST(AxisLayoutTest, CaptionsAreTheUsersOrAutomatic)
{
    TScene scene;
    TKxAxis& axis = *scene.X;
    axis.SetUserCaption("mine");
    axis.SetAutoCaption("auto");
    EXPECT_EQ(axis.GetCaption(), "auto");
    axis.SetDoUserCaption(true);
    axis.SetAutoCaption("later");
    EXPECT_EQ(axis.GetCaption(), "mine");
    axis.SetDoUserCaption(false);
    EXPECT_EQ(axis.GetCaption(), "mine");
    axis.SetAutoCaption("later");
    EXPECT_EQ(axis.GetCaption(), "later");

    const auto caption = [&] {
        scene.Graph.Modified();
        scene.Form.Picture();
        return axis.GetCaption();
    };
    const auto add = [&scene](const char* name, const TKxAxis* used) {
        auto* series = new TFakeSeries(&scene.Graph, name);
        series->Axis = used;
        scene.Graph.World().SeriesList().Add(series);
    };
    EXPECT_EQ(caption(), "");
    for (const char* name : {"a", "", "b", "c"})
        add(name, &axis);
    add("elsewhere", scene.Y);
    EXPECT_EQ(caption(), "a, b, c");
    add("d", &axis);
    EXPECT_EQ(caption(), "");
    axis.SetCaption("typed");
    EXPECT_EQ(caption(), "typed");
}

TEST(AxisLayoutTest, OutfitsRestoreTheLook)
{
    TKxIniList saved, again;
    TKxAxis axis(nullptr), other(nullptr);
    axis.GetFont().SetSize(17);
    axis.GetCaptionFont().SetItalic(true);
    axis.SetDoUserCaption(true);
    axis.SetUserCaption("u");
    axis.SetTwisted(true);
    axis.SetMajorTickLength(-4);
    axis.SetStartEnd(AxFixed);
    axis.SetStart(-2.5);
    axis.SetTickColor(clGray);
    axis.SetAutoTicks(false);
    axis.SetLabelPart(0.75);
    axis.SetScaling(AxLogEE);
    axis.SaveOutfit("S", saved);
    other.SetScaling(AxDateTime);
    other.LoadOutfit("S", saved);
    other.SaveOutfit("S", again);
    TStringList names;
    saved.ReadSection("S", names);
    ASSERT_EQ(names.Count(), 16 + 24);
    EXPECT_EQ(names[16] + names[39], "DoUserCaptionScaling");
    for (int i = 0; i < names.Count(); ++i)
        EXPECT_EQ(again.ReadString("S", names[i], "?"), saved.ReadString("S", names[i], "")) << names[i];
    EXPECT_EQ(other.GetCaption(), "u");
}

TEST(AxisLayoutTest, StoredAreTheStepsThatHandsHaveSet)
{
    TKxAxis axis(nullptr);
    EXPECT_EQ(WriteComponentTree(axis).find("Part"), std::string::npos);
    axis.SetAutoTicks(false);
    const std::string text = WriteComponentTree(axis);
    for (const char* row : {"TickPart = 0.05", "MajorTickPart = 0.1", "LabelPart = 0.5"})
        EXPECT_NE(text.find(row), std::string::npos) << row << "\n" << text;
}

}  // namespace
}  // namespace plotkit
