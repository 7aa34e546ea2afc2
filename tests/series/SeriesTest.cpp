#include "series/SeriesFixture.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "data/DataClasses.h"
#include "graph/GraphClasses.h"
#include "host/Streaming.h"
#include "series/SeriesClasses.h"

namespace plotkit {
namespace {

bool IsRegistered(TKxAxis* axis, TRange& range)
{
    return axis->ValueRanges().IndexOf(&range) >= 0;
}

TEST_F(TSeriesTest, NewSeriesStandsInTheLastGraphOfItsForm)
{
    auto* const series = MakeSeries<TKxLineSeries>();
    EXPECT_TRUE(series->GetXAxis() == Graph->PrimaryXAxis() && series->GetYAxis() == Graph->PrimaryYAxis());
    EXPECT_EQ(Graph->GetSeriesList().Items(), (std::vector<TKxPlottable*>{series}));
    TKxLineSeries alone(nullptr);
    EXPECT_EQ(alone.GetXAxis(), nullptr);
    alone.DrawLine();
    alone.CalculatePoints();
    EXPECT_EQ(alone.RealToIntX(1), 0);
}

TEST_F(TSeriesTest, LinksRegisterByKindAndOrder)
{
    TKxAxis other(Form.get());
    auto* const series = MakeSeries<TKxLineSeries>();
    TKxAxis* const first = series->GetXAxis();
    EXPECT_TRUE(IsRegistered(first, series->XRange()));
    MakeSeries<TKxDataSeries>()->SetXAxis(nullptr);
    EXPECT_EQ(X->ChangedList().GetCount(), 1) << "one subscription for all";
    series->SetXAxis(&other);
    EXPECT_FALSE(IsRegistered(first, series->XRange()));
    EXPECT_TRUE(IsRegistered(&other, series->XRange()));
    EXPECT_EQ(Graph->GetSeriesList().Count(), 0) << "the new axis stands in no graph";

    TKxRealVector plain(Form.get());
    series->SetXData(&plain);
    EXPECT_TRUE(IsRegistered(&other, series->XRange()));
    EXPECT_EQ(X->ChangedList().GetCount(), 0);
    series->SetXAxis(first);
    EXPECT_FALSE(IsRegistered(first, series->XRange())) << "a plain vector has to be linked after the axis";
    series->SetXData(nullptr);
    series->SetXData(&plain);
    EXPECT_TRUE(IsRegistered(first, series->XRange()));
    EXPECT_EQ(Graph->GetSeriesList().Count(), 1);
}

TEST_F(TSeriesTest, CaptionsAreStoredCrossed)
{
    TKxLineSeries series(Form.get());
    const auto expect = [&series](const std::string& caption, const std::string& user, const std::string& automatic) {
        EXPECT_EQ(series.GetCaption(), caption);
        EXPECT_EQ(series.CaptionIni().ReadString("Datapoints", "Caption", "none"), caption);
        EXPECT_EQ(series.GetUserCaption() + "|" + series.GetAutoCaption(), user + "|" + automatic);
    };
    series.SetAutoCaption("auto"), expect("auto", "", "auto");
    series.SetCaption("typed"), expect("typed", "typed", "auto");
    series.SetUserCaption("mine"), expect("typed", "mine", "auto");
    series.SetDoUserCaption(true), expect("mine", "mine", "auto");
    series.SetCaption("over"), expect("over", "mine", "over");
    series.SetAutoCaption("formula"), expect("over", "mine", "formula");
    series.SetDoUserCaption(false), expect("over", "mine", "formula");
}

TEST_F(TSeriesTest, LegendsHearOfChanges)
{
    TFakeLegend legend(Form.get());
    Graph->Attach(legend);
    auto* const series = MakeSeries<TKxDataSeries>();
    const auto told = [&legend] { return std::exchange(legend.Refreshed, 0); };
    told();
    series->SetCaption("c");
    EXPECT_EQ(told(), 1);
    series->SetIncludeInLegend(true);
    EXPECT_EQ(told(), 0);
    series->SetIncludeInLegend(false);
    EXPECT_EQ(told(), 1);
    series->GetPointStyle().SetColor(clGray);
    EXPECT_EQ(told(), 1);
}

TEST_F(TSeriesTest, FindsTheLastPointInTheSquare)
{
    auto* const series = MakeSeries<TOpenSeries>();
    Fill({1, 5, 5.001, std::nan("")}, {1, 5, 5.001, 5});
    Form->Picture();
    const int x = series->RealToIntX(5), y = series->RealToIntY(5);
    EXPECT_EQ(x, Graph->World().DataRect().Left + series->Points().GetValue(1).X);
    for (const auto& [dx, dy, found] : {std::tuple{3, -3, 2}, {-4, 0, -1}, {0, 4, -1}})
        EXPECT_EQ(series->FindPoint(x + dx, y + dy, 3), found);
    EXPECT_EQ(series->FindPoint(series->RealToIntX(1), series->RealToIntY(1), 0), 0);
    EXPECT_EQ(series->RealToIntX(series->IntToRealX(x)), x);
    EXPECT_EQ(series->RealToIntY(series->IntToRealY(77)), 77);
}

TEST_F(TSeriesTest, RangesGoToTheAxesBeforePoints)
{
    auto* const series = MakeSeries<TOpenSeries>();
    Fill({3.7, 96.2, INFINITY}, {-1, 1, 0});
    series->CalculatePoints();
    EXPECT_TRUE(series->PointsNeedRecalc() && series->ChildsNeedRecalc() && !series->RangesNeedRecalc());
    EXPECT_EQ(Graph->PrimaryXAxis()->GetStop(), 96.2);
    Form->Picture();
    EXPECT_FALSE(series->PointsNeedRecalc());
    EXPECT_EQ(Graph->PrimaryXAxis()->GetStop(), 100);
    EXPECT_EQ(series->Points().GetValue(2), MissingPoint);
    const TPoint before = series->Points().GetValue(0);
    Graph->PrimaryXAxis()->SetTwisted(true);
    Form->Picture();
    EXPECT_NE(series->Points().GetValue(0), before) << "points follow a moved axis";
}

TEST_F(TSeriesTest, NothingButMissingValuesSettles)
{
    auto* const series = MakeSeries<TOpenSeries>();
    Fill({1, 2, 3}, {std::nan(""), INFINITY, std::nan("")});
    Form->Picture();
    EXPECT_FALSE(Form->NeedsPaint());
    EXPECT_EQ(series->PointsCount(), 0);
    series->Scans = 0;
    Graph->Modified();
    Form->Picture();
    EXPECT_EQ(series->Scans, 0);
    Y->SetValue(1, 4);
    Form->Picture();
    EXPECT_EQ(series->PointsCount(), 3);
    EXPECT_EQ(series->Points().GetValue(0), MissingPoint);
    EXPECT_NE(series->Points().GetValue(1), MissingPoint);
}

TEST_F(TSeriesTest, ChildrenAreCalculatedInOrderAndDestroyedBackwards)
{
    auto* const series = MakeSeries<TOpenSeries>();
    const auto add = [&](const char* name) {
        auto* const child = new TTestChild(Form.get(), Log);
        child->SetName(name);
        child->SetXAxis(series->GetXAxis());
        series->AddChild(child);
    };
    const auto said = [this] { return std::exchange(Log, ""); };
    add("a"), add("b");
    EXPECT_EQ(Graph->GetSeriesList().Count(), 1) << "calculated series hang on their parents";
    Fill({1, 2}, {3, 4});
    series->CalculatePoints();
    said();
    series->CalculatePoints();
    EXPECT_EQ(said(), "La Ma Lb Mb ");
    series->DrawLine();
    EXPECT_EQ(said(), "Ca Cb ");
    EXPECT_FALSE(series->ChildsNeedRecalc());
    TKxRealVector weight(Form.get());
    series->SetWeight(&weight);
    series->FOnWeightChanged(0, false);
    EXPECT_TRUE(series->ChildsNeedRecalc());
    delete series->Childs()[0];
    EXPECT_EQ(series->Childs().Count(), 1);
    add("c");
    said();
    delete series;
    EXPECT_EQ(said(), "~c ~b ");
}

TEST_F(TSeriesTest, AnyOrderOfDestructionIsSafe)
{
    std::vector<int> order{0, 1, 2, 3, 4, 5};
    do {
        TForm form(nullptr);
        form.MakeRoot();
        auto* const graph = new TKx2DGraph(&form);
        graph->SetParent(&form);
        auto *const x = new TKxLiveVector(&form), *const y = new TKxLiveVector(&form);
        graph->GetPrimaryXAxis();
        // Every other run without an owner.
        auto* const series = new TKxDataSeries(order[0] % 2 ? &form : nullptr);
        series->SetXAxis(graph->PrimaryXAxis());
        series->SetYAxis(graph->PrimaryYAxis());
        series->SetXData(x);
        series->SetYData(y);
        series->SetWeight(y);
        x->Assign({1, 2});
        y->Assign({1, 2});
        TComponent* const parts[] = {graph->PrimaryXAxis(), x, series, y, graph, graph->PrimaryYAxis()};
        bool seriesGone = false, graphGone = false;
        for (const int which : order) {
            // A graph takes its axes along.
            if (!graphGone || (which != 0 && which != 5))
                delete parts[which];
            seriesGone = seriesGone || which == 2;
            graphGone = graphGone || which == 4;
            if (seriesGone)
                continue;
            series->DrawLine();
            series->DrawPoints();
            series->CalculatePoints();
            EXPECT_EQ(series->PointsCount(), 0);
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(TSeriesTest, LookComesBackFromIni)
{
    auto* const series = MakeSeries<TKxDataSeries>();
    series->SetWeight(Y);
    series->SetUserCaption("mine");
    series->SetDoUserCaption(true);
    series->SetIncludeInLegend(false);
    series->GetLineStyle().SetWidth(4);
    series->GetAreaStyle().SetVisible(true);
    series->GetPointStyle().SetWidth(3);
    for (const TColor color : {clBlue, clGray}) {
        auto* const child = new TTestChild(Form.get(), Log);
        child->GetLineStyle().SetColor(color);
        series->AddChild(child);
    }
    TKxIniList list;
    series->WriteToIni(list, "S");
    for (const auto& [key, value] :
         {std::pair{"XAxis", "Main.XAxis1"}, {"YData", "Main.Y"}, {"Point.With", "3"}, {"Line.Width", "4"}})
        EXPECT_EQ(list.ReadString("S", key, ""), value);

    auto* const back = new TKxDataSeries(Form.get());
    for (int i = 0; i < 3; ++i)
        back->AddChild(new TTestChild(Form.get(), Log));
    back->ReadFromIni(list, "S");
    EXPECT_EQ(back->GetCaption(), "mine");
    EXPECT_EQ(dynamic_cast<TKxSeries*>(back->Childs()[2])->GetLineStyle().GetColor(), clBlue);
    for (int i = back->Childs().Count(); i > 2; --i)
        delete back->Childs()[i - 1];
    TKxIniList again;
    back->WriteToIni(again, "S");
    EXPECT_EQ(again.Lines(), list.Lines());

    TKxIniList empty;
    back->ReadFromIni(empty, "S");
    EXPECT_TRUE(back->GetIncludeInLegend()) << "the one key whose default is not what is set";
    EXPECT_EQ(back->GetLineStyle().GetWidth(), 4);
}

TEST_F(TSeriesTest, OutfitReachesSeriesThatChangeTheirAxis)
{
    TKxDataSeries* const series[] = {MakeSeries<TKxDataSeries>(), MakeSeries<TKxDataSeries>()};
    series[0]->GetLineStyle().SetWidth(3);
    series[1]->GetLineStyle().SetWidth(5);
    TKxIniList list;
    Graph->SaveOutfit("G", list);
    auto* const other = new TKxAxis(Form.get());
    other->SetParent(Graph);
    series[0]->SetXAxis(other);
    Form->Picture();
    for (TKxDataSeries* one : series)
        one->GetLineStyle().SetWidth(1);
    Graph->LoadOutfit("G", list);
    EXPECT_EQ(series[0]->GetXAxis(), Graph->PrimaryXAxis());
    EXPECT_EQ(series[0]->GetLineStyle().GetWidth(), 3);
    EXPECT_EQ(series[1]->GetLineStyle().GetWidth(), 5);
}

TEST_F(TSeriesTest, DesignerShowsSamplesAndFollowsTheOrder)
{
    TFakeHost host;
    const THostGuard guard(host);
    {
        TForm form(nullptr);
        form.SetDesigning(true);
        auto* const graph = new TKx2DGraph(&form);
        graph->SetParent(&form);
        auto *const x = new TKxRealVector(&form), *const y = new TKxRealVector(&form);
        auto* const series = new TKxDataSeries(&form);
        series->SetXData(x);
        series->SetYData(y);
        ASSERT_EQ(x->GetCount(), 10);
        ASSERT_EQ(y->GetCount(), 10);
        for (int i = 0; i < 10; ++i)
            EXPECT_EQ(std::floor(x->GetValue(i) / 10), i);
        const auto asksAfterTick = [&] {
            return host.Advance(std::chrono::milliseconds(100)), graph->NeedsCalculate();
        };
        form.Picture();
        EXPECT_FALSE(asksAfterTick());
        series->SetComponentIndex(0);
        EXPECT_TRUE(asksAfterTick());
    }
    host.Advance(std::chrono::seconds(1));
}

TEST_F(TSeriesTest, FormTextBringsLinksBackInAnyOrder)
{
    auto* const series = MakeSeries<TKxDataSeries>();
    series->SetName("Series");
    auto* const plain = new TKxRealVector(Form.get());
    plain->SetName("Plain");
    plain->SetPersistentValues(true);
    plain->Assign({1, 2, 3});
    Y->SetPersistentValues(true);
    Y->Assign({4, 6, 5});
    series->SetXData(plain);
    series->SetComponentIndex(0);
    const TRecording picture = Form->Picture();
    const std::string text = WriteComponentTree(*Form);
    Form.reset();

    std::vector<const TClassInfo*> classes;
    for (const auto folder : {HostClasses(), DataClasses(), GraphClasses(), SeriesClasses()})
        classes.insert(classes.end(), folder.begin(), folder.end());
    const TReadResult result = ReadComponentTree(text, classes);
    ASSERT_TRUE(result.Problems.empty()) << result.Problems.front().Message;
    const std::unique_ptr<TComponent> root(result.Root);
    auto& form = dynamic_cast<TForm&>(*root);
    auto& back = dynamic_cast<TKxDataSeries&>(*form.FindComponent("Series"));
    EXPECT_TRUE(IsRegistered(back.GetXAxis(), back.XRange()));
    EXPECT_EQ(form.Picture().ToText(), picture.ToText());
    EXPECT_EQ(back.XRange().GetStop(), 3);
}

TEST_F(TSeriesTest, AHiddenSeriesFeedsItsChildren)
{
    auto* const series = MakeSeries<TKxDataSeries>();
    auto* const child = new TTestChild(Form.get(), Log);
    child->SetName("c");
    series->AddChild(child);
    Fill({1, 2, 3}, {1, 2, 3});
    Form->Picture();
    const TPoint last = series->Points().Values().back() + Graph->World().DataRect().TopLeft();
    const double stop = series->GetYAxis()->GetStop();
    EXPECT_EQ(series->FindPoint(last.X, last.Y, 1), 2);
    series->SetShown(false);
    EXPECT_EQ(series->FindPoint(last.X, last.Y, 1), -1);
    const TRecording hidden = Form->Picture();
    EXPECT_TRUE(CommandsOf<TPolylineCommand>(hidden).empty() && CommandsOf<TStampCommand>(hidden).empty());
    Log.clear();
    Fill({1, 2, 3}, {1, 2, 90});
    Form->Picture();
    EXPECT_NE(Log.find("Cc"), std::string::npos);
    EXPECT_GT(series->GetYAxis()->GetStop(), stop);
}

}  // namespace
}  // namespace plotkit
