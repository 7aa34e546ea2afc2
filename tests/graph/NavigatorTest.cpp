#include <cmath>

#include "graph/GraphFixture.h"
#include "graph/KxGraphNavigator.h"
#include "graph/KxZoomFrame.h"

namespace plotkit {
namespace {

using TEnds = std::pair<double, double>;

TEnds EndsOf(const TKxAxis& axis)
{
    return {axis.GetStart(), axis.GetStop()};
}

/// A linear, a logarithmic, a twisted, a fixed and a slave axis in one graph.
struct TNavigatorTest : TGraphTest
{
    TNavigatorTest()
    {
        THostGuard guard(Clock);
        Graph->GetPrimaryXAxis();
        X = Graph->PrimaryXAxis();
        Y = Graph->PrimaryYAxis();
        Y->SetScaling(AxLog);
        Y->SetStart(1);
        Y->SetStop(1e4);
        Fixed = Add(AxRightPos);
        Fixed->SetTwisted(true);
        Fixed->SetStartEnd(AxFixed);
        Fixed->SetStopEnd(AxFixed);
        Fixed->SetStart(10);
        Fixed->SetStop(30);
        Slave = Add(AxTopPos);
        Slave->SetMasterAxis(X);
        Form.Picture();
        Navigator = std::make_unique<TKxGraphNavigator>(*Graph);
    }
    TKxAxis* Add(TKxAxisPos position)
    {
        auto* axis = new TKxAxis(&Form);
        axis->SetParent(Graph);
        axis->SetPosition(position);
        return axis;
    }
    void Wait() { Clock.Advance(std::chrono::seconds(2)); }
    TPoint Middle()
    {
        const TRect data = World().DataRect();
        return {data.Left + (data.Width() - 1) / 2, data.Top + (data.Height() - 1) / 2};
    }

    TFakeHost Clock;
    THostGuard Guard{Clock};
    TKxAxis *X, *Y, *Fixed, *Slave;
    std::unique_ptr<TKxGraphNavigator> Navigator;
};

TEST_F(TNavigatorTest, ZoomKeepsWhatStandsAtThePointer)
{
    const TPoint at{World().DataRect().Left + 100, World().DataRect().Top + 60};
    const auto held = [&] {
        return std::vector{X->IntToRealPosition(100), std::log10(Y->IntToRealPosition(60)),
                           Fixed->IntToRealPosition(60)};
    };
    const auto before = held();
    for (const double factor : {0.8, 0.3, 2.5, 1.7}) {
        Navigator->ZoomAbout(at, factor);
        Form.Picture();
        const auto after = held();
        // Labels of another width move the plotting area; the axes keep their lengths roughly.
        for (std::size_t i = 0; i < before.size(); ++i)
            EXPECT_NEAR(after[i], before[i], 1.5) << factor << ' ' << i;
        EXPECT_EQ(EndsOf(*Slave), EndsOf(*X));
    }
    const TEnds wide = EndsOf(*X), high = EndsOf(*Y);
    Navigator->ZoomAboutCentre(0.5, acVertical);
    EXPECT_EQ(EndsOf(*X), wide);
    EXPECT_NEAR(Y->GetStop() / Y->GetStart(), std::sqrt(high.second / high.first), 1e-6);
    Navigator->ZoomAboutCentre(0.5, acHorizontal);
    EXPECT_DOUBLE_EQ(X->GetStop() - X->GetStart(), (wide.second - wide.first) / 2);
    Form.Picture();
    EXPECT_DOUBLE_EQ(X->GetStop() - X->GetStart(), (wide.second - wide.first) / 2) << "ends are not rounded";
    EXPECT_TRUE(Slave->CanZoomBack()) << "series on it would draw symbols outside";
    Navigator->Home();
    EXPECT_FALSE(Slave->CanZoomBack());
}

TEST_F(TNavigatorTest, PanMovesEveryAxisTheSameWayOnTheScreen)
{
    const auto places = [&] {
        return std::vector{X->RealToIntPosition(50), Y->RealToIntPosition(100), Fixed->RealToIntPosition(20)};
    };
    const auto before = places();
    Navigator->BeginDrag(Middle());
    Navigator->DragTo(Middle() + TPoint{500, -300});
    Navigator->DragTo(Middle() + TPoint{30, 20});
    Navigator->EndDrag();
    Form.Picture();
    const auto after = places();
    EXPECT_NEAR(after[0], before[0] + 30, 3);
    EXPECT_NEAR(after[1], before[1] + 20, 3);
    EXPECT_NEAR(after[2], before[2] + 20, 3);
    Navigator->Back();
    EXPECT_FALSE(Navigator->CanGoBack()) << "a drag is one view";
    Navigator->PanByViews(0.1, 1);
    EXPECT_EQ(EndsOf(*X), TEnds(10, 110));
    EXPECT_NEAR(Y->GetStart(), 1e4, 1e-6);
    EXPECT_EQ(EndsOf(*Fixed), TEnds(-10, 10));
    Navigator->Back();
    Navigator->BeginDrag({0, 0});
    Navigator->DragTo({70, 0});
    Navigator->CancelDrag();
    EXPECT_EQ(EndsOf(*X), TEnds(0, 100));
    EXPECT_FALSE(Navigator->CanGoForward());
}

TEST_F(TNavigatorTest, BackForwardAndHomeAcrossAllWaysToZoom)
{
    const std::vector<const TKxAxis*> axes{X, Y, Fixed};
    const auto ends = [&] {
        Form.Picture();
        std::vector<TEnds> all;
        for (const TKxAxis* axis : axes)
            all.push_back(EndsOf(*axis));
        return all;
    };
    std::vector<std::vector<TEnds>> views{ends()};
    for (int i = 0; i < 5; ++i)
        Navigator->ZoomAbout(Middle(), 0.8);
    views.push_back(ends());
    Navigator->PanByViews(0.1, 0);
    Navigator->PanByViews(0.1, 0);
    views.push_back(ends());
    const TRect data = World().DataRect();
    Graph->ZoomTo({data.Left + 100, data.Top + 100, data.Left + 200, data.Top + 180});
    views.push_back(ends());
    Wait();
    Navigator->ZoomAbout(Middle(), 1.25);
    views.push_back(ends());
    EXPECT_TRUE(Navigator->CanGoHome());
    for (std::size_t i = views.size() - 1; i-- > 0;) {
        Navigator->Back();
        EXPECT_EQ(ends(), views[i]) << i;
    }
    EXPECT_FALSE(Navigator->CanGoBack() || Navigator->CanGoHome());
    for (std::size_t i = 1; i < views.size(); ++i) {
        Navigator->Forward();
        EXPECT_EQ(ends(), views[i]) << i;
    }
    EXPECT_FALSE(Navigator->CanGoForward());
    Navigator->Home();
    EXPECT_EQ(ends(), views.front());
    EXPECT_FALSE(X->CanZoomBack());
    Navigator->Back();
    EXPECT_EQ(ends(), views.back()) << "home can be taken back";
    Navigator->Back();
    Navigator->ZoomAbout(Middle(), 0.9);
    EXPECT_FALSE(Navigator->CanGoForward()) << "another way was taken";
}

TEST_F(TNavigatorTest, UnzoomedEndsFollowTheData)
{
    TRange data;
    X->ValueRanges().Add(&data);
    data.OnChanged = TRangeChangedEvent::Bind<&TKxAxis::ValuesRangeChanged>(X);
    data.SetStartStop(0, 50);
    Form.Picture();
    for (const bool goesBack : {true, false}) {
        Wait();
        Navigator->ZoomAbout(Middle(), 0.5);
        const double stop = goesBack ? 80 : 200;
        data.OnChanged = nullptr;
        data.SetStartStop(0, stop);
        goesBack ? Navigator->Back() : Navigator->Home();
        Form.Picture();
        EXPECT_EQ(EndsOf(*X), TEnds(0, stop));
    }
    X->ValueRanges().Remove(&data);
}

TEST_F(TNavigatorTest, LimitsHoldInEveryScaling)
{
    Fixed->SetTwisted(false);
    Fixed->SetScaling(AxDateTime);
    Fixed->SetStart(40000);
    Fixed->SetStop(41000);
    X->SetStart(1e6);
    X->SetStop(1e6 + 1);
    Form.Picture();
    const TRect data = World().DataRect();
    const auto usable = [&] {
        Form.Picture();
        for (const TKxAxis* axis : {X, Y, Fixed}) {
            EXPECT_TRUE(std::isfinite(axis->GetStart()) && axis->GetStart() < axis->GetStop());
            EXPECT_FALSE(axis->EndsReset()) << axis->GetScaling() << ' ' << axis->GetStop();
            EXPECT_GE(axis->TickCount(), 2) << axis->GetStart() << ' ' << axis->GetStop();
        }
    };
    for (const double factor : {0.01, 100.0}) {
        for (int i = 0; i < 200; ++i)
            Navigator->ZoomAbout({data.Left + 40, data.Top + 70}, factor);
        usable();
        for (const double pan : {1.0, -7.0, 1e9, -3e9}) {
            Navigator->PanByViews(pan, pan);
            usable();
        }
    }
    EXPECT_GE(Fixed->GetStart(), -693593);
    EXPECT_LT(Fixed->GetStop(), 2958466);
    Wait();
    const TEnds widest = EndsOf(*Fixed);
    Navigator->ZoomAboutCentre(0);
    Navigator->ZoomAboutCentre(std::nan(""));
    EXPECT_EQ(EndsOf(*Fixed), widest);
}

TEST_F(TNavigatorTest, OutlivesAxesAndGraph)
{
    Navigator->ZoomAbout(Middle(), 0.5);
    delete Fixed;
    Navigator->Back();
    EXPECT_EQ(EndsOf(*X), TEnds(0, 100));
    TKx2DGraph* second = AddGraph("Graph2");
    auto* axis = new TKxAxis(&Form);
    axis->SetParent(second);
    TKxGraphNavigator other(*second);
    Graph->ZoomTo({100, 100, 200, 200});
    EXPECT_TRUE(other.CanGoBack()) << "the rectangle zooms all axes of the form";
    other.Back();
    EXPECT_EQ(EndsOf(*axis), TEnds(0, 100));
    delete Graph;
    Navigator->Home();
    Navigator->ZoomAbout({1, 1}, 0.5);
    EXPECT_FALSE(Navigator->CanGoBack() || Navigator->CanGoHome());
}

TEST_F(TNavigatorTest, FrameZoomsLikeARectangle)
{
    TKxZoomFrame frame(*Graph);
    frame.SetShown(true);
    frame.MoveBy(3, -2);
    frame.GrowBy(2, -1);
    const auto drawn = CommandsOf<TFocusRectCommand>(Form.Overlay());
    ASSERT_EQ(drawn.size(), 1U);
    EXPECT_EQ(drawn[0].Box, frame.Box());
    const TRect data = World().DataRect();
    const double start = X->IntToRealPosition(frame.Box().Left - data.Left);
    frame.Zoom();
    Form.Picture();
    EXPECT_DOUBLE_EQ(X->GetStart(), start) << "the ends of the rectangle, not rounded";
    EXPECT_TRUE(Form.Overlay().Commands.empty() && Navigator->CanGoBack());
    frame.SetShown(true);
    frame.GrowBy(-100, 100);
    frame.MoveBy(1000, 0);
    EXPECT_TRUE(frame.Box().Width() >= 2 && frame.Box().Right == World().DataRect().Right - 1);
    EXPECT_EQ(frame.Box().Top, World().DataRect().Top);
}

}  // namespace
}  // namespace plotkit
