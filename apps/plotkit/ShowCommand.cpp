#include "plotkit/ShowCommand.h"

#include <QApplication>

#include "plotkit/UserSettings.h"
#include "plotkit/window/DesktopColours.h"
#include "plotkit/window/MainWindow.h"

namespace plotkit {

void PrepareShow(TOptions& options)
{
    SetWindowColours(options.Scheme == ccAuto ? TUserSettings().Colours() : options.Scheme);
    options.Scheme = WindowsAreDark() ? ccDark : ccLight;
}

int Show(TQtHost& host, const TOptions& options, std::unique_ptr<TDocument> document)
{
    TMainWindow window(options);
    host.OnError = [&](const std::exception& error) { window.Report(error.what()); };
    window.RestorePlace();
    if (document)
        window.Show(std::move(document));
    else if (!options.File.empty())
        window.Open(options.File);
    window.show();
    const int code = QApplication::exec();
    host.OnError = nullptr;
    return code;
}

}  // namespace plotkit
