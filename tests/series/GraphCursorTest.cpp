#include <chrono>
#include <cmath>
#include <limits>
#include <random>

#include "host/DateTime.h"
#include "series/KxGraphInput.h"
#include "series/KxReadoutText.h"
#include "series/SeriesFixture.h"

namespace plotkit {
namespace {

constexpr double Missing = std::numeric_limits<double>::quiet_NaN();

struct TCursorTest : TSeriesTest
{
    TKxRealVector* NewVector(std::vector<double> values)
    {
        auto* vector = new TKxRealVector(Form.get());
        vector->Take(std::move(values));
        return vector;
    }
    TKxDataSeries* AddSeries(const char* caption, std::vector<double> xs, std::vector<double> ys)
    {
        auto* series = new TKxDataSeries(Form.get());
        series->SetCaption(caption);
        series->SetXAxis(Graph->PrimaryXAxis());
        series->SetYAxis(Graph->PrimaryYAxis());
        series->SetXData(NewVector(std::move(xs)));
        series->SetYData(NewVector(std::move(ys)));
        return series;
    }
    TPoint PixelAt(double x, double y)
    {
        const TRect data = Graph->World().DataRect();
        return {data.Left + Graph->PrimaryXAxis()->RealToIntPosition(x),
                data.Top + Graph->PrimaryYAxis()->RealToIntPosition(y)};
    }
    static std::vector<int> Indexes(TKxGraphCursor& cursor)
    {
        std::vector<int> indexes;
        for (const TKxReading& reading : cursor.Readings())
            indexes.push_back(reading.Index);
        return indexes;
    }
};

TEST_F(TCursorTest, FindsWhatAScanFinds)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> uniform(-3, 100);
    for (const int order : {0, 1, -1}) {
        for (const TKxAxScaling scaling : {AxNormal, AxLog}) {
            std::vector<double> xs(300), ys(300);
            for (double& x : xs)
                x = std::round(uniform(random));
            for (double& y : ys)
                y = random() % 5 ? uniform(random) : Missing;
            if (order != 0)
                std::sort(xs.begin(), xs.end(), [&](double a, double b) { return order > 0 ? a < b : b < a; });
            Graph->PrimaryXAxis()->SetScaling(scaling);
            const std::unique_ptr<TKxDataSeries> series(AddSeries("s", xs, ys));
            Form->Picture();
            TKxNearestPoint points(*series);
            EXPECT_EQ(points.IsOrdered(), order != 0);
            const TKxAxisMapping mapping = Graph->PrimaryXAxis()->Mapping();
            for (double place = -40; place < 700; place += 13.7) {
                const int found = points.Find(place);
                ASSERT_GE(found, 0);
                const auto far = [&](std::size_t i) {
                    const double there = PlaceOf(mapping, xs[i]);
                    return std::isfinite(ys[i]) && std::isfinite(there) ? std::fabs(there - place) : HUGE_VAL;
                };
                double least = HUGE_VAL;
                for (std::size_t i = 0; i < xs.size(); ++i)
                    least = std::min(least, far(i));
                EXPECT_NEAR(far(static_cast<std::size_t>(found)), least, 1e-9) << order << ' ' << place;
            }
        }
    }
}

TEST_F(TCursorTest, FollowsTheOrderThroughChanges)
{
    auto* series = MakeSeries<TKxDataSeries>();
    Fill({1, 2, 3, 4}, {1, 2, 3, 4});
    Form->Picture();
    TKxNearestPoint points(*series);
    const auto nearest = [&](double x) {
        Form->Picture();
        return points.Find(PlaceOf(Graph->PrimaryXAxis()->Mapping(), x));
    };
    EXPECT_EQ(nearest(3.4), 2);
    X->SetValue(4, 7);
    Y->SetValue(4, 5);
    EXPECT_EQ(nearest(6), 4);
    X->SetValue(1, 9);
    EXPECT_EQ(nearest(8.8), 1);
    EXPECT_FALSE(points.IsOrdered());
    X->SetValue(1, 2);
    EXPECT_TRUE(points.IsOrdered());
    X->Append(std::vector<double>{0.5, 6});
    Y->Append(std::vector<double>{1, 1});
    EXPECT_EQ(nearest(0.6), 5);
    X->Delete(0);
    EXPECT_EQ(nearest(0.6), 4);
    series->SetXData(NewVector({5, 4, 3}));
    EXPECT_EQ(nearest(4.9), 0);
    EXPECT_TRUE(points.IsOrdered());
    Y->Clear();
    EXPECT_EQ(nearest(4.9), -1);
    delete series;
    EXPECT_EQ(points.Find(10), -1);
}

TEST_F(TCursorTest, TenMillionPointsAreNotScannedForEachMove)
{
    std::vector<double> xs(10'000'000), ys(xs.size(), 1.0);
    for (std::size_t i = 0; i < xs.size(); ++i)
        xs[i] = static_cast<double>(i);
    const std::unique_ptr<TKxDataSeries> series(AddSeries("s", std::move(xs), std::move(ys)));
    TKxNearestPoint points(*series);
    Graph->PrimaryXAxis()->SetStop(1e7);
    Graph->PrimaryXAxis()->Calculate();
    const TKxAxisMapping mapping = Graph->PrimaryXAxis()->Mapping();
    points.Find(0);
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < 1000; ++i)
        EXPECT_EQ(points.Find(PlaceOf(mapping, i * 9999.0 + 0.2)), i * 9999);
    // A thousand scans take many seconds.
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
}

TEST_F(TCursorTest, ReadsAllSeriesAtTheHairLine)
{
    AddSeries("a", {0, 10, 20, 30}, {0, 10, Missing, 0});
    AddSeries("b", {5, 11, 29, 90}, {50, 60, 70, 100});
    auto* hidden = AddSeries("hidden", {10}, {10});
    hidden->GetLineStyle().SetVisible(false);
    hidden->GetPointStyle().SetVisible(false);
    Form->Picture();
    TKxGraphCursor cursor(*Graph);
    EXPECT_TRUE(cursor.Readings().empty());
    cursor.SetShown(true);
    cursor.MoveTo(PixelAt(12, 12));
    ASSERT_NE(cursor.Current(), nullptr);
    EXPECT_EQ(cursor.Current()->Series->GetCaption(), "a");
    EXPECT_EQ(Indexes(cursor), (std::vector{1, 1}));
    EXPECT_EQ(cursor.Current()->Pixel, PixelAt(10, 10));
    const auto hair = CommandsOf<TLineCommand>(Form->Overlay());
    ASSERT_EQ(hair.size(), 1U);
    EXPECT_EQ(hair[0].From.X, PixelAt(10, 10).X);
    EXPECT_EQ(CommandsOf<TRectangleCommand>(Form->Overlay()).size(), 2U);
    cursor.Step(1);
    EXPECT_EQ(Indexes(cursor), (std::vector{3, 2})) << "over the missing point";
    cursor.StepSeries(1);
    EXPECT_EQ(cursor.Current()->Y, 70);
    cursor.GoToEnd(true);
    EXPECT_EQ(cursor.Current()->X, 90);
    Graph->PrimaryXAxis()->SetTwisted(true);
    Form->Picture();
    EXPECT_EQ(CommandsOf<TLineCommand>(Form->Overlay())[0].From.X, PixelAt(90, 0).X) << "painted anew with the view";
    cursor.Step(1);
    EXPECT_EQ(cursor.Current()->X, 29) << "right is where smaller values stand";
    cursor.StepPixels(-10);
    EXPECT_EQ(cursor.Current()->X, 90);
    delete cursor.Current()->Series;
    EXPECT_EQ(cursor.Readings().size(), 1U);
    Graph->SetVisible(false);
    EXPECT_TRUE(Form->Overlay().Commands.empty());
    Graph->SetVisible(true);
    EXPECT_FALSE(Form->Overlay().Commands.empty());
    TKxSeries* const last = cursor.Current()->Series;
    last->SetShown(false);
    cursor.MoveTo(PixelAt(10, 10));
    EXPECT_TRUE(cursor.Readings().empty()) << "hidden by a legend";
    last->SetShown(true);
    cursor.MoveTo(PixelAt(10, 10));
    EXPECT_EQ(cursor.Readings().size(), 1U);
    delete Graph->PrimaryYAxis();
    EXPECT_TRUE(CursorLines(cursor).empty()) << "no axis to read at";
    cursor.SetShown(false);
    EXPECT_TRUE(Form->Overlay().Commands.empty());
    cursor.SetShown(true);
    delete Graph;
    EXPECT_TRUE(cursor.Readings().empty() && Form->Overlay().Commands.empty());
}

TEST_F(TCursorTest, MarkersKeepTheirAbscissae)
{
    AddSeries("a", {0, 50, 100}, {1, 2, 4});
    Form->Picture();
    TKxGraphMarkers markers(*Graph);
    TKxDrawingWorld& world = Graph->World();
    markers.SetShown(true);
    markers.SetAbscissa(mkStart, 50);
    markers.MoveBy(mkStop, 10'000);
    EXPECT_EQ(world.GetStartMarkerX(), PixelAt(50, 0).X);
    EXPECT_EQ(markers.Abscissa(mkStop), 100);
    EXPECT_EQ(MarkerLines(markers), (std::vector<std::string>{"x₁ = 50.00, x₂ = 100.00, Δx = 50.00",
                                                              "a: y₁ = 2.0000, y₂ = 4.0000, Δy = 2.0000"}));
    EXPECT_EQ(MarkerTable(markers),
              "series\tx1\ty1\tx2\ty2\tdx\tdy\nmarkers\t50\t\t100\t\t50\t\na\t50\t2\t100\t4\t50\t2\n");
    world.SetStartMarkerX(PixelAt(25, 0).X);
    EXPECT_NEAR(*markers.Abscissa(mkStart), 25, 0.2);
    Graph->PrimaryXAxis()->ZoomIn(20, 60);
    Form->Picture();
    EXPECT_EQ(world.GetStartMarkerX(), PixelAt(*markers.Abscissa(mkStart), 0).X);
    EXPECT_LT(world.GetStopMarkerX(), 0) << "out of view";
    EXPECT_EQ(markers.Abscissa(mkStop), 100);
    Form->SetPixelScale(2);
    Form->Picture();
    EXPECT_NEAR(*markers.Abscissa(mkStart), 25, 0.2);
    EXPECT_EQ(world.GetStartMarkerX(), PixelAt(*markers.Abscissa(mkStart), 0).X);
}

TEST_F(TCursorTest, TextsAreAsFineAsTheirAxis)
{
    TKxAxis& x = *Graph->PrimaryXAxis();
    const auto text = [&](TKxAxScaling scaling, double start, double stop, double value) {
        x.SetScaling(scaling);
        x.ShowExactly(start, stop);
        Form->Picture();
        return AxisValueText(x, value);
    };
    const double noon = EncodeDateTime({2012, 10, 29, 12, 30, 15, 250});
    EXPECT_EQ(text(AxNormal, 0, 100, 12.3456), "12.35");
    EXPECT_EQ(text(AxNormal, 1e6, 1e6 + 0.001, 1e6 + 1.0 / 3), "1000000.3333333");
    EXPECT_EQ(text(AxNormal, 0, 1e-9, 1.23456789e-10), "1.235E-10");
    EXPECT_EQ(text(AxNormal, 0, 1e12, 123456789012.0), "1.235E11");
    EXPECT_EQ(text(AxLog, 1, 1e6, 1234.5), "1235");
    EXPECT_EQ(text(AxDateTime, 36526, 41000, noon), "2012-10-29 12:30");
    EXPECT_EQ(text(AxDateTime, 36526, 41000, 41000), "2012-04-01");
    EXPECT_EQ(text(AxDateTime, noon - 0.05, noon + 0.05, noon), "2012-10-29 12:30:15");
    EXPECT_EQ(text(AxDateTime, noon - 1e-4, noon + 1e-4, noon), "2012-10-29 12:30:15.250");
    EXPECT_EQ(AxisDistanceText(x, -1.5, noon), "-1 d 12:00:00.000");
    AddSeries("tab\tin\\b it", {noon}, {1.0 / 3});
    TKxGraphCursor cursor(*Graph);
    cursor.SetShown(true);
    EXPECT_EQ(CursorTable(cursor), "series\tpoint\tx\ty\ntab init\t1\t2012-10-29 12:30:15.250\t0.3333333333333333\n");
}

TEST_F(TCursorTest, MouseAndKeysWorkEverything)
{
    AddSeries("a", {0, 25, 50, 100}, {0, 25, 50, 100});
    Form->Picture();
    std::string heard;
    Graph->World().OnMouseDown = [&](TMouseButton, TShiftState, int, int) { heard += "down "; };
    auto input = std::make_unique<TKxGraphInput>(*Graph);
    TKxAxis& x = *Graph->PrimaryXAxis();
    const TRect data = Graph->World().DataRect();
    const TPoint middle{data.Left + data.Width() / 2, data.Top + data.Height() / 2};
    const TShiftState shifted{.Shift = true}, none;
    const auto key = [&](int code, TShiftState shift = {}) {
        Form->DispatchKeyDown(code, shift);
        Form->DispatchKeyUp(code, shift);
        Form->Picture();
        return x.GetStart();
    };
    const auto drag = [&](TMouseButton button, TPoint by) {
        Form->DispatchMouseDown(button, none, middle.X, middle.Y);
        Form->DispatchMouseMove(none, middle.X + by.X, middle.Y + by.Y);
        Form->DispatchMouseUp(button, none, middle.X + by.X, middle.Y + by.Y);
        Form->Picture();
    };
    drag(mbMiddle, {-50, 0});
    EXPECT_GT(x.GetStart(), 5);
    EXPECT_EQ(key(kyBackspace), 0);
    drag(mbRight, {90, 90});
    EXPECT_FALSE(x.CanZoomBack()) << "the menu's button zooms nothing";
    drag(mbLeft, {90, 90});
    EXPECT_LT(x.GetStop(), 80);
    EXPECT_EQ(key(kyHome), 0);
    Form->DispatchMouseWheel(shifted, 120, middle.X, middle.Y);
    EXPECT_NEAR(x.GetStart(), 10, 0.3);
    EXPECT_EQ(Graph->PrimaryYAxis()->GetStart(), 0);
    Form->DispatchMouseWheel(none, 120, data.Left - 5, middle.Y);
    EXPECT_NEAR(Graph->PrimaryYAxis()->GetStart(), 10, 0.3) << "beside the plotting area";
    key('0');
    EXPECT_EQ(key(kyRight), 10);
    EXPECT_EQ(key(kyRight, shifted), 110);
    key('h');
    Form->DispatchKeyDown(' ', none);
    drag(mbLeft, {-50, 0});
    Form->DispatchKeyUp(' ', none);
    EXPECT_GT(x.GetStart(), 5);
    EXPECT_TRUE(Graph->GetAutoZoom());
    key('h');
    key('z');
    key(kyEnter);
    EXPECT_GT(x.GetStart(), 20);
    key('h');
    key('c');
    key(kyEnd);
    EXPECT_EQ(input->Cursor().Current()->X, 100);
    key(kyLeft);
    EXPECT_EQ(input->Cursor().Current()->X, 50);
    Form->DispatchMouseMove(none, middle.X, data.Bottom - 3);
    key('m');
    key('2');
    const double stop = *input->Markers().Abscissa(mkStop);
    key(kyRight, shifted);
    EXPECT_GT(*input->Markers().Abscissa(mkStop), stop);
    EXPECT_EQ(input->StatusLines().size(), 3U);
    EXPECT_NE(input->ValuesText().find("\na\t3\t50\t50\n\nseries"), std::string::npos);
    for (int i = 0; i < 3; ++i)
        key(kyEscape);
    EXPECT_FALSE(input->Cursor().GetShown() || input->Markers().GetShown());
    EXPECT_EQ(heard, "down down down down ");
    Form->DispatchMouseDown(mbLeft, none, middle.X, middle.Y);
    key(kyEscape);
    EXPECT_TRUE(Graph->GetAutoZoom() && !Graph->World().IsZooming());
    Form->DispatchMouseUp(mbLeft, none, middle.X, middle.Y);
    heard.clear();
    input.reset();
    EXPECT_FALSE(Graph->GetAutoZoom() || Graph->World().OnMouseWheel);
    drag(mbMiddle, {-50, 0});
    EXPECT_EQ(heard, "down ");
}

}  // namespace
}  // namespace plotkit
