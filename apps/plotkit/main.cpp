// The job of main is to run one command and to say in one line what went wrong with it.
#include <QApplication>
#include <QIcon>
#include <filesystem>
#include <iostream>
#include <new>

#include "formula/KxFormula.h"
#include "graph/KxCaption.h"
#include "host/Errors.h"
#include "host/StringList.h"
#include "plotkit/Document.h"
#include "plotkit/Options.h"
#include "plotkit/PictureFile.h"
#include "plotkit/ProgressLine.h"
#include "plotkit/ShowCommand.h"
#include "plotkit/fit/FitResults.h"
#include "plotkit/sql/DatabaseTable.h"
#include "plotkit/table/DateText.h"
#include "qt/KxQtHost.h"
#include "qt/KxQtLocale.h"

namespace {

using namespace plotkit;

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

std::unique_ptr<TDocument> ReadDocument(const TOptions& options)
{
    TProgressLine line(std::cerr, IsErrorTerminal(), "plotkit: reading " + options.File);
    auto document = std::make_unique<TDocument>(options, [&](std::uint64_t read, std::uint64_t total) {
        line.Show(read, total);
        return true;
    });
    return document;
}

/// Nothing when the window is to wait for the first rows.
std::unique_ptr<TDocument> ReadOrAwait(const TOptions& options)
{
    try {
        return ReadDocument(options);
    } catch (const ENoRows&) {
        if (options.Command == pcShow && options.Follow)
            return nullptr;
        throw;
    }
}

std::string TitleOf(const TOptions& options)
{
    return options.Title && !options.Title->empty() ? GetStrippedString(*options.Title) : DataNameOf(options);
}

int Render(TQtHost& host, TDocument& document)
{
    const TOptions& options = document.Options();
    for (const std::string& note : document.Notes())
        std::cerr << "plotkit: " << note << std::endl;
    bool failed = false;
    host.OnError = [&](const std::exception&) { failed = true; };
    const TPictureWish wish{options.Format,
                            static_cast<double>(options.Width),
                            static_cast<double>(options.Height),
                            luInch96,
                            options.Dpi,
                            options.Antialias,
                            options.Light,
                            TitleOf(options)};
    const bool wantsPicture = !options.Output.empty();
    const std::string picture = wantsPicture ? DrawPicture(*document.Plot().Form, wish) : std::string();
    if (failed)
        return Broken;
    if (const auto failures = document.Plot().News->Failures(); !failures.empty())
        throw EConvertError(failures.front());
    if (wantsPicture)
        WriteWholeFile(options.Output, picture);
    if (options.PrintResults)
        std::cout << (options.AsJson ? ResultsJson(document.Plot()) : ResultsText(document.Plot()));
    return 0;
}

int Run(int count, char** arguments)
{
    TOptions options = ParseOptions(count, arguments);
    if (!options.Answer.empty()) {
        std::cout << options.Answer;
        return 0;
    }
    if (options.Command == pcShow && !HasDisplay())
        throw EFileError("show: there is no display; render writes the graph as a picture");
    // A picture needs no display, and is the same with and without one.
    if (options.Command == pcRender)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    options.Reading.LocaleDayFirst = WritesDayFirst(LocaleFormatsOf(QLocale::system()).ShortDateFormat);
    qInstallMessageHandler(KeepErrors);
    // Qt has options of its own, and would take --title for the window.
    int onlyName = 1;
    QApplication application(onlyName, arguments);
    QApplication::setApplicationName("plotkit");
    QApplication::setDesktopFileName("plotkit");
    QApplication::setWindowIcon(QIcon::fromTheme("plotkit"));
    QApplication::setApplicationVersion(QString::fromStdString(ProgramVersion()));
    TQtHost host;
    const THostGuard guard(host);
    const TSchemeChoice scheme = options.Scheme;
    UseTypedFormulas();
    UseDatabases();
    if (options.Command == pcShow)
        PrepareShow(options);
    std::unique_ptr<TDocument> document;
    if (!options.File.empty())
        document = ReadOrAwait(options);
    if (document)
        (options.AsJson ? std::cerr : std::cout) << document->Description() << std::endl;
    if (options.Command == pcRender)
        return Render(host, *document);
    // The window keeps to the desktop where nothing else was wished for.
    options.Scheme = scheme;
    return Show(host, options, std::move(document));
}

}  // namespace

int main(int count, char** arguments)
{
    try {
        return Run(count, arguments);
    } catch (const EError& error) {
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
