#include <gtest/gtest.h>

#include <QApplication>

#include "qt/KxQtHost.h"

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Widgets then have pixels of their own.
    qputenv("QT_SCALE_FACTOR", "1.5");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    plotkit::TQtHost host;
    const plotkit::THostGuard guard(host);
    return RUN_ALL_TESTS();
}
