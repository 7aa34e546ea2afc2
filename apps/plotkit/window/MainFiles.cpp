#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>
#include <QTimer>

#include "host/StringList.h"
#include "plotkit/window/MainWindow.h"
#include "plotkit/window/MessageBar.h"
#include "qt/KxPictureCopy.h"
#include "qt/KxVectorExport.h"

namespace plotkit {

namespace {

const char* const DataFiles = "Data (*.csv *.tsv *.txt *.dat *.asc);;All files (*)";
constexpr int NewsTime = 5000;  // ms

bool IsLookFile(const QString& fileName)
{
    return fileName.endsWith(".ini", Qt::CaseInsensitive);
}

}  // namespace

QString TMainWindow::Folder() const
{
    if (!HasGraph())
        return {};
    const TOptions& options = FDocument->Options();
    if (options.Database && options.Database->IsServer)
        return QDir::currentPath();
    return QFileInfo(QString::fromStdString(options.Database ? options.Database->Name : options.File)).absolutePath();
}

QString TMainWindow::PictureName() const
{
    return QString::fromStdString(DataNameOf(FDocument->Options()));
}

void TMainWindow::AskForFile()
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Open"), Folder(), tr(DataFiles));
    if (!file.isEmpty())
        Open(file.toStdString());
}

void TMainWindow::ExportPicture()
{
    TExportWish wish = FExportWish;
    if (wish.File.isEmpty())
        wish.File = QDir(Folder()).filePath(PictureName() + ".svg");
    auto wanted = AskForPicture(this, wish);
    if (!wanted)
        return;
    FExportWish = *wanted;
    if (QFileInfo::exists(wanted->File) &&
        QMessageBox::question(this, tr("Export picture"), tr("Replace %1?").arg(wanted->File)) != QMessageBox::Yes)
        return;
    wanted->Picture.Title = PictureName().toStdString();
    WriteWholeFile(wanted->File.toStdString(), DrawPicture(*FDocument->Plot().Form, wanted->Picture));
    ShowNews(tr("Wrote %1").arg(wanted->File));
}

void TMainWindow::ShowNews(const QString& word)
{
    statusBar()->showMessage(word, NewsTime);
}

void TMainWindow::Print()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setDocName(PictureName());
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        PrintGraph(*FDocument->Plot().Form, printer, {false, true, PictureName().toStdString()});
}

void TMainWindow::CopyPictureNow()
{
    Try([this] { CopyPicture(*FDocument->Plot().Form); });
}

void TMainWindow::ShowKeys()
{
    QMessageBox::information(this, tr("Mouse and keys"), tr(R"(<table cellspacing=4>
<tr><td><b>Left drag</b></td><td>zoom rectangle</td></tr>
<tr><td><b>Middle drag</b>, Space + drag</td><td>pan</td></tr>
<tr><td><b>Wheel</b></td><td>zoom about the pointer; Shift: X only, Ctrl: Y only</td></tr>
<tr><td><b>+ -</b>, x X, y Y</td><td>zoom in and out, one direction</td></tr>
<tr><td><b>Arrows</b></td><td>pan by a tenth; Shift or Page keys: by a view</td></tr>
<tr><td><b>Click</b> in the legend</td><td>hides a series, shows it again</td></tr>
<tr><td><b>Double click</b>, Alt+Enter</td><td>the look of an axis, a series, a label, the legend or the graph</td></tr>
<tr><td><b>Home</b></td><td>the whole view</td></tr>
<tr><td><b>Backspace</b>, Alt+Left, right double click</td><td>one view back; Shift+Backspace, Alt+Right: forward</td></tr>
<tr><td><b>z</b></td><td>zoom rectangle for the arrows (Shift sizes it), Enter zooms</td></tr>
<tr><td><b>p</b></td><td>pan mode for the left button</td></tr>
<tr><td><b>c</b></td><td>cursor; arrows step through points and series</td></tr>
<tr><td><b>m</b>, 1, 2</td><td>markers; pick one up for the arrows</td></tr>
<tr><td><b>Escape</b></td><td>ends what is going on</td></tr></table>)"));
}

void TMainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (!urls.isEmpty() && urls.front().isLocalFile())
        event->acceptProposedAction();
}

void TMainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    const QList<QUrl> urls = event->mimeData()->urls();
    const QString file = urls.front().toLocalFile();
    if (IsLookFile(file) && HasGraph())
        UseLook(file.toStdString());
    else
        Open(file.toStdString());
    if (urls.size() > 1)
        Report("One window shows one file: only " + file.toStdString() + " was opened");
}

void TMainWindow::Open(const std::string& fileName)
{
    TOptions options = FOptions;
    // What the command line says of columns and captions is meant for its own file.
    if (fileName != FOptions.File) {
        options.X.reset();
        options.Ys.clear();
        options.Title.reset();
        options.XCaption.reset();
        options.YCaption.reset();
        options.XScale = options.YScale = scAuto;
        options.Fit = {};
    }
    options.File = fileName;
    options.Database.reset();
    Load(options);
}

void TMainWindow::Await(const TOptions& options, const std::string& why)
{
    const bool isNews = !FAwait->isActive() || FAwaited.File != options.File;
    FAwaited = options;
    if (!isNews)
        return;
    FAwaitedSize = -1;
    FAwait->start(static_cast<int>(options.Follow.value_or(1) * 1000));
    FMessages->Clear();
    Report(why + "; it is shown when there are some");
}

void TMainWindow::LookForRows()
{
    // Before it is read, since it may grow meanwhile.
    const std::int64_t size = QFileInfo(QString::fromStdString(FAwaited.File)).size();
    if (size == FAwaitedSize)
        return;
    FAwaitedSize = size;
    Load(TOptions(FAwaited));
}

}  // namespace plotkit
