#include "drawing/PlotkitPlot.h"

#include <algorithm>

#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/Form.h"
#include "qt/KxGraphWidget.h"
#include "qt/KxPngExport.h"
#include "qt/KxVectorExport.h"
#include "series/KxDataSeries.h"
#if __has_include("series/KxBarSeries.h")
#include "series/KxBarSeries.h"
#include "series/KxDataWithErrorSeries.h"
#define PLOTKIT_HAS_BARS
#endif

namespace bench {

namespace {

using namespace plotkit;

class TMeasuredSeries : public TKxDataSeries
{
public:
    using TKxDataSeries::TKxDataSeries;
    void ForgetAll()
    {
        FX.Known.Clear();
        FY.Known.Clear();
    }
    void ScanAll()
    {
        FX.Forget();
        FY.Forget();
        GetNewXStartStop();
        GetNewYStartStop();
    }
};

class TPlotkitPlot : public TPlot
{
public:
    explicit TPlotkitPlot(TLook look) : FLook(look)
    {
        FGraph->SetParent(&FForm);
        FGraph->SetAlign(alClient);
        FWidget.resize(Width, Height);
        NewSeries();
    }

    void Prepare(std::size_t count, const TSource& source) override
    {
        FNewX.resize(count);
        FNewY.resize(count);
        for (std::size_t i = 0; i < count; ++i) {
            FNewX[i] = source.X(i);
            FNewY[i] = source.Y(i);
        }
    }

    void Take() override
    {
        if (FLook == TLook::Bars)
            FNewX.push_back(FNewX.back() + 1);  // edges, one more than bars
        if (FLook == TLook::ErrorBars)
            FErrors->Take(std::vector<double>(FNewX.size(), 0.5));
        FX->Take(std::move(FNewX));
        FY->Take(std::move(FNewY));
    }

    bool NewSeries() override
    {
        auto* const series = MakeSeries();
        FX = new TKxLiveVector(&FForm);
        FY = new TKxLiveVector(&FForm);
        series->SetXAxis(FGraph->GetPrimaryXAxis());
        series->SetYAxis(FGraph->GetPrimaryYAxis());
        series->SetXData(FX);
        series->SetYData(FY);
        series->GetAreaStyle().SetDrawXOred(false);  // as the others fill
        series->GetLineStyle().SetVisible(FLook != TLook::Circles && FLook != TLook::ErrorBars);
        series->GetLineStyle().SetWidth(FLook == TLook::WideLine ? 2 : 1);
        return true;
    }

    void Add(double x, double y) override
    {
        FX->Add(x);
        FY->Add(y);
    }

    void FindRange() override { FSeries->ScanAll(); }
    void Touch() override { FSeries->ForgetAll(); }
    void ShowX(double from, double to) override { Show(*FGraph->GetPrimaryXAxis(), from, to); }
    void ShowY(double from, double to) override { Show(*FGraph->GetPrimaryYAxis(), from, to); }

    void Replot() override
    {
        FForm.Invalidate();
        Refresh();
    }
    void Refresh() override
    {
        if (FLook == TLook::SmoothLine)
            FSmooth = RenderImage(FForm, {.Width = Width, .Height = Height, .Antialias = true});
        else
            FWidget.Shown();
    }
    QImage Picture() override { return FLook == TLook::SmoothLine ? FSmooth : FWidget.Shown(); }

    bool Export(const std::string& fileName) override
    {
        if (fileName.ends_with(".png"))
            ExportPng(FForm, fileName, {.Width = Width, .Height = Height});
        else if (fileName.ends_with(".svg"))
            ExportSvg(FForm, fileName, {.Width = Width, .Height = Height});
        else
            ExportPdf(FForm, fileName, {.Width = Width, .Height = Height});
        return true;
    }

private:
    TKxLineSeries* MakeSeries()
    {
#ifdef PLOTKIT_HAS_BARS
        if (FLook == TLook::Bars)
            return new TKxBarSeries(&FForm);
        if (FLook == TLook::ErrorBars) {
            auto* const series = new TKxDataWithErrorSeries(&FForm);
            series->GetPointStyle().SetStyle(SyPoint);
            series->SetdYPlus(FErrors);
            series->SetdYMinus(FErrors);
            return series;
        }
#endif
        FSeries = new TMeasuredSeries(&FForm);
        FSeries->GetPointStyle().SetVisible(FLook == TLook::Circles);
        FSeries->GetPointStyle().SetSize(2);
        return FSeries;
    }

    static void Show(TKxAxis& axis, double from, double to)
    {
        axis.SetStartEnd(AxFixed);
        axis.SetStopEnd(AxFixed);
        axis.SetStart(from);
        axis.SetStop(to);
    }

    TLook FLook;
    TForm FForm{nullptr};
    KxGraphWidget FWidget{&FForm};
    TKx2DGraph* FGraph = new TKx2DGraph(&FForm);
    TMeasuredSeries* FSeries = nullptr;
    TKxLiveVector* FX = nullptr;
    TKxLiveVector* FY = nullptr;
    TKxLiveVector* FErrors = new TKxLiveVector(&FForm);  ///< the same for all points
    std::vector<double> FNewX, FNewY;
    QImage FSmooth;
};

}  // namespace

TLibrary Plotkit()
{
    return {"Plotkit", [](TLook look) -> std::unique_ptr<TPlot> {
#ifndef PLOTKIT_HAS_BARS
                if (look == TLook::ErrorBars || look == TLook::Bars)
                    return nullptr;
#endif
                return std::make_unique<TPlotkitPlot>(look);
            }};
}

}  // namespace bench
