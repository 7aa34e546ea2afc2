#include "graph/GraphFixture.h"

namespace plotkit {
namespace {

using TWorldMouseTest = TGraphTest;

/// The mouse drags from one pixel of the form to another.
void Drag(TForm& form, TPoint from, TPoint to)
{
    form.DispatchMouseDown(mbRight, {}, from.X, from.Y);
    form.DispatchMouseMove({}, (from.X + to.X) / 2, from.Y + 1);
    form.DispatchMouseMove({}, to.X, to.Y);
    form.DispatchMouseUp(mbRight, {}, to.X, to.Y);
}

TEST_F(TWorldMouseTest, ZoomsAllAxesOfTheForm)
{
    Graph->GetPrimaryXAxis();
    TKx2DGraph* second = AddGraph("Graph2");
    auto* foreign = new TKxAxis(&Form);
    foreign->SetParent(second);
    foreign->SetPosition(AxRightPos);
    Graph->BringToFront();
    Form.Picture();
    TFakeSeries series(&Form, "A", &Log);
    World().SeriesList().Add(&series);
    const TKxAxis &x = *Graph->PrimaryXAxis(), &y = *Graph->PrimaryYAxis();
    const TRect data = World().DataRect();
    const TPoint from{data.Left + 30, data.Top + 40}, to{data.Left + 130, data.Top + 240};
    const std::vector<std::tuple<const TKxAxis*, double, double>> expected{
        {&x, x.IntToRealPosition(30), x.IntToRealPosition(130)},
        {&y, y.IntToRealPosition(240), y.IntToRealPosition(40)},
        {foreign, foreign->IntToRealPosition(240), foreign->IntToRealPosition(40)}};
    Drag(Form, from, to);  // not without being asked
    Graph->SetAutoZoom(true);
    Drag(Form, from, {to.X, from.Y});
    Drag(Form, from, {from.X, to.Y});
    EXPECT_FALSE(x.CanZoomBack());
    Form.DispatchMouseUp(mbLeft, {}, to.X, to.Y);  // of a press somewhere else
    EXPECT_TRUE(Form.Overlay().Commands.empty());
    Form.DispatchMouseDown(mbLeft, {}, to.X, from.Y);
    Form.DispatchMouseMove({}, to.X + 5, to.Y);
    Form.DispatchMouseMove({}, from.X, to.Y);
    const auto boxes = CommandsOf<TFocusRectCommand>(Form.Overlay());
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].Box, (TRect{from.X, from.Y, to.X, to.Y}));
    Form.DispatchMouseUp(mbLeft, {}, from.X, to.Y);
    EXPECT_TRUE(Form.Overlay().Commands.empty());
    for (const auto& [axis, start, stop] : expected) {
        EXPECT_DOUBLE_EQ(axis->GetStart(), start);
        EXPECT_DOUBLE_EQ(axis->GetStop(), stop);
    }
    EXPECT_EQ(Log, "modifiedA ");
    World().SeriesList().Clear();
}

TEST_F(TWorldMouseTest, MarkersAreDraggedInsideTheDataAndNeverZoom)
{
    Graph->SetAutoZoom(true);
    Form.Picture();
    const TRect data = World().DataRect();
    World().SetStartMarkerX(data.Left + 50);
    World().SetStopMarkerX(data.Left + 100);
    World().ShowStartStopMarkers();
    const auto marker = [this](int x) {
        return TLineCommand{{x, 0}, {x, 400}, {World().GetColor(), psSolid, 3}, {dmXor, {0, 0, 600, 400}}};
    };
    const auto seen = [this] { return CommandsOf<TLineCommand>(Form.Overlay()); };
    EXPECT_EQ(seen(), (std::vector{marker(data.Left + 50), marker(data.Left + 100)}));

    const auto drag = [this](int from, int to) { Drag(Form, {from, 200}, {to, 220}); };
    drag(data.Left + 52, data.Left + 70);  // two pixels beside
    EXPECT_EQ(World().GetStartMarkerX(), data.Left + 50);
    drag(data.Left + 49, data.Left + 70);
    EXPECT_EQ(World().GetStartMarkerX(), data.Left + 70);
    drag(data.Left + 101, data.Right + 1);
    const int halfway = (data.Left + 101 + data.Right + 1) / 2;
    EXPECT_EQ(World().GetStopMarkerX(), halfway);  // the last place inside
    drag(halfway, data.Right);
    EXPECT_EQ(World().GetStopMarkerX(), data.Right);
    EXPECT_EQ(seen(), (std::vector{marker(data.Left + 70), marker(data.Right)}));
    EXPECT_FALSE(Graph->PrimaryXAxis()->CanZoomBack());
    Form.DispatchMouseMove({}, data.Right - 1, 50);
    EXPECT_EQ(World().GetCursor(), crSizeWestEast);
    Form.DispatchMouseMove({}, data.Right - 2, 50);
    EXPECT_EQ(World().GetCursor(), crDefault);

    // What changes the look or the place of the markers leaves none behind.
    Graph->SetDataColor(clBlue);
    Graph->SetBounds(20, 0, 600, 380);
    Form.Picture();
    ASSERT_EQ(seen().size(), 2U);
    EXPECT_EQ(seen()[0].From.X, 20 + data.Left + 70);
    EXPECT_EQ(seen()[0].To.Y, 380);
    Graph->SetVisible(false);
    EXPECT_TRUE(seen().empty());
    Graph->SetVisible(true);
    Form.SetPixelScale(2);
    EXPECT_EQ(World().GetStartMarkerX(), 2 * (data.Left + 70));
    Form.Picture();
    EXPECT_EQ(seen().size(), 2U);
    World().HideStartStopMarkers();
    EXPECT_TRUE(seen().empty());
    World().ShowStartStopMarkers();
    delete Graph;
    EXPECT_TRUE(seen().empty());
}

TEST_F(TWorldMouseTest, TheGraphHearsTheMouseFirst)
{
    Graph->SetLeft(20);
    Form.Picture();
    Graph->OnMouseDown = [this](TMouseButton, TShiftState, int x, int) { Log += "graph" + std::to_string(x) + " "; };
    World().OnMouseDown = [this](TMouseButton, TShiftState, int x, int) { Log += "world" + std::to_string(x) + " "; };
    Graph->OnClick = [this] { Log += "Graph "; };
    World().OnClick = [this] { Log += "World "; };
    Form.DispatchMouseDown(mbLeft, {}, 120, 200);
    Form.DispatchMouseUp(mbLeft, {}, 120, 200);
    EXPECT_EQ(Log, "graph100 world100 Graph World ");
    Graph->OnMouseUp = [this](TMouseButton, TShiftState, int, int) { delete std::exchange(Graph, nullptr); };
    Form.DispatchMouseDown(mbLeft, {}, 120, 200);
    Form.DispatchMouseUp(mbLeft, {}, 120, 200);
    EXPECT_EQ(Graph, nullptr);
}

TEST_F(TWorldMouseTest, HidingTheGraphEndsDrags)
{
    Graph->SetAutoZoom(true);
    Form.Picture();
    Form.DispatchMouseDown(mbLeft, {}, 100, 100);
    Form.DispatchMouseMove({}, 150, 150);
    Form.SetVisible(false);  // or whatever it stands in
    EXPECT_TRUE(Form.Overlay().Commands.empty());
    EXPECT_FALSE(World().IsZooming());
}

}  // namespace
}  // namespace plotkit
