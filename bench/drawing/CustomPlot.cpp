#include "drawing/CustomPlot.h"

#include <qcustomplot.h>

#include <QSvgGenerator>
#include <algorithm>

namespace bench {

namespace {

class TCustomPlot : public TPlot
{
public:
    TCustomPlot(TLook look, bool isHinted) : FLook(look)
    {
        FPlot.resize(Width, Height);
        FPlot.setViewport({0, 0, Width, Height});
        FPlot.setNotAntialiasedElements(look == TLook::SmoothLine ? QCP::aeNone : QCP::aeAll);
        FPlot.setPlottingHint(QCP::phFastPolylines, isHinted);
        NewSeries();
    }

    void Prepare(std::size_t count, const TSource& source) override
    {
        FX.resize(static_cast<qsizetype>(count));
        FY.resize(FX.size());
        for (qsizetype i = 0; i < FX.size(); ++i) {
            FX[i] = source.X(static_cast<std::size_t>(i));
            FY[i] = source.Y(static_cast<std::size_t>(i));
        }
    }

    void Take() override
    {
        if (FBars)
            FBars->setData(FX, FY, true);
        else
            FGraph->setData(FX, FY, true);
        if (FErrors)
            FErrors->setData(QVector<double>(FX.size(), 0.5));
        FPlot.rescaleAxes();
    }

    bool NewSeries() override
    {
        if (FLook == TLook::Bars) {
            FBars = new QCPBars(FPlot.xAxis, FPlot.yAxis);
            return true;
        }
        FGraph = FPlot.addGraph();
        FGraph->setPen(QPen(Qt::red, FLook == TLook::WideLine ? 2 : 1));
        FGraph->setAntialiased(FLook == TLook::SmoothLine);
        if (FLook == TLook::Circles || FLook == TLook::ErrorBars)
            FGraph->setLineStyle(QCPGraph::lsNone);
        if (FLook == TLook::Circles)
            FGraph->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssCircle, 5));
        if (FLook == TLook::ErrorBars) {
            FErrors = new QCPErrorBars(FPlot.xAxis, FPlot.yAxis);
            FErrors->setDataPlottable(FGraph);
            FErrors->setWhiskerWidth(5);
            FErrors->setSymbolGap(0);
            FErrors->setPen(QPen(Qt::red, 1));
        }
        return true;
    }

    void Add(double x, double y) override { FGraph->addData(x, y); }

    void FindRange() override
    {
        bool found = false;
        FGraph->getKeyRange(found);
        FGraph->getValueRange(found);
    }

    void ShowX(double from, double to) override { FPlot.xAxis->setRange(from, to); }
    void ShowY(double from, double to) override { FPlot.yAxis->setRange(from, to); }

    /// Into its own image: what a window would have to copy is left out.
    void Replot() override { FPlot.replot(QCustomPlot::rpQueuedRefresh); }
    QImage Picture() override { return FPlot.toPixmap(Width, Height).toImage(); }

    bool Export(const std::string& fileName) override
    {
        const QString name = QString::fromStdString(fileName);
        if (name.endsWith(".png"))
            return FPlot.savePng(name, Width, Height);
        if (name.endsWith(".pdf"))
            return FPlot.savePdf(name, Width, Height);
        QSvgGenerator generator;
        generator.setFileName(name);
        generator.setSize({Width, Height});
        generator.setViewBox(QRect(0, 0, Width, Height));
        QCPPainter painter;
        painter.begin(&generator);
        painter.setMode(QCPPainter::pmVectorized);
        FPlot.toPainter(&painter, Width, Height);
        return painter.end();
    }

private:
    TLook FLook;
    QCustomPlot FPlot;
    QCPGraph* FGraph = nullptr;
    QCPErrorBars* FErrors = nullptr;
    QCPBars* FBars = nullptr;
    QVector<double> FX, FY;
};

}  // namespace

TLibrary CustomPlot()
{
    return {"QCustomPlot", [](TLook look) { return std::make_unique<TCustomPlot>(look, false); }};
}

TLibrary HintedCustomPlot()
{
    return {"QCustomPlot, hinted", [](TLook look) -> std::unique_ptr<TPlot> {
                return look == TLook::WideLine ? std::make_unique<TCustomPlot>(look, true) : nullptr;
            }};
}

}  // namespace bench
