// The job of MainWindow is the window in which a scientist works with the graph of a data file.
#pragma once

#include <QMainWindow>
#include <QTemporaryDir>
#include <functional>
#include <memory>

#include "plotkit/Document.h"
#include "plotkit/UserSettings.h"
#include "plotkit/window/ExportDialog.h"
#include "qt/KxGraphInteraction.h"
#include "qt/KxGraphWidget.h"

class QActionGroup;
class QBoxLayout;
class QLabel;
class QMenu;
class QStackedWidget;
class QTimer;
class QToolBar;

namespace plotkit {

class TColumnsDock;
class TFitMenu;
class TKxLookEditor;
class TMessageBar;

/// Whatever goes wrong is said in the window and leaves what it shows as it was.
class TMainWindow : public QMainWindow
{
public:
    explicit TMainWindow(const TOptions& options);
    ~TMainWindow() override;

    /// The file that the options name, read already.
    void Show(std::unique_ptr<TDocument> document);
    /// Shows the graph of another file, chosen and drawn as the options of the program say.
    void Open(const std::string& fileName);
    void UseLook(const std::string& fileName);
    /// In the window and on the standard error output.
    void Report(const std::string& message);
    /// Back to the place of the last time, as far as the options name no size.
    void RestorePlace();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Try(const std::function<void()>& action);
    bool HasGraph() const { return FDocument != nullptr; }

    // Menus and toolbar.
    void AddMenus();
    void AddFileMenu();
    void AddViewMenu();
    void AddFitMenu();
    void AddColoursMenu(QMenu& menu);
    void AddScaleMenu(QMenu& menu, const QString& title, bool isX);
    QAction* AddAction(QMenu& menu, const QString& text, const QKeySequence& keys, std::function<void()> action);
    void FillRecentMenu();
    void FillGraphMenu();
    void EnableForGraph();
    void CheckScales();
    void ShowKeys();

    // What the actions do.
    void AskForFile();
    void AskForLook();
    void AskWhereToSaveLook();
    void ExportPicture();
    void Print();
    void EditLook(TComponent* part);
    void CopyPictureNow();
    void Reload();
    void Follow(bool follow);
    void SetScale(bool isX, TScaleChoice scale);
    void SetColours(TSchemeChoice colours);

    // The document and its view.
    void Load(const TOptions& options);
    /// A file that is followed has no rows yet: it is opened when it has some, unless another one is opened before.
    void Await(const TOptions& options, const std::string& why);
    void LookForRows();
    /// The same file, from the present view on.
    void LoadAgain(const TOptions& options);
    /// Runs a change that replaces the document's graph, and shows the new one.
    void Rebuild(const std::function<void()>& change);
    /// Lets what was changed by hand outlive the graph; `always` also what a file of the user's has brought.
    void KeepEditedLook(bool always = false);
    bool HasEditedLook() const;
    void ReportNotes();
    void ShowGraph();
    void LeaveView();
    /// Lets the view ask for the look of its graph, and the editor show that graph.
    void ServeLook();
    void ShowLookOf(TKx2DGraph& graph);
    /// Where the file is; empty without one.
    QString Folder() const;
    QString PictureName() const;
    void MatchScheme();
    void RefreshDates();
    void ViewChanged();
    void AddReadings(QBoxLayout& rows);
    void ShowReadings();
    void ShowDescription();
    /// In the status line, for a while.
    void ShowNews(const QString& word);

    TOptions FOptions;  ///< of the program
    TUserSettings FSettings;
    std::unique_ptr<TDocument> FDocument;
    std::unique_ptr<KxGraphWidget> FView;
    std::unique_ptr<KxGraphInteraction> FInteraction;
    std::unique_ptr<TEventChain<>> FDatesFollow;
    QStackedWidget* FPages = nullptr;
    TMessageBar* FMessages = nullptr;
    TColumnsDock* FColumns = nullptr;
    TKxLookEditor* FLook = nullptr;       ///< made on first use
    TSchemeChoice FLookScheme = ccLight;  ///< that its steps are meant for
    bool FLookGoesOn = false;             ///< the next graph is the present one made anew
    QTemporaryDir FKept;
    QLabel* FReadings = nullptr;     ///< of cursor and markers
    QLabel* FPlace = nullptr;        ///< of the pointer
    QLabel* FDescription = nullptr;  ///< of the chosen columns
    QMenu* FRecentMenu = nullptr;
    QMenu* FGraphMenu = nullptr;
    TFitMenu* FFits = nullptr;
    QToolBar* FTools = nullptr;
    QActionGroup* FXScales = nullptr;
    QActionGroup* FYScales = nullptr;
    QAction* FFollow = nullptr;
    TOptions FAwaited;  ///< of the file that has no rows yet
    std::int64_t FAwaitedSize = 0;
    QTimer* FAwait = nullptr;
    QTimer* FNewLayout = nullptr;  ///< axes took other room; labels are looked after when it is over
    QAction* FEditLook = nullptr;
    QList<QAction*> FGraphActions;  ///< that make sense with a graph only
    QList<QAction*> FGraphTools;    ///< of the present view
    TExportWish FExportWish;        ///< of the last export
};

}  // namespace plotkit
