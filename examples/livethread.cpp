// example_livethread [ROWS]: a thread measures two channels a thousand times a second, a window shows the last ten
// seconds of them. With ROWS it ends when it has got so many.
#include <QApplication>
#include <chrono>
#include <cmath>
#include <iostream>
#include <thread>

#include "data/KxVector.h"
#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "graph/KxLegend.h"
#include "host/Form.h"
#include "qt/KxGraphWidget.h"
#include "qt/KxLiveFeed.h"
#include "qt/KxQtHost.h"
#include "series/KxDataSeries.h"

using namespace plotkit;

namespace {

constexpr int Newest = 10000;

/// What a program has instead of a device; ends when nobody wants the values any more.
void Measure(TKxRowQueue& queue)
{
    const auto start = std::chrono::steady_clock::now();
    double second = 0;
    for (int i = 1; queue.Push(second, std::sin(0.8 * second), 0.5 * std::cos(2.3 * second)); ++i) {
        second = 0.001 * i;
        std::this_thread::sleep_until(start + std::chrono::milliseconds(i));
    }
}

TKxLiveVector* NewVector(TForm& form)
{
    auto* vector = new TKxLiveVector(&form);
    vector->SetNewest(Newest);
    return vector;
}

void AddCurve(TKx2DGraph& graph, TKxRealVector* x, TKxRealVector* y, const char* name, TColor color)
{
    auto* series = new TKxDataSeries(graph.Owner());
    series->SetCaption(TKxCaption(name));
    series->SetXAxis(graph.GetPrimaryXAxis());
    series->SetYAxis(graph.GetPrimaryYAxis());
    series->GetPointStyle().SetVisible(false);
    series->GetLineStyle().SetColor(color);
    series->SetXData(x);
    series->SetYData(y);
}

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    TQtHost host;
    const THostGuard guard(host);
    TForm form(nullptr);
    auto* graph = new TKx2DGraph(&form);
    graph->SetParent(&form);
    graph->SetAlign(alClient);
    TKxLiveVector *second = NewVector(form), *volt = NewVector(form), *ampere = NewVector(form);
    AddCurve(*graph, second, volt, "U / V", clRed);
    AddCurve(*graph, second, ampere, "I / A", clBlue);
    graph->GetPrimaryXAxis()->SetUserCaption("t / s");
    graph->GetPrimaryXAxis()->SetDoUserCaption(true);
    graph->GetPrimaryXAxis()->SetShowCaption(true);
    (new TKxLegend(&form))->SetParent(graph);

    TKxLiveFeed feed({second, volt, ampere});
    std::size_t shown = 0;
    feed.OnRows = [&](std::size_t rows) {
        shown += rows;
        if (argc > 1 && shown >= std::stoul(argv[1]))
            QApplication::quit();
    };
    std::thread acquisition([queue = feed.Queue()] { Measure(*queue); });

    KxGraphWidget widget(&form);
    widget.resize(640, 400);
    widget.show();
    const int result = QApplication::exec();
    feed.Close();  // ends the thread's loop; joining first would wait for ever
    acquisition.join();
    std::cout << "shown: " << shown << " rows, kept: " << second->GetCount() << std::endl;
    return result;
}
