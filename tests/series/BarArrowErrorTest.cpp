#include <cmath>
#include <numeric>
#include <random>

#include "host/DateTime.h"
#include "series/KxArrowSeries.h"
#include "series/KxBarSeries.h"
#include "series/KxDataWithErrorSeries.h"
#include "series/SeriesFixture.h"

namespace plotkit {
namespace {

class TKinds : public TSeriesTest
{
protected:
    TKxLiveVector* Vector(std::vector<double> values)
    {
        auto* const vector = new TKxLiveVector(Form.get());
        vector->Take(std::move(values));
        return vector;
    }
    TKxBarSeries* Bars(TKxLiveVector* edges, std::vector<double> values, TColor color = clGray)
    {
        auto* const bars = new TKxBarSeries(Form.get());
        bars->SetXData(edges);
        bars->SetYData(Vector(std::move(values)));
        bars->GetAreaStyle().SetColor(color);
        bars->GetAreaStyle().SetDrawXOred(false);
        return bars;
    }
    /// Boxes that are filled with a colour, from the corner of the data.
    std::vector<TRect> Boxes(TColor color = clGray)
    {
        std::vector<TRect> boxes;
        const TRecording picture = Form->Picture();
        const TPoint origin = Graph->World().DataRect().TopLeft();
        for (const auto& box : CommandsOf<TRectangleCommand>(picture))
            if (box.Brush.Color == color && box.Pen.Style != psClear)
                boxes.push_back(box.Box.Shifted({-origin.X, -origin.Y}));
        return boxes;
    }
    std::vector<TPoint> Lines(TColor color)
    {
        std::vector<TPoint> ends;
        const TRecording picture = Form->Picture();
        const TPoint origin = Graph->World().DataRect().TopLeft();
        for (const auto& lines : CommandsOf<TLinesCommand>(picture))
            if (lines.Pen.Color == color)
                for (const TPoint end : lines.Ends)
                    ends.push_back(end - origin);
        return ends;
    }
    int AtX(double value) const { return Graph->PrimaryXAxis()->RealToIntPosition(value); }
    int AtY(double value) const { return Graph->PrimaryYAxis()->RealToIntPosition(value); }
};

TEST_F(TKinds, ErrorBarsReachTheirValuesAndTheAxesKeepThem)
{
    auto* const series = MakeSeries<TKxDataWithErrorSeries>();
    Fill({1, 2, 3}, {10, 20, 30});
    series->SetErrorColor(clBlue);
    series->SetdYPlus(Vector({-5, std::nan("")}));
    series->SetdXMinus(Vector({0.5}));
    series->GetPointStyle().SetColor(clRed);
    const auto lines = Lines(clBlue);
    const TPoint at{AtX(1), AtY(10)};
    const int left = AtX(0.5), top = AtY(15);
    const std::vector<TPoint> expected{at, {left, at.Y}, {left, at.Y - 5}, {left, at.Y + 5},
                                       at, {at.X, top},  {at.X - 5, top},  {at.X + 5, top}};
    EXPECT_EQ(lines, expected);
    EXPECT_EQ(series->XRange().GetStart(), 0.5);
    EXPECT_EQ(series->YRange().GetStop(), 30);
    series->GetdYPlus()->SetValue(2, 12);
    EXPECT_EQ(series->YRange().GetStop(), 42);
    series->GetPointStyle().SetVisible(false);
    EXPECT_TRUE(Lines(clBlue).empty());
    EXPECT_EQ(series->YRange().GetStop(), 30);
    series->GetPointStyle().SetVisible(true);
    Form->Picture();
    Graph->PrimaryXAxis()->ZoomIn(1.25, 3);
    EXPECT_EQ(Lines(clBlue).size(), 4U) << "a point outside has no bars";
}

TEST_F(TKinds, OneVectorServesBothSidesAndLeavesThemOneByOne)
{
    auto* const series = MakeSeries<TKxDataWithErrorSeries>();
    Fill({1, 2}, {10, 20});
    TKxLiveVector* const error = Vector({1, 1});
    series->SetdYPlus(error);
    series->SetdYMinus(error);
    Form->Picture();
    series->SetdYPlus(nullptr);
    Form->Picture();
    error->SetValue(0, 4);
    EXPECT_EQ(series->YRange().GetStart(), 6);
    series->SetYData(error);
    series->SetYData(Y);
    Form->Picture();
    error->SetValue(0, 5);
    EXPECT_EQ(series->YRange().GetStart(), 5) << "it was the ordinate for a while";
    delete error;
    EXPECT_FALSE(series->GetdYMinus());
    Form->Picture();
    EXPECT_EQ(series->YRange().GetStart(), 10);
}

TEST_F(TKinds, ErrorsOnALogarithmicAxisEndAtItsFloor)
{
    auto* const series = MakeSeries<TKxDataWithErrorSeries>();
    Fill({1, 2}, {10, 1000});
    series->SetErrorColor(clBlue);
    series->SetdYMinus(Vector({15, 900}));
    Form->Picture();
    Graph->PrimaryYAxis()->SetScaling(AxLog);
    const auto lines = Lines(clBlue);
    ASSERT_EQ(lines.size(), 8U);
    EXPECT_EQ(Graph->PrimaryYAxis()->GetStart(), 10) << "not dragged down to what cannot be shown";
    EXPECT_EQ(lines[1].Y, AtY(10));
    EXPECT_EQ(lines[5].Y, AtY(100));
}

TEST_F(TKinds, BarsStandBetweenEdges)
{
    TKxLiveVector* const edges = Vector({0, 1, 2, 4});
    TKxBarSeries* const bars = Bars(edges, {2, -1, 3, 7});
    bars->SetBarsGapPercent(50);
    const auto boxes = Boxes();
    ASSERT_EQ(boxes.size(), 3U);
    const int gap = static_cast<int>(std::nearbyint((AtX(4) - AtX(2)) / 4.0));
    EXPECT_EQ(boxes[0], (TRect{AtX(2) + gap, AtY(3), AtX(4) - gap, AtY(0)})) << "last bar first";
    EXPECT_EQ(boxes[1].Top, AtY(0));
    EXPECT_EQ(boxes[1].Bottom, AtY(-1));
    const TPoint origin = Graph->World().DataRect().TopLeft();
    EXPECT_EQ(bars->FindPoint(origin.X + AtX(3), origin.Y + AtY(3) + 2, 3), 2);
    EXPECT_EQ(bars->FindPoint(origin.X + AtX(0.5), origin.Y + AtY(3), 3), -1);
    EXPECT_EQ(bars->PointsCount(), 3);
    EXPECT_EQ(bars->Points().GetCount(), 4);
    bars->SetBarsGapPercent(100);
    EXPECT_TRUE(Boxes().empty());
    bars->SetBarsGapPercent(0);
    edges->Assign(std::vector<double>{4, 1, 1, std::nan(""), 0});
    EXPECT_EQ(Boxes().size(), 1U) << "equal and missing edges are no bar, descending ones are";
    Graph->PrimaryYAxis()->SetScaling(AxLog);
    edges->Assign(std::vector<double>{0, 1, 2, 3});
    const auto onLog = Boxes();
    ASSERT_EQ(onLog.size(), 2U);
    EXPECT_EQ(onLog[0].Bottom, Graph->PrimaryYAxis()->Mapping().PixelLength);
    EXPECT_EQ(Graph->PrimaryYAxis()->GetStart(), 1);
}

TEST_F(TKinds, BarsCloserThanPixelsAreSeen)
{
    std::vector<double> edges(20'001), values(20'000, 1);
    for (std::size_t i = 0; i < edges.size(); ++i)
        edges[i] = static_cast<double>(i);
    values[10'001] = 50;
    Bars(Vector(edges), values);
    const auto boxes = Boxes();
    EXPECT_LT(boxes.size(), 1000U);
    EXPECT_EQ(std::count_if(boxes.begin(), boxes.end(), [&](const TRect& box) { return box.Top == AtY(50); }), 1);
}

TEST_F(TKinds, BarsShareCategoriesAndStandOnEachOther)
{
    TKxLiveVector* const edges = Vector({0, 1, 2});
    TKxBarSeries* const first = Bars(edges, {2, 5}, clRed);
    TKxBarSeries* const second = Bars(edges, {3, -3}, clBlue);
    TKxBarSeries* const third = Bars(edges, {1, 4}, clGray);
    for (TKxBarSeries* const bars : {first, second, third})
        bars->SetStackOverlays(true);
    Form->Picture();
    EXPECT_EQ(Boxes()[1].Bottom, AtY(5));
    EXPECT_EQ(third->YRange().GetStop(), 6);
    first->GetYData()->SetValue(0, 10);
    Form->Picture();
    EXPECT_EQ(Boxes()[1].Bottom, AtY(13)) << "a change below moves what stands on it";
    EXPECT_EQ(third->YRange().GetStop(), 14);
    first->GetYData()->SetValue(0, 2);
    const auto at = [&](TKxBarSeries& bars, std::size_t i) { return Boxes(bars.SampleArea()->GetColor())[i]; };
    first->SetShow3DBars(true);
    second->SetShow3DBars(true);
    third->SetShow3DBars(true);
    // A stack that leads back: each front has something of it before all others.
    const auto fronts = CommandsOf<TRectangleCommand>(Form->Picture());
    const auto order = [&](TColor color) {
        return std::find_if(fronts.rbegin(), fronts.rend(), [&](const auto& f) { return f.Brush.Color == color; });
    };
    EXPECT_LT(order(clBlue), order(clGray));
    EXPECT_EQ(at(*second, 1), (TRect{AtX(1), AtY(5), AtX(2), AtY(2)}));

    for (TKxBarSeries* const bars : {first, second, third}) {
        bars->SetShiftOverlays(true);
        EXPECT_FALSE(bars->GetStackOverlays());
        bars->SetShow3DBars(false);
    }
    third->SetBarsGapPercent(20);
    EXPECT_EQ(at(*first, 1).Right, at(*second, 1).Left);
    EXPECT_EQ(at(*second, 1).Right, at(*third, 1).Left);
    EXPECT_EQ(at(*third, 1).Right, AtX(1) - static_cast<int>(std::nearbyint(AtX(1) / 10.0)));
    delete second;
    EXPECT_EQ(at(*first, 1).Right, at(*third, 1).Left);
}

TEST_F(TKinds, ArrowsWidenTheAxesAndBadOnesDoNoHarm)
{
    auto* const arrows = MakeSeries<TKxArrowSeries>();
    arrows->GetLineStyle().SetColor(clBlue);
    Fill({0, 1, 2, 3}, {0, 0, 0, 0});
    arrows->SetDX(Vector({4, 0, std::nan("")}));
    arrows->SetDY(Vector({-2, 0, 1}));
    const auto shafts = Lines(clBlue);
    const std::vector<TPoint> expected{{AtX(0), AtY(0)},     {AtX(4), AtY(-2)}, {AtX(1), AtY(0)},
                                       {AtX(1), AtY(0) + 1}, {AtX(3), AtY(0)},  {AtX(3), AtY(0) + 1}};
    EXPECT_EQ(shafts, expected);
    EXPECT_EQ(arrows->XRange().GetStop(), 4);
    EXPECT_EQ(arrows->YRange().GetStart(), -2);
    EXPECT_EQ(CommandsOf<TPolygonCommand>(Form->Picture()).size(), 1U);
    arrows->SetTipLength(0);
    EXPECT_TRUE(CommandsOf<TPolygonCommand>(Form->Picture()).empty());
    arrows->SetDX(nullptr);
    Form->Picture();
    EXPECT_EQ(arrows->XRange().GetStop(), 3);
    arrows->GetLineStyle().SetVisible(false);
    EXPECT_TRUE(Lines(clBlue).empty());
    EXPECT_EQ(arrows->YRange().GetStart(), 0);
}

/// Random edits of all vectors of a series: what it follows step by step equals what a fresh look finds.
template <class TSeries>
class TFollowed : public TKinds
{
protected:
    void Link(TKxDataWithErrorSeries& series) { series.SetdXPlus(Extra), series.SetdYMinus(Extra); }
    void Link(TKxArrowSeries& series) { series.SetDX(Extra), series.SetDY(Extra); }
    void Link(TKxBarSeries& series)
    {
        std::vector<double> edges(50);
        std::iota(edges.begin(), edges.end(), 0);
        TKxBarSeries* const below = Bars(Vector(edges), {}, clRed);
        below->SetYData(Extra);
        below->SetComponentIndex(0);
        below->SetStackOverlays(true);
        series.SetStackOverlays(true);
    }
    static std::vector<double> State(TKxSeries& series)
    {
        std::vector<double> state{series.XRange().GetStart(), series.XRange().GetStop(), series.YRange().GetStart(),
                                  series.YRange().GetStop()};
        for (const TPoint point : series.Points().Values())
            state.insert(state.end(), {1.0 * point.X, 1.0 * point.Y});
        return state;
    }
    TKxLiveVector* Extra = Vector({});
};

using TFollowedKinds = testing::Types<TKxDataWithErrorSeries, TKxArrowSeries, TKxBarSeries>;
TYPED_TEST_SUITE(TFollowed, TFollowedKinds);

TYPED_TEST(TFollowed, EqualsFullRecalculation)
{
    auto* const series = this->template MakeSeries<TypeParam>();
    this->Link(*series);
    for (unsigned seed = 1; seed <= 12; ++seed) {
        std::mt19937 random(seed);
        this->Fill(std::vector<double>(std::is_same_v<TypeParam, TKxBarSeries> ? 1 : 0), {});
        this->Extra->Clear();
        for (int step = 0; step < 40; ++step) {
            const int count = this->Y->GetCount();
            const int at = count ? static_cast<int>(random() % static_cast<unsigned>(count)) : 0;
            const double value = random() % 9 ? static_cast<double>(random() % 40) - 20 : std::nan("");
            const auto kind = random() % 6, which = random() % 3;
            const std::array vectors{this->X, this->Y, this->Extra};
            if (kind == 1 && at < vectors[which]->GetCount())
                vectors[which]->SetValue(at, value);
            else
                for (TKxLiveVector* const each : vectors)
                    if (kind > 1 && (each != this->Extra || which))
                        each->Add(value + each->GetCount());
                    else if (kind == 0 && at < std::min(count, each->GetCount()))
                        each->Delete(at);
            this->Form->Picture();
            const auto followed = this->State(*series);
            series->RangesModified();
            this->Form->Picture();
            const auto full = this->State(*series);
            if (series->Points().GetCount() == 0)
                continue;  // nothing to look at
            ASSERT_EQ(full.size(), followed.size());
            for (std::size_t i = 0; i < full.size(); ++i)
                ASSERT_EQ(followed[i], full[i]) << seed << ' ' << step << ' ' << i;
        }
    }
}

TYPED_TEST(TFollowed, BadInputOnEveryScaling)
{
    auto* const series = this->template MakeSeries<TypeParam>();
    this->Link(*series);
    const double inf = INFINITY, none = std::nan("");
    for (const TKxAxScaling scaling : {AxNormal, AxLog, AxLogEE, AxDateTime})
        for (const auto& values : {std::vector<double>{},
                                   {0},
                                   {none, none},
                                   {-1, -2},
                                   {1e300, -1e300, inf, 1e-300},
                                   {3, 1, 1, 0, -5, none, 7},
                                   {1e308, 1e308, -1e308, 1.7e308}}) {
            this->Graph->PrimaryXAxis()->SetScaling(scaling);
            this->Graph->PrimaryYAxis()->SetScaling(scaling);
            this->Fill(values, values);
            this->Extra->Assign(values);
            this->Form->Picture();
            EXPECT_FALSE(series->PointsNeedRecalc() && series->PointsCount() > 0);
            series->FindPoint(3, 3, 5);
            const TRecording settled = this->Form->Picture();
            EXPECT_EQ(settled, this->Form->Picture());
        }
}

}  // namespace
}  // namespace plotkit
