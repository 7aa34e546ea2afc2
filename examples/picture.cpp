// The smallest program that writes a picture: two columns of numbers, a graph, a PNG (its name is the only argument).
#include <QApplication>
#include <cmath>

#include "data/KxVector.h"
#include "graph/KxGraph2D.h"
#include "host/Form.h"
#include "qt/KxPngExport.h"
#include "qt/KxQtHost.h"
#include "series/KxDataSeries.h"

using namespace plotkit;

int main(int count, char** arguments)
{
    const QApplication application(count, arguments);
    TQtHost host;
    const THostGuard guard(host);
    TForm form(nullptr);
    auto* graph = new TKx2DGraph(&form);
    graph->SetParent(&form);
    graph->SetAlign(alClient);
    auto* series = new TKxDataSeries(&form);
    auto* x = new TKxRealVector(&form);
    auto* y = new TKxRealVector(&form);
    for (int i = 0; i <= 100; ++i) {
        x->Add(0.1 * i);
        y->Add(std::exp(-0.03 * i) * std::cos(0.3 * i));
    }
    series->SetXData(x);
    series->SetYData(y);
    ExportPng(form, count > 1 ? arguments[1] : "picture.png", {});
}
