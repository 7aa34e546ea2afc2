// The job of DrawingBench is Plotkit beside QCustomPlot and beside the bare work, all with Qt 6.
#include <benchmark/benchmark.h>

#include <QApplication>

#include "drawing/CustomPlot.h"
#include "drawing/DrawingCases.h"
#include "drawing/LimitPlot.h"
#include "drawing/LiveCases.h"
#include "drawing/PlotkitPlot.h"
#include "qt/KxQtHost.h"

int main(int count, char** arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&count, arguments);
    const QApplication application(count, arguments);
    plotkit::TQtHost host;
    const plotkit::THostGuard guard(host);
    const std::vector<bench::TLibrary> libraries{bench::Plotkit(), bench::CustomPlot(), bench::HintedCustomPlot(),
                                                 bench::Limit()};
    if (bench::RunInstead(count, arguments, libraries))
        return 0;
    for (const bench::TLibrary& library : libraries)
        bench::RegisterCases(library);
    bench::RegisterLiveCases();
    benchmark::RunSpecifiedBenchmarks();
}
