#include "plotkit/ShowCommand.h"

#include <QApplication>
#include <QFileInfo>
#include <QMainWindow>
#include <QTimer>

#include "plotkit/DateCaption.h"
#include "plotkit/GraphBuilder.h"
#include "plotkit/GraphZoom.h"
#include "qt/KxGraphWidget.h"

namespace plotkit {

int ShowPlot(const TColumnChoice& choice, const TOptions& options)
{
    const TPlot plot = BuildPlot(choice, options);
    TGraphZoom zoom(*plot.Graph);
    QMainWindow window;
    if (plot.DateName)
        zoom.OnZoomed = [&] {
            QTimer::singleShot(0, &window, [&] { RefreshDateCaption(*plot.Graph, *plot.DateName); });
        };
    auto* widget = new KxGraphWidget(plot.Form.get());
    window.setCentralWidget(widget);
    window.setWindowTitle(QFileInfo(QString::fromStdString(options.File)).fileName() + " - Plotkit");
    window.resize(options.Width, options.Height);
    widget->setFocus();
    window.show();
    return QApplication::exec();
}

}  // namespace plotkit
