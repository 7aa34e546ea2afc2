#include "graph/KxLegend.h"

#include "graph/GraphFixture.h"

namespace plotkit {
namespace {

/// A series with styles that tells the legends of its graph of changes.
struct TStyledSeries : TFakeSeries
{
    TStyledSeries(TKx2DGraph& graph, const std::string& caption, std::string* log = nullptr)
        : TFakeSeries(graph.Owner(), caption, log), Graph(&graph), Caption(caption)
    {
        graph.GetSeriesList().Add(this);
    }
    ~TStyledSeries() noexcept override
    {
        BeginDestroy();
        if (Graph)
            Graph->GetSeriesList().Remove(this);
    }
    void Modified() override
    {
        for (TKxAttachedLegend* legend : Graph->AttachedList())
            legend->ItemsModified();
    }
    void ShownChanged() override { Modified(); }
    void PrepareHidden() override { ++Prepared; }
    const std::string& GetCaption() const override { return Caption; }
    bool GetIncludeInLegend() const override { return Included; }
    const TKxLineStyle* SampleLine() const override { return &Line; }
    const TKxAreaStyle* SampleArea() const override { return &Area; }
    const TKxPointStyle* SamplePoints() const override { return &Points; }

    TKx2DGraph* Graph;
    std::string Caption;
    TKxLineStyle Line{this};
    TKxAreaStyle Area{this};
    TKxPointStyle Points{this};
    bool Included = true;
    int Prepared = 0;
};

struct TLegendTest : TGraphTest
{
    TLegendTest()
    {
        Legend->SetParent(Graph);
        Legend->GetFont().SetSize(9);  // 12 pixels high, 6 a character
    }
    TPoint CentreOf(std::size_t i) const
    {
        const TRect& box = Legend->Plan().Boxes[i];
        return {Legend->GetLeft() + (box.Left + box.Right) / 2, Legend->GetTop() + (box.Top + box.Bottom) / 2};
    }
    void Click(std::size_t i)
    {
        const TPoint at = CentreOf(i);
        Form.DispatchMouseDown(mbLeft, {}, at.X, at.Y);
        Form.DispatchMouseUp(mbLeft, {}, at.X, at.Y);
    }
    void Drag(TPoint from, TPoint to)
    {
        Form.DispatchMouseDown(mbLeft, {}, from.X, from.Y);
        Form.DispatchMouseMove({}, to.X, to.Y);
        Form.DispatchMouseUp(mbLeft, {}, to.X, to.Y);
    }
    std::string Listed() const
    {
        std::string captions;
        for (const TKxLegendEntry& entry : Legend->Entries())
            captions += (entry.Shown ? "" : "-") + entry.Caption + " ";
        return captions;
    }

    TKxLegend* Legend = new TKxLegend(&Form);
};

TEST(LegendLayoutTest, EntriesWrapIntoTheRoom)
{
    using TCase = std::tuple<std::vector<int>, TSize, bool, TSize, int, std::size_t, TRect, bool>;
    // Entries 10 high, gaps 2 and 5, margin 3.
    const TCase cases[] = {
        {{20, 30, 10}, {100, 100}, true, {76, 16}, 3, 3, {63, 3, 73, 13}, false},
        {{20, 30, 10}, {75, 100}, true, {61, 28}, 2, 3, {3, 15, 23, 25}, false},
        {{20, 20, 20, 20, 20}, {110, 100}, true, {76, 28}, 3, 5, {28, 15, 48, 25}, false},  // not 4 and 1
        {{20, 30, 10}, {100, 100}, false, {36, 40}, 1, 3, {3, 27, 33, 37}, false},
        {{20, 30, 10}, {100, 30}, false, {51, 28}, 2, 3, {38, 3, 48, 13}, false},
        {{20, 90}, {50, 100}, true, {50, 28}, 1, 2, {3, 15, 47, 25}, false},
        {{60, 60, 60, 60}, {80, 30}, false, {79, 28}, 2, 4, {42, 15, 76, 25}, false},  // narrowed to all
        {{60, 60, 60, 60}, {40, 40}, false, {40, 40}, 1, 2, {3, 15, 37, 25}, true},
        {{20, 20, 20, 20, 20}, {60, 20}, true, {51, 16}, 2, 1, {3, 3, 23, 13}, true},
        {{20, 20}, {-5, -5}, false, {7, 16}, 1, 1, {3, 3, 4, 13}, false},
        {{}, {100, 100}, false, {0, 0}, 0, 0, {}, false},
    };
    for (const auto& [widths, most, rowByRow, size, columns, shown, last, hasMore] : cases) {
        SCOPED_TRACE(testing::Message() << most.Width << " by " << most.Height);
        const TKxLegendPlan plan = ArrangeLegend(widths, {most, rowByRow, 10, 30, 2, 5, 3});
        EXPECT_EQ(plan.Size, size);
        EXPECT_EQ(plan.Columns, columns);
        EXPECT_EQ(plan.Boxes.size(), shown);
        EXPECT_EQ(plan.Boxes.empty() ? TRect{} : plan.Boxes.back(), last);
        EXPECT_EQ(!plan.More.IsEmpty(), hasMore);
    }
}

TEST_F(TLegendTest, DrawsSamplesAndRichCaptions)
{
    TStyledSeries a(*Graph, "a\\+2"), b(*Graph, "b"), left(*Graph, "left out");
    a.Line.SetWidth(3);
    a.Points.SetVisible(false);
    a.Area.SetStyle(bsCross);
    b.Line.SetVisible(false);
    b.Area.SetVisible(false);
    b.SetShown(false);
    left.Included = false;
    Graph->SetDataColor(clWhite);
    Legend->SetInsideGap(4);
    Form.Picture();
    // Margin 5, sample 28, gap 6; the superscript is 4 wide; the symbol of b is higher than its text.
    EXPECT_EQ(Legend->Plan().Size, (TSize{5 + 28 + 6 + 10 + 5, 5 + 12 + 3 + 12 + 5}));
    TRecording expected;
    TCanvas canvas(expected, Host().TextMeasurer());
    canvas.Brush.SetColor(Legend->GetColor());
    canvas.SetWindowClip(Legend->ClientRect());
    canvas.FillRect(Legend->ClientRect());
    canvas.Pen.Width = 0;
    canvas.Polyline(std::array{TPoint{0, 0}, TPoint{0, 36}, TPoint{53, 36}, TPoint{53, 0}, TPoint{0, 0}});
    canvas.SetClipRect({5, 5, 33, 17});
    canvas.Brush.SetColor(clGray);
    canvas.Brush.SetStyle(bsCross);
    canvas.FillRect({5, 11, 33, 17});
    canvas.Pen = {clRed, psSolid, 3, dmCopy};
    canvas.MoveTo(5, 11);
    canvas.LineTo(33, 11);
    canvas.RemoveClip();
    canvas.Brush.SetStyle(bsClear);
    canvas.Font = Legend->GetFont().State();
    canvas.TextOut(39, 5, "a");
    canvas.Font.Size = 6;
    canvas.TextOut(45, 4, "2");
    canvas.Font.Size = 9;
    canvas.SetClipRect({5, 20, 33, 32});
    canvas.Pen = {HiddenEntryColor, psSolid, 1, dmCopy};
    canvas.Brush.SetColor(clWhite);
    canvas.Ellipse(14, 21, 25, 32);
    canvas.RemoveClip();
    canvas.Brush.SetStyle(bsClear);
    canvas.Font.Color = HiddenEntryColor;
    canvas.TextOut(39, 20, "b");
    EXPECT_EQ(Legend->Picture().ToText(), expected.ToText());
    Form.SetPixelScale(2);
    Form.Picture();
    EXPECT_EQ(Legend->Plan().Boxes[1], (TRect{10, 40, 98, 64}));
}

TEST_F(TLegendTest, AClickHidesAndShowsASeries)
{
    TStyledSeries a(*Graph, "a", &Log), b(*Graph, "b", &Log);
    TFakeSeries child(&Form, "c", &Log);
    a.Childs().Add(&child);
    Form.Picture();
    EXPECT_EQ(Listed(), "a c b ");
    std::string clicked;
    Legend->OnEntryClick = [&](TKxPlottable& series) {
        clicked += series.GetCaption() + (series.GetShown() ? "+ " : "- ");
    };
    const TRecording before = Form.Picture();
    Click(0);
    EXPECT_TRUE(Form.NeedsPaint());
    Log.clear();
    Form.Picture();
    EXPECT_EQ(Log, "linec lineb ");
    EXPECT_EQ(a.Prepared, 1);
    EXPECT_EQ(Listed(), "-a c b ");
    Click(0);
    EXPECT_EQ(Form.Picture(), before);

    Legend->SetClickHides(false);
    Click(1);
    Drag(CentreOf(0), CentreOf(1));  // neither of the two
    EXPECT_EQ(clicked, "a- a+ c+ ");
    EXPECT_TRUE(child.GetShown() && a.GetShown());
    a.Childs().Clear();
}

TEST_F(TLegendTest, FollowsCaptionsAndStyles)
{
    TStyledSeries a(*Graph, "a"), b(*Graph, "b");
    Form.Picture();
    const int width = Legend->GetWidth(), right = World().DataRect().Right;
    a.Modified();
    EXPECT_FALSE(Form.NeedsPaint());  // nothing that is seen
    a.Line.SetColor(clBlue);
    EXPECT_TRUE(Form.NeedsPaint());
    Form.Picture();
    EXPECT_EQ(Legend->Entries()[0].Sample.Line->Color, clBlue);
    a.Caption = "a much longer one";
    a.Modified();
    const TRecording longer = Form.Picture();
    EXPECT_EQ(Legend->GetWidth(), width + 16 * 6);
    EXPECT_EQ(World().DataRect().Right, right - 16 * 6);
    EXPECT_EQ(Legend->GetLeft() + Legend->GetWidth() + Legend->GetOutsideGap(), Graph->GetWidth());
    EXPECT_FALSE(Form.NeedsPaint());
    EXPECT_EQ(Form.Picture(), longer);
    for (const TKxAxisPos side : {AxTopPos, AxLeftPos, AxBottomPos, AxFreeFloating, AxRightPos}) {
        Legend->SetInGraphPosition(side);
        Form.Picture();
        EXPECT_EQ(Legend->Plan().Columns, side == AxTopPos || side == AxBottomPos ? 2 : 1);
        const TRect room = World().DataRect().Intersected(Legend->Bounds());
        EXPECT_EQ(room.IsEmpty(), side != AxFreeFloating) << static_cast<int>(side);
        EXPECT_FALSE(Form.NeedsPaint());
    }
    EXPECT_EQ(Form.Picture(), longer);
    a.Included = b.Included = false;  // an empty legend takes no room
    Graph->Modified();
    Form.Picture();
    const TRect all = World().DataRect();
    Legend->SetVisible(false);
    Form.Picture();
    EXPECT_EQ(World().DataRect(), all);
}

TEST_F(TLegendTest, IsDraggedWithinTheGraph)
{
    TStyledSeries a(*Graph, "a");
    Legend->SetInGraphPosition(AxFreeFloating);
    Legend->SetBounds(100, 100, 0, 0);
    Form.Picture();
    const TPoint grip{110, 110};
    Drag(grip, {112, 111});
    EXPECT_EQ(Legend->Bounds().TopLeft(), (TPoint{100, 100}));
    EXPECT_FALSE(a.GetShown());  // a hand that shakes clicks
    Drag(grip, {140, 160});
    EXPECT_EQ(Legend->Bounds().TopLeft(), (TPoint{130, 150}));
    EXPECT_FALSE(a.GetShown());
    Drag({140, 160}, {5000, -5000});
    EXPECT_EQ(Legend->Bounds().Right, 600);
    EXPECT_EQ(Legend->GetTop(), 0);

    Form.DispatchMouseDown(mbLeft, {}, 595, 10);
    Legend->SetVisible(false);
    Legend->SetVisible(true);
    Form.Picture();
    Form.DispatchMouseMove({}, 595, 60);
    EXPECT_EQ(Legend->GetTop(), 0) << "let go of when it was hidden";
    Form.DispatchMouseUp(mbLeft, {}, 595, 60);

    // A graph that becomes too small moves it for as long as it is.
    const TRect wide = Legend->Bounds();
    Graph->SetWidth(300);
    Form.Picture();
    EXPECT_EQ(Legend->Bounds().Right, 300);
    Form.SetPixelScale(1.5);
    Form.Picture();
    Form.SetPixelScale(1);
    Graph->SetWidth(600);
    Form.Picture();
    EXPECT_EQ(Legend->Bounds(), wide);
}

TEST_F(TLegendTest, OutfitIsRestored)
{
    TStyledSeries a(*Graph, "a"), b(*Graph, "b"), c(*Graph, "c");
    Form.SetPixelScale(2);
    b.Included = false;
    b.SetShown(false);
    c.SetShown(false);
    Legend->SetInGraphPosition(AxFreeFloating);
    Legend->SetBounds(300, 120, 0, 0);
    Legend->SetTransparent(true);
    Legend->SetColumnGap(33);
    Legend->GetFrameLine().SetWidth(3);
    Legend->GetFont().SetSize(11);
    const TRecording saved = Form.Picture();
    TKxIniList list;
    Legend->SaveOutfit("L", list);
    EXPECT_EQ(list.ReadString("L", "Hidden", ""), "2;3");
    EXPECT_EQ(list.ReadInteger("L", "Left", 0), 150);

    delete Legend;
    Legend = new TKxLegend(&Form);
    Legend->SetParent(Graph);
    a.SetShown(false);
    c.SetShown(true);
    Legend->LoadOutfit("L", list);
    EXPECT_EQ(Form.Picture(), saved);
    EXPECT_TRUE(a.GetShown() && !b.GetShown() && !c.GetShown());
    Legend->LoadOutfit("None", list);
    EXPECT_EQ(Form.Picture(), saved);
    list.WriteString("L", "Hidden", "x99999999999;-1;1.7");
    Legend->LoadOutfit("L", list);
    Form.Picture();
    EXPECT_EQ(Listed(), "-a c ");
}

TEST_F(TLegendTest, PartsGoInAnyOrder)
{
    auto series = std::make_unique<TStyledSeries>(*Graph, "a");
    TKx2DGraph* other = AddGraph("Graph2");
    TStyledSeries b(*other, "b");
    Form.Picture();
    const TPoint at = CentreOf(0);
    Form.DispatchMouseDown(mbLeft, {}, at.X, at.Y);
    series.reset();
    Form.DispatchMouseUp(mbLeft, {}, at.X, at.Y);
    Form.Picture();
    EXPECT_EQ(Listed(), "");
    Legend->SetParent(other);
    EXPECT_EQ(Graph->AttachedList().Count(), 0);
    Form.Picture();
    EXPECT_EQ(Listed(), "b ");
    delete Legend;
    EXPECT_EQ(other->AttachedList().Count(), 0);

    TKxLegend free(nullptr);
    free.SetParent(other);
    b.Graph = nullptr;
    delete other;
    EXPECT_EQ(free.Parent(), nullptr);
    EXPECT_EQ(free.SeriesAt(1, 1), nullptr);
    free.SetParent(Graph);
    EXPECT_EQ(Graph->AttachedList().Count(), 1);
}

}  // namespace
}  // namespace plotkit
