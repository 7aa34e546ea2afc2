#include "plotkit/window/MainWindow.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>
#include <iostream>

#include "graph/KxAxis.h"
#include "host/Errors.h"
#include "host/Host.h"
#include "plotkit/KeptView.h"
#include "plotkit/window/ColumnsDock.h"
#include "plotkit/window/DesktopColours.h"
#include "plotkit/window/ElidedLabel.h"
#include "plotkit/window/FitMenu.h"
#include "plotkit/window/MessageBar.h"
#include "plotkit/window/ReadingBox.h"

namespace plotkit {

namespace {

constexpr int GraphPage = 1;

QLabel* NewWelcome()
{
    auto* welcome = new QLabel(QObject::tr("Drop a data file here, or open one with Ctrl+O."));
    welcome->setAlignment(Qt::AlignCenter);
    return welcome;
}

/// The screen may have become smaller since.
QRect KeptOnScreen(QRect place)
{
    const QScreen* screen = QGuiApplication::screenAt(place.center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QRect room = screen->availableGeometry();
    if (room.contains(place))
        return place;
    constexpr int title = 32;
    place.setSize(place.size().boundedTo(room.size() - QSize(0, title)));
    place.moveLeft(std::clamp(place.left(), room.left(), room.right() + 1 - place.width()));
    place.moveTop(std::clamp(place.top(), room.top() + title, room.bottom() + 1 - place.height()));
    return place;
}

}  // namespace

TMainWindow::TMainWindow(const TOptions& options) : FOptions(options)
{
    setObjectName("plotkit");
    FExportWish.Picture.LightBackground = true;
    setAcceptDrops(true);
    if (FOptions.Scheme == ccAuto)
        FOptions.Scheme = FSettings.Colours();
    SetWindowColours(FOptions.Scheme);
    auto* centre = new QWidget(this);
    auto* rows = new QVBoxLayout(centre);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    FMessages = new TMessageBar(centre);
    FPages = new QStackedWidget(centre);
    FPages->addWidget(NewWelcome());
    rows->addWidget(FMessages);
    rows->addWidget(FPages, 1);
    AddReadings(*rows);
    setCentralWidget(centre);
    FColumns = new TColumnsDock(this);
    FColumns->OnChosen = [this](int x, const std::vector<int>& ys) {
        // The list that is being clicked is filled anew.
        QTimer::singleShot(0, this, [this, x, ys] {
            Rebuild([&] {
                KeepEditedLook();
                FDocument->Choose(x, ys);
            });
        });
    };
    addDockWidget(Qt::RightDockWidgetArea, FColumns);
    constexpr int pause = 200;  // ms
    FNewLayout = new QTimer(this);
    FNewLayout->setSingleShot(true);
    FNewLayout->setInterval(pause);
    connect(FNewLayout, &QTimer::timeout, this, [this] {
        if (HasGraph())
            Try([this] { FDocument->KeepLabelsInside(); });
    });
    FAwait = new QTimer(this);
    connect(FAwait, &QTimer::timeout, this, &TMainWindow::LookForRows);
    AddMenus();
    FColumns->hide();
    EnableForGraph();
    setWindowTitle(tr("Plotkit"));
}

void TMainWindow::AddReadings(QBoxLayout& rows)
{
    constexpr int margin = 6, placeWidth = 260;
    FReadings = new QLabel(this);
    FReadings->setObjectName("readings");
    FReadings->setMargin(margin);
    FReadings->setTextFormat(Qt::PlainText);
    FReadings->setTextInteractionFlags(Qt::TextSelectableByMouse);
    FReadings->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    FReadings->hide();
    rows.addWidget(FReadings);
    FPlace = new QLabel(this);
    FPlace->setTextFormat(Qt::PlainText);
    FPlace->setMinimumWidth(placeWidth);
    FDescription = new TElidedLabel(this);
    FDescription->setTextFormat(Qt::PlainText);
    FDescription->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(FPlace);
    statusBar()->addWidget(FDescription, 1);
}

TMainWindow::~TMainWindow()
{
    LeaveView();
}

void TMainWindow::Report(const std::string& message)
{
    std::cerr << "plotkit: " << message << std::endl;
    FMessages->Add(message);
}

void TMainWindow::Try(const std::function<void()>& action)
{
    try {
        action();
    } catch (const ECancelled&) {
        return;
    } catch (const std::bad_alloc&) {
        Report("Not enough memory");
    } catch (const std::exception& error) {
        Report(error.what());
    }
}

void TMainWindow::Load(const TOptions& options)
{
    Try([&] {
        TOptions own = options;
        own.Scheme = WindowsAreDark() ? ccDark : ccLight;
        try {
            Show(std::make_unique<TDocument>(own, NewReadingBox(*this, options.File)));
        } catch (const ENoRows& error) {
            if (!options.Follow)
                throw;
            Await(options, error.Message());
        }
    });
}

void TMainWindow::Show(std::unique_ptr<TDocument> document)
{
    LeaveView();
    FAwait->stop();
    // A picture of another file is another one.
    if (HasGraph() && FDocument->Options().File != document->Options().File)
        FExportWish.File.clear();
    FDocument = std::move(document);
    ShowGraph();
    ReportNotes();
    const TOptions& shown = FDocument->Options();
    const QFileInfo file(QString::fromStdString(shown.File));
    setWindowTitle(tr("%1 - Plotkit").arg(shown.Database ? PictureName() : file.fileName()));
    if (shown.Database || !file.isFile())
        return;
    Try([&] {
        FSettings.AddRecentFile(file.absoluteFilePath().toStdString());
        FillRecentMenu();
    });
}

void TMainWindow::Reload()
{
    Try([this] {
        KeepEditedLook();
        LoadAgain(FDocument->Options());
    });
}

void TMainWindow::LoadAgain(const TOptions& options)
{
    const TKeptView view(*FDocument->Plot().Graph);
    const TDocument* const before = FDocument.get();
    Load(options);
    FLookGoesOn = false;
    if (FDocument.get() == before)
        return;
    Try([&] {
        FDocument->Plot().Form->Picture();
        view.GiveTo(*FDocument->Plot().Graph);
    });
}

void TMainWindow::Follow(bool follow)
{
    Try([&] {
        KeepEditedLook();
        TOptions options = FDocument->Options();
        options.Follow = follow ? std::optional(1.0) : std::nullopt;
        LoadAgain(options);
    });
    FFollow->setChecked(FDocument->Options().Follow.has_value());
}

void TMainWindow::Rebuild(const std::function<void()>& change)
{
    if (!HasGraph())
        return;
    LeaveView();
    bool isDone = false;
    Try([&] {
        change();
        isDone = true;
    });
    ShowGraph();
    if (isDone)
        ReportNotes();
}

void TMainWindow::ReportNotes()
{
    FMessages->Clear();
    for (const std::string& note : FDocument->Notes())
        Report(note);
    for (const std::string& failure : FDocument->Plot().News->Failures())
        Report(failure);
}

void TMainWindow::LeaveView()
{
    FGraphMenu->clear();
    FFits->Show(nullptr, nullptr);
    for (QAction* action : FGraphTools)
        FTools->removeAction(action);
    FGraphTools.clear();
    FDatesFollow.reset();
    FInteraction.reset();
    FView.reset();
}

void TMainWindow::ShowGraph()
{
    const TPlot& plot = FDocument->Plot();
    FView = std::make_unique<KxGraphWidget>(plot.Form.get());
    FInteraction = std::make_unique<KxGraphInteraction>(*FView, plot.Graph);
    FInteraction->OnStatus = [this](const QString&) { ShowReadings(); };
    FInteraction->OnCopyPicture = [this] { CopyPictureNow(); };
    FDatesFollow =
        std::make_unique<TEventChain<>>(FInteraction->Input().Navigator(), FInteraction->Input().Navigator().OnChanged,
                                        [this] { QTimer::singleShot(0, this, [this] { ViewChanged(); }); });
    // Told while the graph is painted, too, when the window cannot change.
    FDocument->OnNote = [this](const std::string& note) {
        QTimer::singleShot(0, this, [this, note] { Report(note); });
    };
    FDocument->OnGrown = [this] {
        ViewChanged();
        ShowDescription();
    };
    FPages->insertWidget(GraphPage, FView.get());
    FPages->setCurrentIndex(GraphPage);
    FView->setFocus();
    FFollow->setChecked(FDocument->Options().Follow.has_value());
    FColumns->Show(FDocument->ColumnNames(), FDocument->XColumn(), FDocument->YColumns());
    ShowDescription();
    FillGraphMenu();
    ServeLook();
    FFits->Show(FDocument.get(), &FInteraction->Input().Markers());
    EnableForGraph();
    ShowReadings();
}

void TMainWindow::ShowDescription()
{
    const QString text = QString::fromStdString(FDocument->ChoiceDescription());
    FDescription->setText(text);
    FDescription->setToolTip(text);
}

void TMainWindow::ShowReadings()
{
    constexpr int mostLines = 12;
    TKxGraphInput& input = FInteraction->Input();
    QStringList lines;
    for (const std::string& line : input.StatusLines())
        lines << QString::fromStdString(line);
    const bool reads = input.HasValues();
    FPlace->setText(lines.join("  "));
    FPlace->setVisible(!reads);
    if (lines.size() > mostLines)
        lines = lines.mid(0, mostLines - 1)
                << tr("... %n more", nullptr, static_cast<int>(lines.size()) - mostLines + 1);
    FReadings->setText(lines.join('\n'));
    FReadings->setVisible(reads);
}

void TMainWindow::ViewChanged()
{
    RefreshDates();
    if (!FNewLayout->isActive())
        FNewLayout->start();
}

void TMainWindow::SetColours(TSchemeChoice colours)
{
    SetWindowColours(colours);
    MatchScheme();
    Try([&] { FSettings.SetColours(colours); });
}

void TMainWindow::MatchScheme()
{
    const TSchemeChoice wanted = WindowsAreDark() ? ccDark : ccLight;
    if (!HasGraph() || FDocument->Options().Scheme == wanted)
        return;
    const TKeptView view(*FDocument->Plot().Graph);
    LeaveView();
    Try([&] {
        KeepEditedLook();
        FDocument->SetScheme(wanted);
        FDocument->Plot().Form->Picture();
        view.GiveTo(*FDocument->Plot().Graph);
    });
    ShowGraph();
}

void TMainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        QTimer::singleShot(0, this, [this] { MatchScheme(); });
}

void TMainWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    FNewLayout->start();
}

void TMainWindow::RestorePlace()
{
    TForm form(nullptr);
    const TRect screen = Host().ScreenRect();
    form.SetBounds(screen.Left + (screen.Width() - FOptions.Width) / 2,
                   screen.Top + (screen.Height() - FOptions.Height) / 2, FOptions.Width, FOptions.Height);
    FSettings.ReadPlace(form);
    const TRect place = form.NormalBounds();
    const QRect wanted(place.Left, place.Top, FOptions.HasSize ? FOptions.Width : place.Width(),
                       FOptions.HasSize ? FOptions.Height : place.Height());
    setGeometry(KeptOnScreen(wanted));
    if (form.GetWindowState() == wsMaximized)
        setWindowState(Qt::WindowMaximized);
}

void TMainWindow::closeEvent(QCloseEvent* event)
{
    const QRect place = normalGeometry().isValid() ? normalGeometry() : geometry();
    TForm form(nullptr);
    form.SetBounds(place.x(), place.y(), place.width(), place.height());
    form.SetWindowState(isMaximized() ? wsMaximized : wsNormal);
    // The window closes even where nothing can be remembered.
    try {
        FSettings.WritePlace(form);
    } catch (const EError&) {
    }
    event->accept();
}

}  // namespace plotkit
