// example_livescope [SCANS]: a device hands over blocks of scans of two channels, 100,000 scans a second, and a window
// shows the last fifth of a second. What the window cannot take in time is dropped and counted. With SCANS it ends when
// it has got so many.
#include <QApplication>
#include <chrono>
#include <cmath>
#include <iostream>
#include <thread>

#include "data/KxVector.h"
#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/Form.h"
#include "qt/KxGraphWidget.h"
#include "qt/KxLiveFeed.h"
#include "qt/KxQtHost.h"
#include "series/KxDataSeries.h"

using namespace plotkit;

namespace {

constexpr double Rate = 100000;
constexpr int ScansPerBlock = 1000, Newest = 20000;

/// What a program has instead of a device: a time and the values of the channels, scan by scan.
std::vector<double> NextBlock(long number)
{
    std::vector<double> scans;
    for (long i = 0; i < ScansPerBlock; ++i) {
        const double t = static_cast<double>(number * ScansPerBlock + i) / Rate;
        scans.insert(scans.end(), {t, std::sin(300 * t) * std::cos(5 * t), 1.5 + 0.2 * std::sin(2000 * t)});
    }
    return scans;
}

void Acquire(TKxRowQueue& queue)
{
    const auto start = std::chrono::steady_clock::now();
    for (long number = 0; queue.PushRows(NextBlock(number)); ++number)
        std::this_thread::sleep_until(start + std::chrono::milliseconds(10 * (number + 1)));
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
    graph->GetPrimaryXAxis()->SetUserCaption("t / s");
    graph->GetPrimaryXAxis()->SetDoUserCaption(true);
    graph->GetPrimaryXAxis()->SetShowCaption(true);
    std::vector<TKxRealVector*> columns;
    for (int i = 0; i < 3; ++i) {
        columns.push_back(new TKxLiveVector(&form));
        columns.back()->SetNewest(Newest);
    }
    for (int channel = 1; channel < 3; ++channel) {
        auto* series = new TKxDataSeries(&form);
        series->SetXAxis(graph->GetPrimaryXAxis());
        series->SetYAxis(graph->GetPrimaryYAxis());
        series->GetPointStyle().SetVisible(false);
        series->GetLineStyle().SetColor(channel == 1 ? clRed : clBlue);
        series->SetXData(columns[0]);
        series->SetYData(columns[static_cast<std::size_t>(channel)]);
    }
    KxGraphWidget widget(&form);
    widget.resize(640, 400);
    widget.show();

    TKxLiveFeed feed(columns, {.Capacity = 50000, .WhenFull = wfDropOldest});
    feed.SetInterval(40);
    std::size_t shown = 0;
    feed.OnRows = [&](std::size_t rows) {
        shown += rows;
        widget.setWindowTitle(QString("%1 scans dropped").arg(feed.Queue()->GetDropped()));
        if (argc > 1 && shown >= std::stoul(argv[1]))
            QApplication::quit();
    };
    std::thread acquisition([queue = feed.Queue()] { Acquire(*queue); });
    const int result = QApplication::exec();
    feed.Close();
    acquisition.join();
    std::cout << "shown: " << shown << " scans, dropped: " << feed.Queue()->GetDropped() << std::endl;
    return result;
}
