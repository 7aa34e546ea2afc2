#include "plotkit/ShowCommand.h"

#include <QApplication>
#include <QFileInfo>
#include <QMainWindow>
#include <QStatusBar>
#include <QTimer>
#include <iostream>

#include "plotkit/DateCaption.h"
#include "plotkit/FollowedPlot.h"
#include "plotkit/GraphBuilder.h"
#include "qt/KxGraphInteraction.h"

namespace plotkit {

int ShowPlot(const TCsvTable& table, const TColumnChoice& choice, const TOptions& options)
{
    const TPlot plot = BuildPlot(choice, options);
    QMainWindow window;
    auto* widget = new KxGraphWidget(plot.Form.get());
    auto* interaction = new KxGraphInteraction(*widget, plot.Graph);
    interaction->OnStatus = [&](const QString& text) { window.statusBar()->showMessage(text); };
    TKxGraphNavigator& navigator = interaction->Input().Navigator();
    const TEventChain<> navigated(navigator, navigator.OnChanged, [&] {
        if (plot.DateName)
            QTimer::singleShot(0, &window, [&] { RefreshDateCaption(*plot.Graph, *plot.DateName); });
    });
    window.setCentralWidget(widget);
    window.statusBar();
    window.setWindowTitle(QFileInfo(QString::fromStdString(options.File)).fileName() + " - Plotkit");
    window.resize(options.Width, options.Height + window.statusBar()->sizeHint().height());
    widget->setFocus();
    std::optional<TFollowedPlot> followed;
    if (options.Follow) {
        followed.emplace(plot, table, choice, options);
        followed->OnNote = [](const std::string& note) { std::cerr << "plotkit: " << note << std::endl; };
        followed->OnGrown = zoom.OnZoomed;
        followed->Start();
    }
    window.show();
    return QApplication::exec();
}

}  // namespace plotkit
