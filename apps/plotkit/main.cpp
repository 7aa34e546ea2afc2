// The job of main is to run one command and to say in one line what went wrong with it.
#include <QApplication>
#include <iostream>
#include <new>

#include "host/Errors.h"
#include "plotkit/ColumnChoice.h"
#include "plotkit/CsvTable.h"
#include "plotkit/LogColumns.h"
#include "plotkit/Options.h"
#include "plotkit/RenderCommand.h"
#include "plotkit/ShowCommand.h"
#include "qt/KxPngExport.h"
#include "qt/KxQtHost.h"

namespace {

constexpr int BadInput = 2;
constexpr int Broken = 1;

/// Qt's remarks on the user's desktop are no news of the command.
void KeepErrors(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::cerr << "plotkit: " << message.toStdString() << std::endl;
}

/// Qt ends the process when it finds no display, so it is not to look in vain.
bool HasDisplay()
{
    return QSysInfo::kernelType() != "linux" || qEnvironmentVariableIsSet("DISPLAY") ||
           qEnvironmentVariableIsSet("WAYLAND_DISPLAY") || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

int Run(int count, char** arguments)
{
    using namespace plotkit;
    const TOptions options = ParseOptions(count, arguments);
    if (!options.Answer.empty()) {
        std::cout << options.Answer;
        return 0;
    }
    const TCsvTable table = ReadCsvFile(options.File);
    TColumnChoice choice = ChooseColumns(table, options.X, options.Ys);
    const std::string described = DescribeChoice(choice);
    std::vector<std::string> notes = DescribeBadCells(table, choice);
    for (const std::string& note : FitToLogScales(choice, options))
        notes.push_back(note);
    if (options.Command == pcShow && !HasDisplay())
        throw EFileError("show: there is no display; render writes the graph as a picture");
    // A picture needs no display, and is the same with and without one.
    if (options.Command == pcRender)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(KeepErrors);
    QApplication application(count, arguments);
    TQtHost host;
    const THostGuard guard(host);
    std::cout << described << std::endl;
    for (const std::string& note : notes)
        std::cerr << "plotkit: " << note << std::endl;
    if (options.Command == pcShow)
        return ShowPlot(choice, options);
    bool failed = false;
    host.OnError = [&](const std::exception&) { failed = true; };
    const QImage picture = DrawPlot(choice, options);
    if (failed)
        return Broken;
    SavePng(picture, options.Output);
    return 0;
}

}  // namespace

int main(int count, char** arguments)
{
    try {
        return Run(count, arguments);
    } catch (const plotkit::EError& error) {
        std::cerr << "plotkit: " << error.what() << std::endl;
        return BadInput;
    } catch (const std::bad_alloc&) {
        std::cerr << "plotkit: not enough memory" << std::endl;
        return Broken;
    } catch (const std::exception& error) {
        std::cerr << "plotkit: " << error.what() << std::endl;
        return Broken;
    }
}
