// example_livetable [ROWS]: a graph stands on a table of a database that gets a row every tenth of a second. With ROWS
// it ends when it shows so many.
#include <QApplication>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTimer>
#include <cmath>
#include <iostream>

#include "data/KxDBVector.h"
#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/Form.h"
#include "qt/KxGraphWidget.h"
#include "qt/KxQtHost.h"
#include "qt/KxSqlDataSet.h"
#include "series/KxDataSeries.h"

using namespace plotkit;

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    TQtHost host;
    const THostGuard guard(host);
    QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "readings");
    database.setDatabaseName(":memory:");
    database.open();
    QSqlQuery writer("CREATE TABLE readings (second REAL, volt REAL)", database);

    TForm form(nullptr);
    auto* graph = new TKx2DGraph(&form);
    graph->SetParent(&form);
    graph->SetAlign(alClient);
    auto* readings = new TKxSqlDataSet(&form);
    readings->SetConnection("readings");
    readings->SetQuery("SELECT second, volt FROM readings ORDER BY second");
    readings->SetRefreshInterval(100);
    auto* source = new TDataSource(&form);
    source->SetDataSet(readings);
    auto* series = new TKxDataSeries(&form);
    series->SetXAxis(graph->GetPrimaryXAxis());
    series->SetYAxis(graph->GetPrimaryYAxis());
    const auto follow = [&](const char* field) {
        auto* vector = new TKxDBVector(&form);
        vector->SetDataSource(source);
        vector->SetDataField(field);
        return vector;
    };
    series->SetXData(follow("second"));
    series->SetYData(follow("volt"));
    readings->Open();

    QTimer logger;
    int row = 0;
    QObject::connect(&logger, &QTimer::timeout, [&] {
        writer.exec(QString("INSERT INTO readings VALUES (%1, %2)").arg(0.1 * row).arg(std::sin(0.2 * row)));
        ++row;
        if (argc > 1 && series->GetYData()->GetCount() >= std::atoi(argv[1])) {
            std::cout << "shown: " << argv[1] << " rows" << std::endl;
            QApplication::quit();
        }
    });
    logger.start(argc > 1 ? 10 : 100);
    KxGraphWidget widget(&form);
    widget.resize(640, 400);
    widget.show();
    return QApplication::exec();
}
