// The job of KxGraphInteraction is to offer what mouse and keys do with a graph as actions, a context menu and a status
// text.
#pragma once

#include <QAction>
#include <QMenu>
#include <QObject>
#include <QPointer>
#include <array>
#include <functional>

#include "qt/KxGraphWidget.h"
#include "series/KxGraphInput.h"

class QActionGroup;

namespace plotkit {

enum TGraphAction : std::uint8_t
{
    gaHome,
    gaBack,
    gaForward,
    gaZoomIn,
    gaZoomOut,
    gaZoom,  ///< the left button drags a zoom rectangle; checkable, like the next three
    gaPan,   ///< the left button drags the picture
    gaCursor,
    gaMarkers,
    gaCopyValues,
    gaCopyPicture,
};
inline constexpr std::size_t GraphActionCount = gaCopyPicture + 1;

/// For one graph in a widget's tree; goes with the widget at the latest. The actions are there for menus and toolbars
/// of the program; those that the options switch off are not visible. Their shortcuts only show which keys do the same
/// while the widget has the focus.
class KxGraphInteraction : public QObject
{
public:
    /// Without `graph` for the first one in the widget's tree. EComponentError "No graph to interact with".
    explicit KxGraphInteraction(KxGraphWidget& widget, TKx2DGraph* graph = nullptr,
                                const TInteractionOptions& options = {});
    ~KxGraphInteraction() override;

    TKxGraphInput& Input() { return FInput; }
    QAction* Action(TGraphAction which) const { return FActions[which]; }
    /// All of them, as the context menu shows them.
    QMenu* Menu() const { return FMenu; }
    /// Where in the graph the menu was asked for last.
    TPoint MenuPlace() const { return FMenuPlace; }

    /// The status lines, joined, whenever they change.
    std::function<void(const QString&)> OnStatus;
    /// In place of the graph's own copy to the clipboard.
    std::function<void()> OnCopyPicture;

private:
    void MakeActions();
    QAction* Add(TGraphAction which, const char* text, const char* icon, const QKeySequence& key,
                 const std::function<void(bool)>& action);
    void FillMenu();
    void ShowMenu(TPoint at);
    void HideWhatIsOff();
    void Follow();
    void Guarded(const std::function<void()>& action);

    KxGraphWidget& FWidget;
    TKxGraphInput FInput;
    std::array<QAction*, GraphActionCount> FActions{};
    QActionGroup* FModes = nullptr;
    QPointer<QMenu> FMenu;
    TPoint FMenuPlace{};
    QString FStatus;
};

}  // namespace plotkit
