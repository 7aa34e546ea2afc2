#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/NumberFormat.h"

namespace plotkit {
namespace {

/// An axis outside a graph: its line is 340 pixels long and starts at (30, 30).
std::unique_ptr<TKxAxis> MakeAxis(TKxAxisPos position, TKxAxScaling scaling, double start, double stop,
                                  TKxAxEnd ends = AxAutoRange, bool twisted = false)
{
    auto axis = std::make_unique<TKxAxis>(nullptr);
    axis->SetPosition(position);
    axis->SetScaling(scaling);
    axis->SetStartEnd(ends);
    axis->SetStopEnd(ends);
    axis->SetTwisted(twisted);
    axis->Range().SetStartStop(start, stop);
    axis->CalculateEnds();
    axis->CalculateTicks();
    return axis;
}

std::vector<std::string> LabelTexts(const TKxAxis& axis)
{
    std::vector<std::string> texts;
    for (const TKxCaptionRec& label : axis.ScaleLabels())
        texts.push_back(label.Text);
    return texts;
}

std::vector<double> MajorValues(const TKxAxis& axis)
{
    std::vector<double> values;
    for (std::size_t i = 0; i < axis.TickValues().size(); ++i)
        if (axis.TickIsMajor()[i])
            values.push_back(axis.TickValues()[i]);
    return values;
}

/// Where the middle of a label stands along the axis; the text is 11 pixels high.
int PositionOf(const TKxAxis& axis, const TKxCaptionRec& label)
{
    return axis.Orientation() == AxHorizontal ? label.X + label.Width / 2 - axis.AxisX() : label.Y + 5 - axis.AxisY();
}

TEST(AxisTicksTest, TicksGridLinesAndLabelsStandWhereTheirValueMapsTo)
{
    struct TRangeCase
    {
        TKxAxScaling Scaling;
        TKxAxEnd Ends;
        double Start, Stop;
    };
    // Among them ends that are no multiples of the tick step.
    const std::vector<TRangeCase> ranges{{AxNormal, AxAutoRange, 0, 1},      {AxNormal, AxAutoRange, 0.24, 2.6},
                                         {AxNormal, AxAutoRange, -0.4, 6.4}, {AxNormal, AxFixed, 3.7, 96.2},
                                         {AxNormal, AxFixed, -0.031, 0.58},  {AxNormal, AxFixed, 1e6, 1e6 + 7},
                                         {AxLog, AxAutoRange, 0.02, 700},    {AxLog, AxFixed, 0.025, 730},
                                         {AxLogEE, AxFixed, 3, 1e7},         {AxDateTime, AxFixed, 41211.3, 41215.9}};
    for (const TRangeCase& c : ranges)
        for (const TKxAxisPos position : {AxBottomPos, AxLeftPos, AxTopPos, AxRightPos})
            for (const bool twisted : {false, true}) {
                const auto axis = MakeAxis(position, c.Scaling, c.Start, c.Stop, c.Ends, twisted);
                axis->SetMaxExpForScaleExp(100);
                axis->CalculateTicks();
                SCOPED_TRACE(testing::PrintToString(std::tuple(c.Scaling, c.Start, position, twisted)));
                ASSERT_GE(axis->TickCount(), 10);
                EXPECT_TRUE(std::is_sorted(axis->TickPositions().begin(), axis->TickPositions().end()));
                EXPECT_GE(axis->TickPositions().front(), 0);
                EXPECT_LE(axis->TickPositions().back(), 340);
                for (std::size_t i = 0; i < axis->TickValues().size(); ++i)
                    EXPECT_EQ(axis->TickPositions()[i], axis->RealToIntPosition(axis->TickValues()[i]));
                ASSERT_GE(axis->ScaleLabels().size(), 3U);
                for (const TKxCaptionRec& label : axis->ScaleLabels())
                    if (const auto value = ParseReal(label.Text); value && c.Scaling != AxDateTime) {
                        EXPECT_EQ(PositionOf(*axis, label), axis->RealToIntPosition(*value)) << label.Text;
                    }
            }
}

TEST(AxisTicksTest, LinearLabelsShowTheRange)
{
    struct TCase
    {
        double Start, Stop;
        bool Twisted;
        std::vector<std::string> Labels;
        int Ticks;
    };
    const std::string factor = "\xC2\xB7" + std::string("10\\+");
    for (const TCase& c : {TCase{0, 100, false, {"0", "20", "40", "60", "80", "100"}, 51},
                           {0, 100000, false, {"0.0", "0.2", "0.4", "0.6", "0.8", "1.0", factor + "5"}, 51},
                           {0, 0.001, false, {"0.0", "0.2", "0.4", "0.6", "0.8", "1.0", factor + "-3"}, 51},
                           {-1, 1, false, {"-1.0", "-0.5", "0.0", "0.5", "1.0"}, 41},
                           {0.3, 0.6, true, {"0.6", "0.5", "0.4", "0.3"}, 31}}) {
        const auto axis = MakeAxis(AxBottomPos, AxNormal, c.Start, c.Stop, AxAutoRange, c.Twisted);
        EXPECT_EQ(LabelTexts(*axis), c.Labels) << c.Start << " " << c.Stop;
        EXPECT_EQ(axis->TickCount(), c.Ticks) << c.Start << " " << c.Stop;
    }
}

TEST(AxisTicksTest, HandSetSteps)
{
    const auto axis = MakeAxis(AxBottomPos, AxNormal, 0, 100);
    const auto set = [&axis](double tick, double major, double label) {
        axis->SetTickPart(tick);
        axis->SetMajorTickPart(major);
        axis->SetLabelPart(label);
        axis->CalculateTicks();
    };
    axis->SetTickPart(0.3);
    EXPECT_EQ(axis->GetTickPart(), 0.02) << "automatic";
    axis->SetAutoTicks(false);
    set(1, 1, 1);
    EXPECT_EQ(axis->TickValues(), (std::vector<double>{0, 100}));
    set(0.05, 0.25, 0.5);
    EXPECT_EQ(MajorValues(*axis), (std::vector<double>{0, 25, 50, 75, 100}));
    EXPECT_EQ(LabelTexts(*axis), (std::vector<std::string>{"0", "50", "100"}));
    set(1e-6, 0.25, 0.5);
    EXPECT_EQ(axis->TickCount(), 0) << "more than four a pixel";
    set(0.5, 0.1, 0.5);
    EXPECT_EQ(axis->TickCount(), 51) << "steps without a period";
    set(7, 1, 9);
    axis->CalculateEnds();
    EXPECT_EQ((std::vector{axis->GetTickPart(), axis->GetMajorTickPart(), axis->GetLabelPart()}),
              (std::vector{0.02, 0.1, 0.2}));
}

TEST(AxisTicksTest, LogTicksStandAtDecadesAndTheirMultiples)
{
    const auto fixed = MakeAxis(AxBottomPos, AxLog, 0.5, 300, AxFixed, true);
    EXPECT_EQ(MajorValues(*fixed), (std::vector<double>{100, 10, 1}));
    EXPECT_EQ(std::pair(fixed->TickValues().front(), fixed->TickValues().back()), std::pair(300.0, 0.5));
    EXPECT_EQ(fixed->TickCount(), 6 + 9 + 9 + 2);
}

TEST(AxisTicksTest, LabelsAreAsDenseAsTheyFit)
{
    struct TCase
    {
        TKxAxScaling Scaling;
        double Start, Stop;
        std::string Painted;
    };
    const std::string times = "\xC2\xB7" + std::string("10\\+ ");
    for (const TCase& c :
         {TCase{AxLog, 2, 8, "2,3,4,5,6,7,8,"},
          {AxNormal, 1234567895, 1234567904, "1234567896,1234567898,1234567900,1234567902,1234567904,"},
          {AxLog, 2, 90, "2,5,10,20,50,"},
          {AxLog, 1, 100, "1,10,100,"},
          {AxLogEE, 2, 30, "2" + times + "0,5" + times + "0,10\\+ 1,2" + times + "1,"},
          {AxLogEE, 1e-20, 1e30,
           "10\\+ -20,10\\+ -16,10\\+ -12,10\\+ -8,10\\+ -4,10\\+ 0,10\\+ 4,10\\+ 8,10\\+ 12,10\\+ 16,10\\+ 20,"
           "10\\+ 24,10\\+ 28,"}}) {
        const auto axis = MakeAxis(AxBottomPos, c.Scaling, c.Start, c.Stop, AxFixed);
        std::string painted;
        int edge = -1000;
        for (const TKxCaptionRec& label : axis->ScaleLabels()) {
            if (!label.DoPaint)
                continue;
            EXPECT_GT(label.X, edge);
            edge = label.X + label.Width;
            painted += label.Text + ",";
        }
        EXPECT_EQ(painted, c.Painted);
    }
    // Linear steps within a small part of a decade, twelve characters a label.
    const auto axis = MakeAxis(AxBottomPos, AxLog, 1, 10);
    axis->ShowExactly(1e-7, 1.014e-7);
    axis->CalculateEnds();
    axis->CalculateTicks();
    std::string painted;
    for (const TKxCaptionRec& label : axis->ScaleLabels())
        painted += label.DoPaint ? label.Text + "," : "-";
    EXPECT_EQ(painted, "0.0000001000,-0.0000001004,-0.0000001008,-0.0000001012,-");
}

TEST(AxisTicksTest, ZeroIsNotLabelledWhereTheAxesCrossThere)
{
    TKx2DGraph graph(nullptr);
    graph.SetZeroOrigin(true);
    graph.MakeRoot();
    TKxAxis& axis = *graph.GetPrimaryXAxis();
    for (const auto& [start, stop, hasZero] :
         {std::tuple{-50.0, 50.0, false}, {0.0, 50.0, false}, {-50.0, 0.0, true}}) {
        axis.Range().SetStartStop(start, stop);
        axis.CalculateEnds();
        axis.CalculateTicks();
        const auto texts = LabelTexts(axis);
        EXPECT_EQ(std::count(texts.begin(), texts.end(), "0") > 0, hasZero) << start;
        EXPECT_GE(texts.size(), 4U);
    }
}

TEST(AxisTicksTest, TheFactorStandsOutsideBetweenTheLastLabels)
{
    const auto axis = MakeAxis(AxBottomPos, AxNormal, 0, 100000);
    const auto& labels = axis->ScaleLabels();
    const auto middle = [](const TKxCaptionRec& label) { return label.X + label.Width / 2; };
    EXPECT_NEAR(middle(labels[6]), (middle(labels[4]) + middle(labels[5])) / 2, 1);
    EXPECT_EQ(labels[6].Y, labels[5].Y + 10);
    axis->SetPosition(AxLeftPos);
    axis->CalculateTicks();
    EXPECT_EQ(labels[6].X + labels[6].Width, labels[5].X + labels[5].Width - 10);
    EXPECT_EQ(axis->MaxLabelWidth(), labels[6].Width + 10);
}

}  // namespace
}  // namespace plotkit
