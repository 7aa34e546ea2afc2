#include <cmath>
#include <random>

#include "series/SeriesFixture.h"

namespace plotkit {
namespace {

struct TState
{
    explicit TState(TKxSeries& series)
        : Ends{series.XRange().GetStart(), series.XRange().GetStop(), series.YRange().GetStart(),
               series.YRange().GetStop()},
          Points(series.Points().Values().begin(), series.Points().Values().end())
    {}

    std::vector<double> Ends;
    std::vector<TPoint> Points;
};

class TIncremental : public TSeriesTest
{
protected:
    TIncremental() { SetEnds(AxFixed); }

    void SetEnds(TKxAxEnd ends)
    {
        for (TKxAxis* axis : {Graph->PrimaryXAxis(), Graph->PrimaryYAxis()}) {
            axis->SetStartEnd(ends);
            axis->SetStopEnd(ends);
        }
    }
    void CalculateAll()
    {
        Series->CalculatePoints();  // the ranges
        Series->CalculatePoints();
    }
    void Edit(std::mt19937& random)
    {
        const auto value = [&] {
            const auto drawn = random() % 40;
            return drawn == 0 ? std::nan("") : drawn == 1 ? INFINITY : static_cast<double>(drawn) - 20;
        };
        const int count = Y->GetCount();
        const bool swapped = random() % 2;
        TKxLiveVector* const both[] = {swapped ? Y : X, swapped ? X : Y};
        const int at = count ? static_cast<int>(random() % static_cast<unsigned>(count)) : 0;
        const std::vector<double> more{value(), value(), value()};
        const auto kind = random() % 8;
        for (TKxLiveVector* vector : both)
            if (kind == 0)
                vector->Append(more);
            else if (kind == 1)
                vector->Delete(at);
            else if (kind == 2)
                vector->Insert(at, value());
            else if (kind == 3)
                vector->Assign(more);
            else if (kind > 5)
                vector->Add(value());
            else if (count && vector == both[0])
                vector->SetValue(at, value());
        if (kind == 2)
            Series->RangesModified();  // an insertion tells of the new element alone
    }

    TOpenSeries* Series = MakeSeries<TOpenSeries>();
};

TEST_F(TIncremental, EqualsFullRecalculation)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        Fill({}, {});
        for (int step = 0; step < 60; ++step) {
            Edit(random);
            if (Series->RangesNeedRecalc())
                CalculateAll();
            const TState incremental(*Series);
            const int indices[] = {Series->XMinIndex(), Series->XMaxIndex(), Series->YMinIndex(), Series->YMaxIndex()};
            for (std::size_t i = 0; i < 4; ++i)
                if (indices[i] >= 0) {
                    ASSERT_EQ((i < 2 ? X : Y)->GetValue(indices[i]), incremental.Ends[i]) << seed << " " << step;
                }
            Series->RangesModified();
            CalculateAll();
            const TState full(*Series);
            ASSERT_EQ(incremental.Ends, full.Ends) << seed << " " << step;
            if (!full.Points.empty()) {
                ASSERT_EQ(incremental.Points, full.Points) << seed << " " << step;
            }
        }
    }
}

TEST_F(TIncremental, ScansOnlyWhenAnExtremeMovesInward)
{
    const auto scansOf = [this](TKxLiveVector* vector, int index, double value) {
        Series->Scans = 0;
        vector->SetValue(index, value);
        return Series->Scans;
    };
    Fill({1, 2, 3, 4, 9}, {5, 9, 9, 1, 3});
    CalculateAll();
    EXPECT_EQ(scansOf(X, 4, 11), 0);
    EXPECT_EQ(scansOf(X, 4, 8), 1);
    EXPECT_EQ(scansOf(Y, 0, 9), 0);
    EXPECT_EQ(Series->YMaxIndex(), 1);
    Y->SetValue(1, 9);  // the first of three now
    EXPECT_EQ(Series->YMaxIndex(), 0);
    EXPECT_EQ(scansOf(X, 0, std::nan("")), 1);
    Y->SetValue(2, 1);
    Y->SetValue(3, 1);  // the second of two smallest
    EXPECT_EQ(Series->YMinIndex(), 2);
    X->Add(100);  // a point that has no ordinate yet
    EXPECT_EQ(Series->XRange().GetStop(), 100);
    X->SetValue(1, -5);
    EXPECT_EQ(Series->XRange().GetStart(), -5);
    EXPECT_EQ(Series->XRange().GetStop(), 8) << "a scan sees whole points only";
}

TEST_F(TIncremental, LiveDataAreNotScannedAgain)
{
    SetEnds(AxAutoRange);
    for (int i = 0; i < 100'000; ++i) {
        X->Add(i);
        Y->Add(std::sin(i * 0.01) - i);
    }
    EXPECT_LT(Series->Scans, 10);
    EXPECT_EQ(Series->PointsCount(), 100'000);
    EXPECT_EQ(Series->XRange().GetStop(), 99'999);
    EXPECT_EQ(Graph->PrimaryXAxis()->GetStop(), 99'999);
}

}  // namespace
}  // namespace plotkit
