#include <QActionGroup>
#include <QApplication>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QToolBar>
#include <array>

#include "plotkit/window/ColumnsDock.h"
#include "plotkit/window/FitMenu.h"
#include "plotkit/window/MainWindow.h"
#include "plotkit/window/ToolIcons.h"

namespace plotkit {

QAction* TMainWindow::AddAction(QMenu& menu, const QString& text, const QKeySequence& keys,
                                std::function<void()> action)
{
    QAction* const added = menu.addAction(text);
    added->setShortcut(keys);
    connect(added, &QAction::triggered, this, [this, action = std::move(action)] { Try(action); });
    return added;
}

void TMainWindow::AddMenus()
{
    FTools = addToolBar(tr("Tools"));
    FTools->setObjectName("tools");
    AddFileMenu();
    FTools->addSeparator();
    FGraphMenu = menuBar()->addMenu(tr("&Graph"));
    AddFitMenu();
    FEditLook = new QAction(tr("&Look..."), this);
    FEditLook->setShortcut(QKeySequence(tr("Alt+Return")));
    connect(FEditLook, &QAction::triggered, this, [this] { Try([this] { EditLook(nullptr); }); });
    FGraphActions << FEditLook;
    addAction(FEditLook);
    AddViewMenu();
    QMenu& help = *menuBar()->addMenu(tr("&Help"));
    AddAction(help, tr("&Mouse and keys"), QKeySequence::HelpContents, [this] { ShowKeys(); });
    AddAction(help, tr("&About Plotkit"), {}, [this] {
        QMessageBox::about(this, tr("About Plotkit"),
                           tr("<b>Plotkit %1</b><br>Graphs of measured data.").arg(QApplication::applicationVersion()));
    });
}

void TMainWindow::AddFileMenu()
{
    QMenu& menu = *menuBar()->addMenu(tr("&File"));
    const auto add = [&](const QString& text, const QKeySequence& keys, void (TMainWindow::*action)(), int icon) {
        QAction* const added = AddAction(menu, text, keys, [this, action] { (this->*action)(); });
        if (icon >= 0) {
            added->setIcon(ToolIcon(static_cast<TToolIcon>(icon)));
            FTools->addAction(added);
        }
        return added;
    };
    add(tr("&Open..."), QKeySequence::Open, &TMainWindow::AskForFile, tiOpen);
    FRecentMenu = menu.addMenu(tr("Open &recent"));
    FillRecentMenu();
    FGraphActions << add(tr("Re&load"), QKeySequence::Refresh, &TMainWindow::Reload, tiReload);
    FFollow = menu.addAction(ToolIcon(tiFollow), tr("&Follow as it grows"));
    FFollow->setCheckable(true);
    connect(FFollow, &QAction::triggered, this, [this](bool on) { Follow(on); });
    FTools->addAction(FFollow);
    FGraphActions << FFollow;
    menu.addSeparator();
    FGraphActions << add(tr("&Export picture..."), QKeySequence(tr("Ctrl+E")), &TMainWindow::ExportPicture, tiExport)
                  << add(tr("&Print..."), QKeySequence::Print, &TMainWindow::Print, tiPrint);
    menu.addSeparator();
    FGraphActions << add(tr("Load loo&k..."), QKeySequence(tr("Ctrl+L")), &TMainWindow::AskForLook, -1)
                  << add(tr("&Save look..."), QKeySequence::Save, &TMainWindow::AskWhereToSaveLook, -1);
    menu.addSeparator();
    AddAction(menu, tr("&Quit"), QKeySequence::Quit, [this] { close(); });
}

void TMainWindow::FillRecentMenu()
{
    FRecentMenu->clear();
    const std::vector<std::string> files = FSettings.RecentFiles();
    for (std::size_t i = 0; i < files.size(); ++i) {
        const QFileInfo file(QString::fromStdString(files[i]));
        QString name = tr("&%1  %2  (%3)").arg(i + 1).arg(file.fileName(), file.path());
        AddAction(*FRecentMenu, name, {}, [this, path = files[i]] { Open(path); });
    }
    FRecentMenu->addSeparator();
    AddAction(*FRecentMenu, tr("&Forget them"), {}, [this] {
        FSettings.ForgetRecentFiles();
        FillRecentMenu();
    });
    FRecentMenu->setEnabled(!files.empty());
}

void TMainWindow::AddFitMenu()
{
    FFits = new TFitMenu(tr("F&it"), this);
    FFits->Guard = [this](const std::function<void()>& action) { Try(action); };
    FFits->OnDone = [this](const QString& word) { ShowNews(word); };
    menuBar()->addMenu(FFits);
}

void TMainWindow::AddViewMenu()
{
    QMenu& menu = *menuBar()->addMenu(tr("&View"));
    AddScaleMenu(menu, tr("&X scale"), true);
    AddScaleMenu(menu, tr("&Y scale"), false);
    menu.addSeparator();
    FColumns->toggleViewAction()->setText(tr("Colu&mns"));
    FTools->toggleViewAction()->setText(tr("&Toolbar"));
    menu.addAction(FColumns->toggleViewAction());
    menu.addAction(FTools->toggleViewAction());
    AddColoursMenu(menu);
}

void TMainWindow::AddScaleMenu(QMenu& menu, const QString& title, bool isX)
{
    QMenu& scales = *menu.addMenu(title);
    auto* group = new QActionGroup(this);
    const std::pair<TScaleChoice, QString> choices[] = {{scAuto, tr("&Automatic")},
                                                        {scLinear, tr("&Linear")},
                                                        {scLog, tr("Lo&garithmic")},
                                                        {scLogEE, tr("Logarithmic, &powers of ten")},
                                                        {scTime, tr("&Date and time")}};
    for (const auto& choice : choices) {
        const TScaleChoice scale = choice.first;
        QAction* const action = scales.addAction(choice.second);
        action->setCheckable(true);
        action->setData(scale);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, isX, scale] { SetScale(isX, scale); });
    }
    FGraphActions << group->actions();
    (isX ? FXScales : FYScales) = group;
    // Looks may have changed the axis meanwhile.
    connect(&scales, &QMenu::aboutToShow, this, [this] { CheckScales(); });
}

void TMainWindow::AddColoursMenu(QMenu& menu)
{
    QMenu& colours = *menu.addMenu(tr("&Colours"));
    auto* group = new QActionGroup(this);
    const std::pair<TSchemeChoice, QString> choices[] = {
        {ccAuto, tr("As the &desktop")}, {ccLight, tr("&Light")}, {ccDark, tr("Da&rk")}};
    for (const auto& choice : choices) {
        const TSchemeChoice scheme = choice.first;
        QAction* const action = colours.addAction(choice.second);
        action->setCheckable(true);
        action->setChecked(FOptions.Scheme == scheme);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, scheme] { SetColours(scheme); });
    }
}

void TMainWindow::FillGraphMenu()
{
    constexpr std::array shown{std::pair{gaHome, tiHome},       std::pair{gaBack, tiBack},
                               std::pair{gaForward, tiForward}, std::pair{gaZoomIn, tiZoomIn},
                               std::pair{gaZoomOut, tiZoomOut}, std::pair{gaZoom, tiZoom},
                               std::pair{gaPan, tiPan},         std::pair{gaCursor, tiCursor},
                               std::pair{gaMarkers, tiMarkers}, std::pair{gaCopyPicture, tiCopy}};
    for (const auto& [which, icon] : shown) {
        QAction* const action = FInteraction->Action(which);
        action->setIcon(ToolIcon(icon));
        FTools->addAction(action);
        FGraphTools << action;
    }
    QAction* const copy = FInteraction->Action(gaCopyPicture);
    copy->setShortcut(QKeySequence(tr("Ctrl+Shift+C")));
    copy->setShortcutContext(Qt::WindowShortcut);
    FGraphMenu->addActions(FInteraction->Menu()->actions());
    FGraphMenu->addSeparator();
    FGraphMenu->addAction(FEditLook);
}

void TMainWindow::EnableForGraph()
{
    for (QAction* action : FGraphActions)
        action->setEnabled(HasGraph());
    FGraphMenu->setEnabled(HasGraph());
    if (!HasGraph())
        return;
    CheckScales();
}

void TMainWindow::CheckScales()
{
    if (!HasGraph())
        return;
    for (QAction* action : FXScales->actions())
        action->setChecked(action->data().toInt() == FDocument->Scale(true));
    for (QAction* action : FYScales->actions())
        action->setChecked(action->data().toInt() == FDocument->Scale(false));
}

}  // namespace plotkit
