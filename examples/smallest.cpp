// The smallest program: a graph of a damped wave, drawn without a display and printed as drawing commands.
#include <cmath>
#include <iostream>

#include "data/KxVector.h"
#include "graph/KxGraph2D.h"
#include "host/Form.h"
#include "series/KxDataSeries.h"

int main()
{
    plotkit::TForm form(nullptr);
    auto* graph = new plotkit::TKx2DGraph(&form);
    graph->SetParent(&form);
    auto* x = new plotkit::TKxRealVector(&form);
    auto* y = new plotkit::TKxRealVector(&form);
    for (int i = 0; i <= 100; ++i) {
        x->Add(0.1 * i);
        y->Add(std::exp(-0.03 * i) * std::cos(0.3 * i));
    }
    auto* series = new plotkit::TKxDataSeries(&form);
    series->SetXAxis(graph->GetPrimaryXAxis());
    series->SetYAxis(graph->GetPrimaryYAxis());
    series->SetXData(x);
    series->SetYData(y);
    std::cout << form.Picture().ToText();
}
