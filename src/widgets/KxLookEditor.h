// The job of KxLookEditor is the dialog in which a user changes everything about the look of a graph.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/KxColors.h"
#include "design/LookHistory.h"
#include "design/LookTree.h"

class QAction;
class QBoxLayout;
class QLabel;
class QPushButton;
class QTabWidget;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace plotkit {

/// Stands beside the graph and lets it be used. Every change shows there at once and can be undone; "Revert" goes back
/// to the last "Apply", closing keeps what is there. Parts that come, go or change otherwise are followed with the
/// graph's next paint. Errors of a change are said in the dialog.
class TKxLookEditor : public QDialog
{
public:
    explicit TKxLookEditor(QWidget* parent = nullptr);
    ~TKxLookEditor() override;

    /// nullptr once it is gone.
    TKx2DGraph* Graph() const { return FHistory ? FHistory->Graph() : nullptr; }
    /// Another graph, with a history of its own; nullptr for none. The part of the same name and its page are shown on.
    void SetGraph(TKx2DGraph* graph);
    /// The same graph, made anew, as TLookHistory goes on; the dialog says when something cannot be undone any more.
    void GoOnWith(TKx2DGraph& graph, const std::function<TColor(TColor)>& exchange = {});
    /// nullptr without a graph.
    TLookHistory* History() { return FHistory.get(); }

    /// Opens the dialog at a part of the graph, or brings it to the front.
    void Open(TComponent& part);
    TComponent* Part() const { return FPart; }

    /// Each a step that can be undone, or said in the dialog why not.
    void LoadFrom(const std::string& fileName);
    void SaveTo(const std::string& fileName);

    /// Where files are asked for at first.
    void SetFolder(const QString& folder) { FFolder = folder; }
    /// How looks are kept in files, for programs with a way of their own: loading returns what could not be used, a
    /// line each. Unset, the outfit stands in the sections "Graph" and "Graph.…" of an INI file.
    std::function<std::vector<std::string>(const std::string& fileName)> OnLoad;
    std::function<void(const std::string& fileName)> OnSave;

protected:
    void showEvent(QShowEvent* event) override;

private:
    class TWatch;

    void AddSteps(QBoxLayout& row);
    void AddButtons(QBoxLayout& row);
    QToolButton* AddStep(QBoxLayout& row, QAction*& action, const QString& text, void (TLookHistory::*step)(),
                         const QList<QKeySequence>& keys);
    QPushButton* AddButton(QBoxLayout& row, const QString& text, const QString& tip,
                           const std::function<void()>& press);

    void Try(const std::function<void()>& action);
    void Say(const QString& text);
    void AskWhatToLoad();
    void AskWhereToSave();

    void FillTree();
    void Fill(QTreeWidgetItem* item, const TLookNode& node);
    void ShowPart(TComponent* part);
    void Forget(TComponent* part);
    void Refresh();
    void RefreshLater();
    void RefreshSteps();
    void EditCaption();
    void PlaceBeside(const QWidget& other);

    std::shared_ptr<TLookHistory> FHistory;
    std::unique_ptr<TWatch> FWatch;
    TKxRecentColors FRecent{nullptr};
    TComponent* FPart = nullptr;
    std::string FPartName;              ///< of the part that is shown, or was last
    QString FPageName;                  ///< likewise
    std::vector<TComponent*> FOutline;  ///< what the tree shows
    TLookNode FNames;                   ///< likewise
    QString FFolder;
    QTreeWidget* FTree = nullptr;
    QTabWidget* FPages = nullptr;
    QLabel* FMessage = nullptr;
    QAction* FUndo = nullptr;
    QAction* FRedo = nullptr;
    QPushButton* FApply = nullptr;
    QPushButton* FRevert = nullptr;
    bool FIsFilling = false;
    bool FRefreshWanted = false;
    bool FWasPlaced = false;
};

}  // namespace plotkit
