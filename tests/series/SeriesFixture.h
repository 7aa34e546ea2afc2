// The job of SeriesFixture is a form with a graph and two live vectors, and series whose inner steps tests may run.
#pragma once

#include <memory>

#include "graph/GraphFixture.h"
#include "graph/KxDraw.h"
#include "host/Application.h"
#include "series/KxDataSeries.h"

namespace plotkit {

class TOpenSeries : public TKxDataSeries
{
public:
    using TKxDataSeries::TKxDataSeries;

    void GetNewXStartStop() override { ++Scans, TKxDataSeries::GetNewXStartStop(); }
    void GetNewYStartStop() override { ++Scans, TKxDataSeries::GetNewYStartStop(); }

    int Scans = 0;
};

/// A calculated series that only tells what it is asked to do.
class TTestChild : public TKxSeries
{
public:
    TTestChild(TComponent* owner, std::string& log) : TKxSeries(owner), Log(log) {}
    ~TTestChild() override { BeginDestroy(), Log += "~" + GetName() + " "; }
    bool IsCalculated() const override { return true; }
    void Calculate() override { Log += "C" + GetName() + " "; }
    void CalculateLine() override { Log += "L" + GetName() + " "; }
    void Modified() override { Log += "M" + GetName() + " ", TKxSeries::Modified(); }

    std::string& Log;
};

class TSeriesTest : public testing::Test
{
protected:
    TSeriesTest()
    {
        Form->SetName("Main");
        Form->SetBounds(0, 0, 640, 480);
        Graph->SetParent(Form.get());
        X->SetName("X");
        Y->SetName("Y");
        Graph->GetPrimaryXAxis();
    }

    template <class T>
    T* MakeSeries()
    {
        auto* const series = new T(Form.get());
        series->SetXData(X);
        series->SetYData(Y);
        return series;
    }
    void Fill(std::vector<double> xs, std::vector<double> ys)
    {
        X->Take(std::move(xs));
        Y->Take(std::move(ys));
    }

    std::string Log;
    std::unique_ptr<TForm> Form = std::make_unique<TForm>(&Application());
    TKx2DGraph* Graph = new TKx2DGraph(Form.get());
    TKxLiveVector* X = new TKxLiveVector(Form.get());
    TKxLiveVector* Y = new TKxLiveVector(Form.get());
};

}  // namespace plotkit
