#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>

#include "foundation/KxConsts.h"
#include "graph/KxAxis.h"
#include "graph/KxNiceValues.h"
#include "host/Host.h"

namespace plotkit {
namespace {

using TEnds = std::pair<double, double>;

constexpr double Hour = 1.0 / 24;

TEnds EndsOf(const TKxAxis& axis)
{
    return {axis.GetStart(), axis.GetStop()};
}

/// Ends as `CalculateEnds` leaves them.
TEnds Calculated(TKxAxis& axis)
{
    axis.CalculateEnds();
    return EndsOf(axis);
}

TEST(AxisEndsTest, RoundsToNiceValues)
{
    struct TCase
    {
        double Start, Stop, ToStart, ToStop;
    };
    const auto check = [](TKxAxScaling scaling, TKxAxEnd startEnd, TKxAxEnd stopEnd, const std::vector<TCase>& cases) {
        for (const TCase& c : cases) {
            SCOPED_TRACE(std::to_string(c.Start) + " " + std::to_string(c.Stop));
            TKxAxis axis(nullptr);
            axis.SetScaling(scaling);
            axis.Range().SetStartStop(c.Start, c.Stop);
            axis.SetStartEnd(startEnd);
            axis.SetStopEnd(stopEnd);
            const auto [start, stop] = Calculated(axis);
            EXPECT_NEAR(start, c.ToStart, 1e-12 * std::fabs(c.ToStart));
            EXPECT_NEAR(stop, c.ToStop, 1e-12 * std::fabs(c.ToStop));
            EXPECT_EQ(axis.EndsReset(), c.Start >= c.Stop);
        }
    };
    check(AxNormal, AxAutoRange, AxAutoRange,
          {{0, 0, -1, 1}, {250, 250, 150, 350}, {10, 5, 0, 100}, {0.31, 0.58, 0.3, 0.6}});
    check(AxNormal, AxFixed, AxFixed, {{3.7, 96.2, 3.6, 96.2}});
    check(AxNormal, AxFirstSet, AxFixed, {{-3.7, 96.2, -10, 96.2}});
    check(AxLog, AxAutoRange, AxAutoRange,
          {{0, 500, 1e-10, 1000}, {100, 100.5, 10, 1000}, {10, 1, 1, 10}, {-7, -3, 1e-10, 1}});
    check(AxLogEE, AxAutoRange, AxAutoRange, {{0.02, 700, 0.01, 1000}});
    check(AxLog, AxFixed, AxFixed, {{0.02, 700, 0.02, 700}, {2, 5, 1, 10}});
    check(AxDateTime, AxFixed, AxFixed, {{10, 1, 1, 10}, {41211, 41211, 41210, 41212}, {36526, 36526, 36161, 36892}});
    check(AxDateTime, AxFixed, AxFixed, {{41211.3, 41215.9, 41211.3, 41215.9}, {0.5, 0.5, 0.5 - Hour, 0.5 + Hour}});
}

TEST(AxisEndsTest, CalculatingAgainWidensNothing)
{
    // 1 ... 16 is 15 wide, which another row of the tables would round to 0 ... 17.5.
    for (const TEnds& from : {TEnds{1.4, 15.3}, {0.24, 2.6}, {-0.4, 6.4}, {3.7, 96.2}}) {
        TKxAxis axis(nullptr);
        axis.Range().SetStartStop(from.first, from.second);
        const TEnds first = Calculated(axis);
        EXPECT_EQ(Calculated(axis), first);
        axis.ZoomIn(2, 3);
        axis.CalculateEnds();
        for (int i = 0; i < 3; ++i)
            axis.ZoomBack();
        EXPECT_EQ(EndsOf(axis), first);
        EXPECT_EQ(Calculated(axis), first);
    }
}

TEST(AxisEndsTest, HostileRangesBecomeUsable)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN(), inf = std::numeric_limits<double>::infinity();
    const std::vector<double> ends{-inf,        -1.797e308, -1,           0,     5e-324, 1,
                                   1 + 2.3e-16, 1e15,       1e15 + 0.125, 1e308, inf,    nan};
    const auto check = [](TKxAxScaling scaling, TKxAxEnd end, TEnds from, double part) {
        TKxAxis axis(nullptr);
        axis.SetScaling(scaling);
        axis.SetStartEnd(end);
        axis.SetStopEnd(end);
        axis.SetAutoTicks(part == 0.05);
        axis.SetTickPart(part);
        axis.SetMajorTickPart(part);
        axis.Range().SetStartStop(from.first, from.second);
        SCOPED_TRACE(std::to_string(scaling) + testing::PrintToString(from));
        axis.CalculateEnds();
        axis.CalculateTicks();
        ASSERT_LT(axis.GetStart(), axis.GetStop());
        ASSERT_TRUE(std::isfinite(axis.GetStop() - axis.GetStart()));
        ASSERT_LE(axis.TickCount(), 4 * axis.PixelLength());
    };
    for (const double start : ends)
        for (const double stop : ends) {
            for (const TKxAxScaling scaling : {AxNormal, AxLog, AxDateTime})
                for (const TKxAxEnd end : {AxAutoRange, AxFixed})
                    check(scaling, end, {start, stop}, 0.05);
            for (const double part : {0.0, nan, 1e300, 1e-300})
                check(AxNormal, AxFixed, {start, stop}, part);
        }
}

TEST(AxisEndsTest, EndsFollowTheDataAsTheyAreTold)
{
    TKxAxis axis(nullptr);
    TRange data, other, empty;
    for (TRange* range : {&data, &empty, &other})
        axis.ValueRanges().Add(range);
    axis.RedoRanges();
    EXPECT_EQ(EndsOf(axis), (TEnds{0, 100})) << "nothing but empty ranges";
    data.OnChanged = TRangeChangedEvent::Bind<&TKxAxis::ValuesRangeChanged>(&axis);
    other.SetStartStop(-3, 7);
    const auto endsWith = [&](double start, double stop) {
        data.SetStartStop(start, stop);
        return EndsOf(axis);
    };
    EXPECT_EQ(endsWith(2, 50), (TEnds{-3, 50}));
    axis.SetStopEnd(AxFixed);
    axis.SetStartEnd(AxFirstSet);
    EXPECT_EQ(endsWith(-8, 60), (TEnds{-8, 50}));
    axis.SetStopEnd(AxFirstSet);
    axis.Calculate();
    other.SetStartStop(0, 1);
    EXPECT_EQ(endsWith(-11, 1).first, -11);
    EXPECT_FALSE(axis.NeedsCalculate()) << "the upper end has the last word";
    EXPECT_EQ(endsWith(0, 101), (TEnds{-11, 101}));
    EXPECT_TRUE(axis.NeedsCalculate());
}

TEST(AxisEndsTest, ZoomingBackCyclesThroughTheViews)
{
    TKxAxis axis(nullptr);
    axis.ZoomBack();
    axis.ZoomIn(10, 50);
    axis.ZoomIn(20, 30);
    EXPECT_TRUE(axis.CanZoomBack());
    for (const TEnds& view : {TEnds{10, 50}, {0, 100}, {20, 30}, {10, 50}}) {
        axis.ZoomBack();
        EXPECT_EQ(EndsOf(axis), view);
    }
    TRange data;
    data.SetStartStop(1, 2);
    axis.ValueRanges().Add(&data);
    axis.RedoRanges();
    EXPECT_FALSE(axis.CanZoomBack());
}

TEST(AxisEndsTest, MastersAreChosenWithCare)
{
    TKxAxis axis(nullptr), slave(nullptr), lying(nullptr);
    auto master = std::make_unique<TKxAxis>(nullptr);
    lying.SetPosition(AxBottomPos);
    slave.SetIsSlaveAxis(true);
    for (TKxAxis* refused : {&axis, &slave, &lying}) {
        axis.SetMasterAxis(refused);
        EXPECT_FALSE(axis.GetMasterAxis() || axis.GetIsSlaveAxis());
    }
    axis.SetMasterAxis(master.get());
    EXPECT_TRUE(axis.GetMasterAxis() == master.get() && axis.GetIsSlaveAxis());
    master.reset();
    EXPECT_FALSE(axis.GetMasterAxis() || axis.GetIsSlaveAxis());
}

TEST(AxisEndsTest, SettingsFilesReplaceNiceValues)
{
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path() / "plotkit_nice_values";
    fs::create_directories(folder / "chart");
    std::ofstream(folder / "chart.INI") << "[GraphScale]\r\nTickField=0.5;0.25;-1\r\nRoundField=junk\r\n";
    std::ofstream(folder / "chart" / "chart.usr") << "[GraphScale]\r\nTickField=0.125\r\n";
    TFakeHost host;
    host.Executable = (folder / "chart").string();
    host.AppData = folder.string();
    {
        const THostGuard guard(host);
        KxLoadPaths();
        ForgetNiceValues();
        for (const auto& [index, value] : {std::pair{0U, 0.125}, {1U, 0.25}, {2U, 0.1}})
            EXPECT_EQ(NiceValues().TickField[index], value);
        EXPECT_EQ(NiceValues().RoundField, TKxNiceValues().RoundField);
    }
    KxUnloadPaths();
    KxLoadPaths();
    ForgetNiceValues();
    EXPECT_EQ(NiceValues().TickField, TKxNiceValues().TickField);
    fs::remove_all(folder);
}

}  // namespace
}  // namespace plotkit
