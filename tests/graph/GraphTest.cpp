#include "graph/GraphFixture.h"
#include "graph/KxResultLabel.h"
#include "host/Errors.h"

namespace plotkit {
namespace {

std::string Names(const TKxSeriesList& list)
{
    std::string names;
    for (const TKxPlottable* series : list)
        names += series->GetCaption();
    return names;
}

TEST_F(TGraphTest, PrimaryAxesAreMadeOnFirstNeed)
{
    EXPECT_EQ(Graph->PrimaryXAxis(), nullptr);
    TComponent taken(&Form);
    taken.SetName("XAxis1");
    ASSERT_TRUE(Graph->GetPrimaryXAxis() && Graph->GetPrimaryYAxis());
    EXPECT_EQ(Graph->GetPrimaryXAxis()->GetName(), "XAxis2");
    EXPECT_EQ(Graph->GetPrimaryYAxis()->GetName(), "YAxis1");
    EXPECT_EQ(Graph->GetPrimaryXAxis()->GetTickLength(), 6);
    EXPECT_EQ(Graph->GetPrimaryYAxis()->GetMajorTickLength(), -10);
    EXPECT_EQ(Graph->GetPrimaryYAxis()->GetTickLength(), -6);
    EXPECT_EQ(GraphOf(*Graph->GetPrimaryYAxis()), Graph);
    EXPECT_EQ(AddGraph("Graph2")->GetPrimaryXAxis(), Graph->GetPrimaryXAxis());  // the form's last, wherever it stands

    TKx2DGraph alone(nullptr);
    EXPECT_EQ(alone.GetPrimaryXAxis(), nullptr);  // no root yet
    alone.Picture();
    ASSERT_TRUE(alone.GetPrimaryXAxis());
    EXPECT_EQ(alone.GetPrimaryXAxis()->Owner(), &alone);
    EXPECT_EQ(alone.StreamedChildren(alone).size(), 2U);  // the axes only

    auto* loading = new TKx2DGraph(&Form);
    loading->SetLoading();
    loading->SetParent(&Form);
    EXPECT_EQ(loading->GetPrimaryYAxis(), nullptr);
    loading->Loaded();
    EXPECT_EQ(loading->PrimaryYAxis(), Graph->PrimaryYAxis());
}

TEST_F(TGraphTest, AnAxisThatGoesIsLetGo)
{
    Form.Picture();
    ASSERT_FALSE(Graph->NeedsCalculate());
    delete Graph->GetPrimaryXAxis();
    EXPECT_EQ(Graph->GetPrimaryXAxis(), nullptr);
    Form.Picture();
    EXPECT_TRUE(Graph->NeedsCalculate());  // not without both
    auto* axis = new TKxAxis(&Form);
    axis->SetParent(Graph);
    Graph->SetPrimaryXAxis(axis);
    EXPECT_EQ(axis->GetPosition(), AxBottomPos);
    Form.Picture();
    EXPECT_FALSE(Graph->NeedsCalculate());
    EXPECT_THROW(TKxDrawingWorld{&Form}, EComponentError);
}

TEST_F(TGraphTest, SeriesAreOrderedByOwnerAndCreation)
{
    TComponent other(nullptr);
    TFakeSeries c(&Form, "C"), a(&Form, "A"), b(&Form, "B"), y(&other, "Y"), x(&other, "X");
    TFakeSeries child2(&other, "2"), child1(&Form, "1"), child3(&other, "3");
    World().SeriesList().Assign({&a, &x, &b, &y, &c});
    b.Childs().Assign({&child3, &child1, &child2});
    World().ReorderSeriesList();
    EXPECT_EQ(Names(World().SeriesList()), "CABYX");
    EXPECT_EQ(Names(b.Childs()), "231");
    World().SeriesList().Clear();
}

TEST_F(TGraphTest, CalculatesAndDrawsInOrder)
{
    TFakeSeries a(&Form, "A", &Log), b(&Form, "B", &Log), child(&Form, "c", &Log);
    World().SeriesList().Assign({&b, &a});
    a.Childs().Add(&child);
    a.Points = true;
    auto* legend = new TFakeLegend(&Form);
    Graph->Attach(*legend);
    Graph->Attach(*legend);
    Graph->SetCaption("All of it");
    Graph->SetDataColor(clWhite);
    Form.WindowNeeded();
    b.World = &World();

    Graph->BeginUpdate();
    Form.Picture();
    EXPECT_EQ(Log, "");
    Graph->EndUpdate();
    const TRecording picture = Form.Picture();
    // The layout of the axes asks for a second pass, which only draws.
    EXPECT_EQ(Log, "calcc calcA calcB lineA pointsA linec lineB lineA pointsA linec lineB ");
    EXPECT_EQ(a.CaptionIni().ReadString("Graph", "Title", ""), "All of it");
    EXPECT_EQ(legend->Refreshed, 1);
    const TRect data = World().DataRect();
    const std::vector<TLineCommand> lines = CommandsOf<TLineCommand>(picture);
    const TLineCommand expected{{data.Left + 1, data.Top + 2}, {data.Left + 5, data.Top + 2}, {}, {dmCopy, data}};
    EXPECT_EQ(std::count(lines.begin(), lines.end(), expected), 1);
    EXPECT_EQ(b.Brush, (TBrushState{clWhite, bsSolid}));
    World().SeriesList().Clear();

    // What changes the layout asks for a calculation, what changes a grid's colour only for a paint.
    TKxLineStyle blue(nullptr);
    blue.SetColor(clBlue);
    Graph->SetMajorGridX(blue);
    EXPECT_TRUE(Form.NeedsPaint());
    EXPECT_FALSE(Graph->NeedsCalculate());
    const std::vector<std::function<void()>> changes{
        [&] { delete legend; }, [&] { Graph->SetWidth(500); }, [&] { Graph->SetFrameLine(blue); },
        [&] { Graph->GetMajorGridX().SetWidth(3); }, [&] { Graph->GetTitleFont().SetSize(30); }};
    for (std::size_t i = 0; i < changes.size(); ++i) {
        Form.Picture();
        ASSERT_FALSE(Graph->NeedsCalculate()) << i;
        changes[i]();
        EXPECT_TRUE(Graph->NeedsCalculate()) << i;
    }
    EXPECT_EQ(Graph->AttachedList().Count(), 0);
}

TEST_F(TGraphTest, PaintsBackgroundFrameAndGrid)
{
    Graph->GetPrimaryXAxis()->SetMajorTickLength(-10);
    Graph->SetColor(clWhite);
    Graph->SetDataColor(clRed);
    Graph->GetFrameLine().SetVisible(true);
    Graph->GetFrameLine().SetWidth(3);
    Graph->GetMajorGridX().SetVisible(true);
    Graph->GetMinorGridY().SetVisible(true);
    Graph->GetMinorGridY().SetWidth(2);
    const TRecording picture = Graph->Picture();
    const auto boxes = CommandsOf<TRectangleCommand>(picture);
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].Box, (TRect{0, 0, 600, 400}));
    EXPECT_EQ(boxes[1].Box, World().DataRect());
    EXPECT_EQ(boxes[1].Brush.Color, clRed);
    const auto frame = CommandsOf<TPolylineCommand>(picture);
    ASSERT_EQ(frame.size(), 1U);
    EXPECT_EQ(frame[0].Pen, (TPenState{clRed, psSolid, 6}));

    std::vector<int> across, along;
    for (const TLineCommand& line : CommandsOf<TLineCommand>(picture)) {
        if (line.Pen == TPenState{clRed, psDot, 0})
            across.push_back(line.From.X - World().DataRect().Left);
        if (line.Pen == TPenState{clRed, psDot, 2})
            along.push_back(line.From.Y - World().DataRect().Top);
    }
    // No line lies on the flush axis at the left, and a tick of the other kind gets none.
    const auto ticks = [](const TKxAxis& axis, std::size_t first, bool major) {
        std::vector<int> positions;
        for (std::size_t i = first; i < axis.TickPositions().size(); ++i)
            if (axis.TickIsMajor()[i] == major)
                positions.push_back(axis.TickPositions()[i]);
        return positions;
    };
    EXPECT_GT(across.size(), 8U);
    EXPECT_GT(along.size(), 30U);
    EXPECT_EQ(across, ticks(*Graph->PrimaryXAxis(), 1, true));
    EXPECT_EQ(along, ticks(*Graph->PrimaryYAxis(), 0, false));
}

TEST_F(TGraphTest, MetafileIsTransparentOnButtonFace)
{
    TFakeSeries series(&Form, "A");
    series.World = &World();
    World().SeriesList().Add(&series);
    for (const TColor color : {clButtonFace, clWhite}) {
        Graph->SetColor(color);
        const TMetafile& metafile = Graph->GetMetafile();
        EXPECT_TRUE(metafile.Transparent);
        EXPECT_EQ(CommandsOf<TRectangleCommand>(metafile.Recording).size(), color == clWhite ? 2U : 0U);
        EXPECT_EQ(series.Brush.Color, clWhite);
        EXPECT_EQ(CommandsOf<TRectangleCommand>(Graph->Picture()).size(), color == clWhite ? 2U : 1U);
        EXPECT_EQ(series.Brush.Color, clButtonFace);
    }
    World().SeriesList().Clear();
}

TEST_F(TGraphTest, TheTitleShowsTheCaptionWhileItIsOn)
{
    Form.Picture();
    const int top = World().DataRect().Top;
    for (const bool shown : {false, true, false}) {
        Graph->SetShowTitle(shown);
        Graph->SetCaption(shown ? "After" : "Before");
        Form.Picture();
        EXPECT_EQ(Graph->TitleLabel().GetCaption(), shown ? "After" : "");
        EXPECT_EQ(Graph->TitleLabel().GetVisible(), shown);
        EXPECT_EQ(World().DataRect().Top > top, shown);
    }
}

TEST_F(TGraphTest, OutfitIsRestoredAndReusedInTurn)
{
    Form.Picture();
    TFakeSeries a(&Form, "A"), b(&Form, "B"), c(&Form, "C");
    World().SeriesList().Assign({&a, &b});
    const auto dress = [this](bool title, TColor data, TColor all, int size) {
        Graph->SetShowTitle(title);
        Graph->SetDataColor(data);
        Graph->SetColor(all);
        Graph->GetTitleFont().SetSize(size);
        Graph->GetMinorGridX().SetWidth(size);
        Graph->PrimaryYAxis()->SetTwisted(title);
    };
    dress(true, clBlue, clButtonFace, 17);
    Graph->SetCaption("Saved");
    TKxIniList list;
    Graph->SaveOutfit("G", list);
    TStringList section;
    list.ReadSection("G", section);
    int last = -1;
    for (const char* key : {"ShowTitle", "Caption", "Font.Name", "FrameLine.Visible", "MajorGridX.Color",
                            "MinorGridX.Style", "MajorGridY.Width", "MinorGridY.Width", "SeriesCount"}) {
        EXPECT_GT(section.IndexOf(key), last) << key;
        last = section.IndexOf(key);
    }
    EXPECT_EQ(list.ReadString("G.Series(2)", "Name", ""), "B");

    World().SeriesList().Assign({&a, &b, &c});
    dress(false, clRed, clWhite, 9);
    Graph->LoadOutfit("G", list);
    EXPECT_TRUE(Graph->GetShowTitle() && Graph->PrimaryYAxis()->GetTwisted());
    EXPECT_EQ(Graph->TitleLabel().GetCaption(), "Saved");
    EXPECT_EQ(Graph->GetDataColor(), clBlue);
    EXPECT_EQ(Graph->GetColor(), clButtonFace);
    EXPECT_EQ(Graph->GetTitleFont().GetSize(), 17);
    EXPECT_EQ(Graph->GetMinorGridX().GetWidth(), 17);
    EXPECT_EQ(Names(World().SeriesList()), "ABA");
    Graph->LoadOutfit("None", list);
    EXPECT_EQ(Names(World().SeriesList()), "ABA");
    World().SeriesList().Clear();
}

TEST_F(TGraphTest, OutfitHoldsLegendsAndLabels)
{
    TFakeLegend legend(&Form);
    TKxLabel label(&Form), elsewhere(&Form), nameless(&Form);
    TKxResultLabel result(&Form);
    const std::pair<TControl*, const char*> parts[] = {
        {&result, "Result"}, {&label, "Label"}, {&elsewhere, "Elsewhere"}, {&legend, "Legend"}};
    for (const auto& [part, name] : parts) {
        part->SetName(name);
        part->SetParent(part == &elsewhere ? static_cast<TWindowControl*>(&Form) : Graph);
    }
    nameless.SetParent(Graph);
    Form.SetPixelScale(2);
    label.SetCaption("k = \\+2");
    label.SetAngle(450);
    label.SetBounds(60, 40, label.GetWidth(), label.GetHeight());
    legend.Side = AxTopPos;
    result.SetDigits(5);
    TKxIniList list, again;
    Graph->SaveOutfit("G", list);
    TStringList sections;
    list.ReadSections(sections);
    EXPECT_LT(sections.IndexOf("G.Legend"), sections.IndexOf("G.Label"));
    EXPECT_EQ(sections.IndexOf("G.Result"), sections.Count() - 1);
    EXPECT_EQ(sections.IndexOf("G.Elsewhere"), -1);
    EXPECT_EQ(list.ReadString("G.Label", "XPosition", ""), "30");

    Form.SetPixelScale(1);
    label.SetCaption("other");
    label.SetAngle(0);
    label.SetBounds(1, 2, 3, 4);
    legend.Side = AxLeftPos;
    result.SetDigits(0);
    Graph->LoadOutfit("G", list);
    Graph->SaveOutfit("G", again);
    EXPECT_EQ(again.Text(), list.Text());
}

}  // namespace
}  // namespace plotkit
