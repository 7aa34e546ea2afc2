#include "graph/KxDateTimeTicks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/Host.h"

namespace plotkit {
namespace {

TDateTime At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int milliSecond = 0)
{
    return EncodeDateTime({year, month, day, hour, minute, second, milliSecond});
}

constexpr double Second = 1.0 / 86400;

/// The date axis of a graph that is `extent` pixels wide and high.
struct TDateGraph
{
    TDateGraph(TKxAxisPos position, int extent)
    {
        Graph.SetBounds(0, 0, extent, extent);
        Graph.MakeRoot();
        Axis = position == AxBottomPos ? Graph.GetPrimaryXAxis() : Graph.GetPrimaryYAxis();
        Axis->SetScaling(AxDateTime);
    }

    TKxAxis& Show(TDateTime start, TDateTime stop, TKxAxEnd ends = AxAutoRange)
    {
        Axis->SetStartEnd(ends);
        Axis->SetStopEnd(ends);
        Axis->ZoomIn(start, stop);
        Graph.Picture();
        return *Axis;
    }

    TKx2DGraph Graph{nullptr};
    TKxAxis* Axis;
};

/// Whether a moment starts a unit of the region.
bool StartsUnit(TDateTime value, TKxDTRegion region)
{
    const TDateTimeParts p = DecodeDateTime(value);
    return (region >= rgMonth || p.Month == 1) && (region >= rgDay || p.Day == 1) &&
           (region >= rgHour || p.Hour == 0) && (region >= rgMinute || p.Minute == 0) &&
           (region >= rgSecond || p.Second == 0) && (region >= rgMilliSecond || p.MilliSecond == 0);
}

void ExpectSoundAxis(const TKxAxis& axis)
{
    std::size_t major = 0;
    for (std::size_t i = 0; i < axis.TickValues().size(); ++i) {
        ASSERT_EQ(axis.TickPositions()[i], axis.RealToIntPosition(axis.TickValues()[i]));
        major += axis.TickIsMajor()[i];
        ASSERT_TRUE(!axis.TickIsMajor()[i] || StartsUnit(axis.TickValues()[i], axis.DTRegion()));
    }
    ASSERT_EQ(axis.ScaleLabels().size(), major);
    const bool horizontal = axis.Orientation() == AxHorizontal;
    std::vector<std::pair<int, int>> extents;
    for (const TKxCaptionRec& label : axis.ScaleLabels())
        extents.emplace_back(horizontal ? label.X : label.Y, horizontal ? label.Width : 11);
    std::sort(extents.begin(), extents.end());
    for (std::size_t i = 1; i < extents.size(); ++i)
        ASSERT_GT(extents[i].first, extents[i - 1].first + extents[i - 1].second);
}

TEST(DateTimeTicksTest, LabelsStandOnTheCalendarAndNeverOverlap)
{
    for (const TKxAxisPos position : {AxBottomPos, AxLeftPos})
        for (const int extent : {40, 333, 1500}) {
            TDateGraph graph(position, extent);
            for (double span = 1e-3 * Second; span < 366000; span *= 4.3)
                for (const TDateTime start : {41211.3, 36525.999, -20000.0})
                    for (const TKxAxEnd ends : {AxAutoRange, AxFixed}) {
                        const TKxAxis& axis = graph.Show(start, start + span, ends);
                        SCOPED_TRACE(std::to_string(extent) + " " + std::to_string(start) + " " + std::to_string(span));
                        ExpectSoundAxis(axis);
                        // Day numbers resolve about a microsecond.
                        EXPECT_LE(axis.GetStart(), start + 3e-3 * Second);
                        EXPECT_GE(axis.GetStop(), start + span - 3e-3 * Second);
                        if (extent >= 333 && start >= 0 && span > 5e-3 * Second) {
                            EXPECT_GE(axis.ScaleLabels().size(), 2U);
                        }
                        if (ends == AxAutoRange && extent >= 333 && start >= 0 && axis.DTRegion() < rgSecond) {
                            EXPECT_EQ(axis.TickPositions().front(), 0);
                            EXPECT_EQ(axis.TickPositions().back(), axis.PixelLength());
                        }
                    }
        }
}

TEST(DateTimeTicksTest, LabelsShowTheirUnit)
{
    struct TCase
    {
        TDateTime Start, Stop;
        TKxDTRegion Region;
        int Step;
        std::string First, Caption;
    };
    const TDateTime day = At(2012, 2, 27), minute = At(2012, 2, 27, 10, 5);
    const std::string dash = " \xE2\x80\x93 ";
    const std::vector<TCase> cases{
        {At(1900, 1, 1), At(2900, 1, 1), rgYear, 100, "1900", ""},
        {At(2010, 5, 20), At(2016, 2, 3), rgMonth, 6, "07/2010", ""},
        {At(2011, 12, 29), At(2012, 3, 9), rgDay, 7, "12/29", "2011" + dash + "2012"},
        {day, At(2012, 3, 3), rgHour, 12, "00:00", "2012-02-27" + dash + "2012-03-02"},
        {day, At(2012, 2, 28), rgHour, 2, "00:00", "2012-02-27"},
        {minute, At(2012, 2, 27, 10, 15), rgMinute, 1, "10:05", "2012-02-27"},
        {minute, At(2012, 2, 27, 10, 5, 40), rgSecond, 5, "10:05:00", "2012-02-27"},
        {minute, At(2012, 2, 27, 10, 5, 0, 800), rgMilliSecond, 100, "10:05:00.0", "2012-02-27"},
    };
    TDateGraph graph(AxBottomPos, 600);
    for (const TCase& c : cases) {
        const TKxAxis& axis = graph.Show(c.Start, c.Stop);
        EXPECT_EQ(axis.DTRegion(), c.Region) << c.First;
        EXPECT_EQ(axis.DTLabelStep(), c.Step) << c.First;
        EXPECT_EQ(axis.ScaleLabels().front().Text, c.First);
        EXPECT_EQ(axis.GetAutoCaption(), c.Caption) << c.First;
    }
}

TEST(DateTimeTicksTest, StepsAreCountedFromTheCalendar)
{
    using TDays = std::vector<TDateTime>;
    const auto labelled = [](TDateTime start, TDateTime stop, const TKxDateTimeStep& step) {
        TDays values;
        const auto ticks = DateTimeTicksOf({start, stop}, step, 1000);
        for (const TKxDateTimeTick& tick : ticks.value_or(std::vector<TKxDateTimeTick>{}))
            if (tick.Labelled)
                values.push_back(tick.Value);
        return values;
    };
    EXPECT_EQ(labelled(At(2012, 2, 28, 18), At(2012, 3, 5), {rgDay, 2, rgHour, 12}),
              (TDays{At(2012, 2, 29), At(2012, 3, 2), At(2012, 3, 4)}));
    EXPECT_EQ(labelled(At(1, 1, 1), At(9999, 12, 31), {rgYear, 5000, rgYear, 1000}), (TDays{At(5000, 1, 1)}));
    EXPECT_FALSE(DateTimeTicksOf({0, 1000000}, {rgMilliSecond, 1, rgMilliSecond, 1}, 1000).has_value());
}

TEST(DateTimeTicksTest, EndsAreRoundedToTicks)
{
    const TKxDateTimeStep hours{rgDay, 1, rgHour, 6}, months{rgMonth, 1, rgMonth, 1}, years{rgYear, 100, rgYear, 20};
    const TDateTime noon = At(2012, 2, 29, 12);
    struct TCase
    {
        TDateTime Value;
        TKxDateTimeStep Step;
        TDateTime Down, Up;
    };
    for (const TCase& c : {TCase{At(2012, 2, 29, 7, 30), hours, At(2012, 2, 29, 6), noon},
                           {noon, hours, noon, noon},
                           {noon, months, At(2012, 2, 1), At(2012, 3, 1)},
                           {At(1, 5, 1), years, At(1, 1, 1), At(20, 1, 1)},
                           // Within a day before day 0 the values fall while time passes.
                           {-1.3, hours, -1.5, -1.25},
                           {-1.9, hours, -2, -1.75},
                           {-40.5, months, At(1899, 11, 1), At(1899, 12, 1)}}) {
        EXPECT_EQ(RoundedToTick(c.Value, c.Step, false), c.Down) << c.Value;
        EXPECT_EQ(RoundedToTick(c.Value, c.Step, true), c.Up) << c.Value;
    }
    EXPECT_EQ(ClampedRange({-1e300, 1e300}).Start, At(1, 1, 1));
    EXPECT_EQ(DecodeDateTime(ClampedRange({-1e300, 1e300}).Stop).Year, 9999);
}

TEST(DateTimeTicksTest, TextsFollowTheLocale)
{
    const TDateTime moment = At(2012, 2, 9, 10, 5, 7, 120);
    const TKxDateTimeRange year{At(2012, 1, 1), At(2012, 12, 31)}, twoMonths{At(2012, 1, 1), At(2012, 2, 28)};
    TFakeHost host;
    const THostGuard guard(host);
    host.Formats.DateSeparator = '.';
    host.Formats.DecimalSeparator = ',';
    const auto text = [](TKxDTRegion region, const TKxDateTimeRange& range, TDateTime value) {
        return DateTimeLabel(value, {region, 1, region, 1}, range);
    };
    for (const auto& [format, expected] :
         {std::pair{"dd.mm.yyyy", "09.02"}, {"yyyy/mm/dd", "02.09"}, {"d/m/yy", "9.2"}, {"m/d/YYYY", "2.9"}}) {
        host.Formats.ShortDateFormat = format;
        EXPECT_EQ(text(rgDay, year, moment), expected);
    }
    EXPECT_EQ(text(rgMonth, year, moment), "02.2012");
    EXPECT_EQ(text(rgMonth, twoMonths, moment), "Feb 2012");
    for (const auto& [milliSecond, expected] :
         {std::pair{500, "10:05:07,5"}, {120, "10:05:07,12"}, {7, "10:05:07,007"}, {0, "10:05:07,0"}})
        EXPECT_EQ(text(rgMilliSecond, year, At(2012, 2, 9, 10, 5, 7, milliSecond)), expected);
}

}  // namespace
}  // namespace plotkit
