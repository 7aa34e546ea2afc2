// The job of main is to run one command and to say in one line what went wrong with it.
#include <QApplication>
#include <iostream>
#include <new>

#include "host/Errors.h"
#include "plotkit/ColumnChoice.h"
#include "plotkit/LogColumns.h"
#include "plotkit/Options.h"
#include "plotkit/ProgressLine.h"
#include "plotkit/RenderCommand.h"
#include "plotkit/ShowCommand.h"
#include "plotkit/TableNotes.h"
#include "plotkit/table/CsvTable.h"
#include "plotkit/table/DateText.h"
#include "qt/KxPngExport.h"
#include "qt/KxQtHost.h"
#include "qt/KxQtLocale.h"

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

plotkit::TCsvTable ReadTable(const plotkit::TOptions& options)
{
    plotkit::TProgressLine line(std::cerr, plotkit::IsErrorTerminal(), "plotkit: reading " + options.File);
    plotkit::TReadOptions reading;
    reading.Wish = options.Reading;
    reading.IsGrowing = options.Follow.has_value();
    reading.Progress = [&](std::uint64_t read, std::uint64_t total) {
        line.Show(read, total);
        return true;
    };
    return plotkit::ReadCsvFile(options.File, reading);
}

int Run(int count, char** arguments)
{
    using namespace plotkit;
    TOptions options = ParseOptions(count, arguments);
    if (!options.Answer.empty()) {
        std::cout << options.Answer;
        return 0;
    }
    options.Reading.LocaleDayFirst = WritesDayFirst(LocaleFormatsOf(QLocale::system()).ShortDateFormat);
    const TCsvTable table = ReadTable(options);
    TColumnChoice choice = ChooseColumns(table, options.X, options.Ys);
    const std::string described = DescribeReading(table) + "\n" + DescribeChoice(choice);
    std::vector<std::string> notes = DescribeDoubts(table, choice);
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
        return ShowPlot(table, choice, options);
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
