// The job of QwtBench is Qwt as the drawing benchmarks see it, in a program of its own: Qwt needs Qt 5.
#include <benchmark/benchmark.h>
#include <qwt_interval_symbol.h>
#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_directpainter.h>
#include <qwt_plot_histogram.h>
#include <qwt_plot_intervalcurve.h>
#include <qwt_plot_renderer.h>
#include <qwt_point_data.h>
#include <qwt_symbol.h>

#include <QApplication>
#include <QImage>

#include "drawing/DrawingCases.h"

namespace bench {

namespace {

class TQwtPlot : public TPlot
{
public:
    explicit TQwtPlot(TLook look) : FLook(look)
    {
        auto* const canvas = new QwtPlotCanvas;
        canvas->setPaintAttribute(QwtPlotCanvas::ImmediatePaint);
        FPlot.setCanvas(canvas);
        FPlot.resize(Width, Height);
        FPlot.show();
        QApplication::processEvents();
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
        FX = std::move(FNewX);
        FY = std::move(FNewY);
        if (FLook == TLook::Bars || FLook == TLook::ErrorBars) {
            QVector<QwtIntervalSample> samples;
            for (std::size_t i = 0; i < FX.size(); ++i)
                samples << (FLook == TLook::Bars ? QwtIntervalSample(FY[i], FX[i], FX[i] + 1)
                                                 : QwtIntervalSample(FX[i], FY[i] - 0.5, FY[i] + 0.5));
            FHistogram ? FHistogram->setSamples(samples) : FIntervals->setSamples(samples);
        } else if (FKeepsArrays) {
            FCurve->setSamples(FX.data(), FY.data(), static_cast<int>(FX.size()));
        } else {
            FCurve->setRawSamples(FX.data(), FY.data(), static_cast<int>(FX.size()));
        }
    }

    bool NewSeries() override
    {
        FKeepsArrays = FCurve;  // those of the first series are gone by then
        if (FLook == TLook::Bars) {
            (FHistogram = new QwtPlotHistogram)->attach(&FPlot);
        } else if (FLook == TLook::ErrorBars) {
            (FIntervals = new QwtPlotIntervalCurve)->attach(&FPlot);
            FIntervals->setStyle(QwtPlotIntervalCurve::NoCurve);
            auto* const symbol = new QwtIntervalSymbol(QwtIntervalSymbol::Bar);
            symbol->setWidth(5);
            symbol->setPen(QPen(Qt::red, 1));
            FIntervals->setSymbol(symbol);
        } else {
            (FCurve = new QwtPlotCurve)->attach(&FPlot);
            FCurve->setPen(Qt::red, FLook == TLook::WideLine ? 2 : 1);
            FCurve->setRenderHint(QwtPlotItem::RenderAntialiased, FLook == TLook::SmoothLine);
            if (FLook == TLook::Circles) {
                FCurve->setStyle(QwtPlotCurve::NoCurve);
                FCurve->setSymbol(new QwtSymbol(QwtSymbol::Ellipse, Qt::NoBrush, QPen(Qt::blue, 1), QSize(5, 5)));
            }
        }
        return true;
    }

    void Add(double x, double y) override
    {
        FX.push_back(x);
        FY.push_back(y);
    }

    void FindRange() override
    {
        const QwtCPointerData fresh(FX.data(), FY.data(), FX.size());
        benchmark::DoNotOptimize(fresh.boundingRect());
    }

    void ShowX(double from, double to) override { FPlot.setAxisScale(QwtPlot::xBottom, from, to); }
    void ShowY(double from, double to) override { FPlot.setAxisScale(QwtPlot::yLeft, from, to); }
    void Replot() override
    {
        FPlot.replot();
        FShown = FX.size();
    }

    /// Only the new piece of the line.
    void Refresh() override
    {
        FCurve->setRawSamples(FX.data(), FY.data(), static_cast<int>(FX.size()));
        FPainter.drawSeries(FCurve, static_cast<int>(FShown) - 1, static_cast<int>(FX.size()) - 1);
        FShown = FX.size();
    }

    QImage Picture() override { return FPlot.grab().toImage(); }

    bool Export(const std::string& fileName) override
    {
        constexpr double InchMillimetres = 25.4, Dpi = 96;
        QwtPlotRenderer().renderDocument(&FPlot, QString::fromStdString(fileName),
                                         QSizeF(Width, Height) / Dpi * InchMillimetres, static_cast<int>(Dpi));
        return true;
    }

private:
    TLook FLook;
    QwtPlot FPlot;
    QwtPlotDirectPainter FPainter;
    QwtPlotCurve* FCurve = nullptr;
    QwtPlotIntervalCurve* FIntervals = nullptr;
    QwtPlotHistogram* FHistogram = nullptr;
    std::vector<double> FNewX, FNewY, FX, FY;
    std::size_t FShown = 0;
    bool FKeepsArrays = false;
};

TLibrary Qwt()
{
    return {"Qwt", [](TLook look) { return std::make_unique<TQwtPlot>(look); }};
}

}  // namespace

}  // namespace bench

int main(int count, char** arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&count, arguments);
    const QApplication application(count, arguments);
    if (bench::RunInstead(count, arguments, {bench::Qwt()}))
        return 0;
    bench::RegisterCases(bench::Qwt());
    benchmark::RunSpecifiedBenchmarks();
}
