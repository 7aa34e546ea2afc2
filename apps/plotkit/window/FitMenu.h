// The job of FitMenu is the menu that draws fits through the series of a document, sets them and takes them away.
#pragma once

#include <QMenu>
#include <functional>

#include "plotkit/Document.h"

class QActionGroup;

namespace plotkit {

class TKxGraphMarkers;

class TFitMenu : public QMenu
{
public:
    explicit TFitMenu(const QString& title, QWidget* window);

    /// Runs an action of the menu and says what goes wrong.
    std::function<void(const std::function<void()>&)> Guard;
    /// A word about what was done.
    std::function<void(const QString&)> OnDone;

    /// The document, which outlives the menu's use of it, and the markers of its view; nullptr for none.
    void Show(TDocument* document, TKxGraphMarkers* markers);

private:
    QAction* Add(QMenu& menu, const QString& text, std::function<void()> action);
    void AddKinds();
    void AddSettings();
    void Refresh();
    void FillColumns();
    void FillFits();
    void FillFit(QMenu& menu, std::size_t number);
    void FillResults(QMenu& menu, std::size_t number);

    void AddFit(const TFitWish& wish);
    void AskAndAdd(TFitKind kind);
    TFitWish Suggestion(TFitKind kind) const;
    void SetRange(std::optional<std::size_t> number, const std::optional<TFitRange>& range);
    TFitRange MarkedRange() const;
    void ShowResult(std::size_t number, const std::string& result, bool show);
    void CopyResults();
    /// Changes the document's fits; one that is being fitted may take a while.
    void Change(const std::function<void(std::vector<TFitWish>&)>& change);

    TDocument* FDocument = nullptr;
    TKxGraphMarkers* FMarkers = nullptr;
    QMenu* FColumns = nullptr;
    QActionGroup* FColumnGroup = nullptr;
    std::string FColumn;            ///< that new fits are for; empty: all
    QAction* FFitsStart = nullptr;  ///< the menus of the fits follow
    QList<QMenu*> FFits;
    QList<QAction*> FForFits;
};

}  // namespace plotkit
