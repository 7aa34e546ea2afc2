#include <cmath>
#include <random>

#include "series/KxNearestPoint.h"
#include "series/SeriesFixture.h"

namespace plotkit {
namespace {

using TReals = std::vector<double>;

/// A form with a line.
struct TPlot
{
    std::unique_ptr<TForm> Form = std::make_unique<TForm>(&Application());
    TKx2DGraph* Graph = new TKx2DGraph(Form.get());
    TKxLiveVector* X = new TKxLiveVector(Form.get());
    TKxLiveVector* Y = new TKxLiveVector(Form.get());
    TKxDataSeries* Series = new TKxDataSeries(Form.get());

    TPlot()
    {
        Form->SetBounds(0, 0, 640, 480);
        Graph->SetParent(Form.get());
        Series->SetXAxis(Graph->GetPrimaryXAxis());
        Series->SetYAxis(Graph->GetPrimaryYAxis());
        Series->SetXData(X);
        Series->SetYData(Y);
        Series->GetPointStyle().SetVisible(false);
    }
    /// The range, and the values that the indexes of its ends tell.
    static void Add(TReals& ends, TRange& range, std::span<const double> values, int min, int max)
    {
        const TReals more{range.GetStart(), range.GetStop(), values[static_cast<std::size_t>(min)],
                          values[static_cast<std::size_t>(max)]};
        ends.insert(ends.end(), more.begin(), more.end());
    }
    TReals Ends() const
    {
        TReals ends;
        Add(ends, Series->XRange(), Series->XValues(), Series->XMinIndex(), Series->XMaxIndex());
        Add(ends, Series->YRange(), Series->YValues(), Series->YMinIndex(), Series->YMaxIndex());
        return ends;
    }
};

/// All values that a pair of rings ever got, and the pairs that are left of them.
struct THistory
{
    TReals Xs, Ys;
    std::size_t Newest = 0;

    std::size_t FirstOf(const TReals& values) const
    {
        return Newest > 0 && values.size() > Newest ? values.size() - Newest : 0;
    }
    void FillPairs(TPlot& plot) const
    {
        const std::size_t first = std::max(FirstOf(Xs), FirstOf(Ys)), end = std::min(Xs.size(), Ys.size());
        const std::size_t count = std::max(first, end) - first;
        plot.X->Assign(std::span(Xs).subspan(std::min(first, Xs.size()), count));
        plot.Y->Assign(std::span(Ys).subspan(std::min(first, Ys.size()), count));
    }
    void Trim()
    {
        Xs.erase(Xs.begin(), Xs.begin() + static_cast<std::ptrdiff_t>(FirstOf(Xs)));
        Ys.erase(Ys.begin(), Ys.begin() + static_cast<std::ptrdiff_t>(FirstOf(Ys)));
    }
};

class TRingTest : public testing::Test
{
protected:
    void Begin(std::size_t newest)
    {
        for (TKxLiveVector* vector : {Ring.X, Ring.Y}) {
            vector->Clear();
            vector->SetNewest(static_cast<int>(newest));
        }
        All = {{}, {}, newest};
    }
    std::size_t Below(std::size_t n) { return Random() % n; }
    double NextX()
    {
        Time += static_cast<double>(Below(3));
        if (Below(40'000) == 0)
            Time -= 1000;
        return Below(60'000) == 0 ? NAN : Time;
    }
    double NextY()
    {
        Height += static_cast<double>(Below(21)) - 10;
        return Below(300) == 0 ? (Below(2) ? NAN : Height + 3000) : Height;
    }
    void Edit()
    {
        const std::size_t kind = Below(12), size = All.Ys.size(), at = size > 0 ? Below(size) : 0;
        if (kind == 0)
            return Begin(Below(2) ? All.Newest : 1 + All.Newest / 2 + Below(All.Newest));
        for (TKxLiveVector* vector : {Ring.X, Ring.Y}) {
            TReals& values = vector == Ring.X ? All.Xs : All.Ys;
            const double value = vector == Ring.X ? NextX() : NextY();
            if (kind == 1 && size > 0) {
                vector->SetValue(static_cast<int>(at), vector == Ring.X ? values[at] : value);
                values[at] = vector == Ring.X ? values[at] : value;
            } else if (kind == 2 && size > 0) {
                vector->Delete(static_cast<int>(at));
                values.erase(values.begin() + static_cast<std::ptrdiff_t>(at));
            } else if (kind < 5) {
                vector->Add(value);
                values.push_back(value);
            }
        }
        if (kind >= 5)
            AppendBatch(Below(4) ? Below(50) : Below(All.Newest));
        All.Trim();
    }
    /// Looks when one of the vectors is ahead, too.
    void AppendBatch(std::size_t count)
    {
        TReals xs, ys;
        for (std::size_t i = 0; i < count; ++i) {
            xs.push_back(NextX());
            ys.push_back(NextY());
        }
        const bool xFirst = Below(2);
        for (const bool isX : {xFirst, !xFirst}) {
            (isX ? Ring.X : Ring.Y)->Append(isX ? xs : ys);
            TReals& values = isX ? All.Xs : All.Ys;
            values.insert(values.end(), (isX ? xs : ys).begin(), (isX ? xs : ys).end());
            if (isX == xFirst && Below(3) == 0) {
                Ring.Series->RangesModified();  // not of values that have no partner yet
                Compare();
            }
        }
    }
    void Compare()
    {
        All.FillPairs(Plain);
        if (Plain.Y->GetCount() < 2)
            return;  // axes stay where they were
        const std::string expected = Plain.Form->Picture().ToText(), picture = Ring.Form->Picture().ToText();
        ASSERT_EQ(Ring.Ends(), Plain.Ends());
        ASSERT_EQ(picture, expected);
        ASSERT_EQ(Ring.Series->PointsCount(), Plain.Series->PointsCount());
        ASSERT_EQ(Ring.Series->FindPoint(300, 200, 9), Plain.Series->FindPoint(300, 200, 9));
    }

    TPlot Ring, Plain;
    THistory All;
    std::mt19937 Random{1};
    double Time = 0, Height = 0;
};

TEST_F(TRingTest, IsDrawnLikeTheValuesThatAreLeft)
{
    for (const std::size_t newest : {3U, 40U, 900U, 70'000U})
        for (int seed = 0; seed < (newest > 50'000 ? 1 : 6); ++seed) {
            Begin(newest);
            if (seed % 2)
                AppendBatch(newest);
            for (int step = 0; step < 60; ++step) {
                for (std::size_t i = Below(6); i > 0; --i)
                    Edit();
                ASSERT_NO_FATAL_FAILURE(Compare()) << newest << ' ' << seed << ' ' << step;
            }
        }
}

TEST_F(TRingTest, CursorAndChildrenSeeWholePairs)
{
    Begin(100);
    for (int i = 0; i < 250; ++i) {
        Ring.X->Add(i);
        Ring.Y->Add(2 * i);
    }
    Ring.X->Append(TReals{250, 251, 252});
    const auto xs = Ring.Series->XValues(), ys = Ring.Series->YValues();
    ASSERT_EQ(ys.size(), 97U);
    for (std::size_t i = 0; i < ys.size(); ++i)
        EXPECT_EQ(2 * xs[i], ys[i]);
    Ring.Y->Clear();
    Ring.Y->Append(TReals{7, 8});
    EXPECT_EQ(Ring.Series->XValues().front(), 153) << "what is filled anew begins with the first one";
    EXPECT_EQ(Ring.Series->YValues().front(), 7);
}

TEST_F(TRingTest, SeriesThatComeLaterSeeTheSamePairs)
{
    Begin(100);
    for (const int late : {0, 60}) {  // one vector was filled from what the other had left
        const int places = static_cast<int>(Below(50));
        for (int i = 0; i < 100 + places + late; ++i) {
            Ring.X->Add(i);
            Ring.Y->Add(i);
        }
        if (late > 0)
            Ring.Y->Assign(Ring.X->Values());
        Ring.Series->SetXData(nullptr);
        Ring.Series->SetXData(Ring.X);
        Ring.X->Append(TReals{500, 501, 502});
        const auto xs = Ring.Series->XValues(), ys = Ring.Series->YValues();
        ASSERT_EQ(ys.size(), 97U);
        EXPECT_TRUE(std::equal(ys.begin(), ys.end(), xs.begin()));
        Ring.Y->Append(TReals{500, 501, 502});
    }
    Ring.Y->SetNewest(50);
    Ring.Form->Picture();
    TKxNearestPoint points(*Ring.Series);
    const auto place = [&](int i) { return Ring.Series->GetXAxis()->RealToIntPosition(Ring.X->GetValue(i)); };
    points.Find(place(99), std::nullopt);
    Ring.X->SetValue(80, 1000);  // no longer in order
    EXPECT_EQ(points.Find(place(96), std::nullopt), 46);
}

}  // namespace
}  // namespace plotkit
