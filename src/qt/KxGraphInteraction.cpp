#include "qt/KxGraphInteraction.h"

#include <QActionGroup>
#include <QStringList>

#include "host/Errors.h"
#include "host/Host.h"

namespace plotkit {

namespace {

TKx2DGraph* FirstGraph(TControl* control)
{
    if (auto* graph = dynamic_cast<TKx2DGraph*>(control))
        return graph;
    const auto* window = dynamic_cast<const TWindowControl*>(control);
    if (!window)
        return nullptr;
    for (TControl* inner : window->Controls())
        if (TKx2DGraph* graph = FirstGraph(inner))
            return graph;
    return nullptr;
}

TKx2DGraph& GraphIn(const KxGraphWidget& widget, TKx2DGraph* graph)
{
    TKx2DGraph* const found = graph ? graph : FirstGraph(widget.Root());
    if (!found)
        throw EComponentError("No graph to interact with");
    return *found;
}

}  // namespace

KxGraphInteraction::KxGraphInteraction(KxGraphWidget& widget, TKx2DGraph* graph, const TInteractionOptions& options)
    : QObject(&widget), FWidget(widget), FInput(GraphIn(widget, graph), options), FMenu(new QMenu(&widget))
{
    MakeActions();
    FillMenu();
    HideWhatIsOff();
    FInput.OnChanged = [this] { Follow(); };
    FInput.OnMenu = [this](TPoint at) { ShowMenu(at); };
    Follow();
}

KxGraphInteraction::~KxGraphInteraction()
{
    FInput.OnChanged = nullptr;
    delete FMenu.data();
}

void KxGraphInteraction::Guarded(const std::function<void()>& action)
{
    try {
        action();
    } catch (const std::exception& error) {
        Host().HandleError(error);
    }
}

QAction* KxGraphInteraction::Add(TGraphAction which, const char* text, const char* icon, const QKeySequence& key,
                                 const std::function<void(bool)>& action)
{
    auto* const made = new QAction(QIcon::fromTheme(icon), QString::fromUtf8(text), this);
    made->setShortcut(key);
    // Never in force: the action is not the widget's own, whose tree hears the key.
    made->setShortcutContext(Qt::WidgetShortcut);
    connect(made, &QAction::triggered, this, [this, action](bool on) { Guarded([&] { action(on); }); });
    FActions[which] = made;
    return made;
}

void KxGraphInteraction::MakeActions()
{
    TKxGraphNavigator& navigator = FInput.Navigator();
    Add(gaHome, "&Home", "go-home", Qt::Key_Home, [&](bool) { navigator.Home(); });
    Add(gaBack, "&Back", "go-previous", Qt::Key_Backspace, [&](bool) { navigator.Back(); });
    Add(gaForward, "&Forward", "go-next", QKeySequence(Qt::SHIFT | Qt::Key_Backspace),
        [&](bool) { navigator.Forward(); });
    Add(gaZoomIn, "Zoom &in", "zoom-in", Qt::Key_Plus, [this](bool) { FInput.ZoomStep(true); });
    Add(gaZoomOut, "Zoom &out", "zoom-out", Qt::Key_Minus, [this](bool) { FInput.ZoomStep(false); });
    Add(gaZoom, "&Zoom rectangle", "zoom-select", Qt::Key_Z, [this](bool) { FInput.SetPanMode(false); });
    Add(gaPan, "&Pan mode", "transform-move", Qt::Key_P, [this](bool) { FInput.SetPanMode(true); });
    Add(gaCursor, "&Cursor", "crosshairs", Qt::Key_C, [this](bool on) { FInput.SetCursorShown(on); });
    Add(gaMarkers, "&Markers", "measure", Qt::Key_M, [this](bool on) { FInput.SetMarkersShown(on); });
    Add(gaCopyValues, "Copy &values", "edit-copy", QKeySequence::Copy, [this](bool) { FInput.CopyValues(); });
    Add(gaCopyPicture, "Copy pict&ure", "edit-copy", {}, [this](bool) {
        if (OnCopyPicture)
            OnCopyPicture();
        else if (FInput.Graph())
            FInput.Graph()->CopyToClipboard();
    });
    FModes = new QActionGroup(this);
    for (const TGraphAction which : {gaZoom, gaPan, gaCursor, gaMarkers})
        FActions[which]->setCheckable(true);
    FModes->addAction(FActions[gaZoom]);
    FModes->addAction(FActions[gaPan]);
}

void KxGraphInteraction::FillMenu()
{
    for (const TGraphAction which : {gaHome, gaBack, gaForward})
        FMenu->addAction(FActions[which]);
    FMenu->addSeparator();
    for (const TGraphAction which : {gaZoomIn, gaZoomOut, gaZoom, gaPan})
        FMenu->addAction(FActions[which]);
    FMenu->addSeparator();
    FMenu->addAction(FActions[gaCursor]);
    FMenu->addAction(FActions[gaMarkers]);
    FMenu->addSeparator();
    FMenu->addAction(FActions[gaCopyValues]);
    FMenu->addAction(FActions[gaCopyPicture]);
}

void KxGraphInteraction::HideWhatIsOff()
{
    const TInteractionOptions& options = FInput.Options();
    const bool zooms = options.ZoomRectangle || options.Wheel;
    for (const TGraphAction which : {gaHome, gaBack, gaForward})
        FActions[which]->setVisible(options.History);
    FActions[gaZoomIn]->setVisible(zooms);
    FActions[gaZoomOut]->setVisible(zooms);
    FActions[gaZoom]->setVisible(options.ZoomRectangle);
    FActions[gaPan]->setVisible(options.Pan);
    FActions[gaCursor]->setVisible(options.Cursor);
    FActions[gaMarkers]->setVisible(options.Markers);
    FActions[gaCopyValues]->setVisible(options.Cursor || options.Markers);
    if (!options.Keys)
        for (QAction* const action : FActions)
            action->setShortcut({});
}

void KxGraphInteraction::Follow()
{
    const bool hasGraph = FInput.Graph() != nullptr;
    for (QAction* const action : FActions)
        action->setEnabled(hasGraph);
    const TKxGraphNavigator& navigator = FInput.Navigator();
    FActions[gaHome]->setEnabled(navigator.CanGoHome());
    FActions[gaBack]->setEnabled(navigator.CanGoBack());
    FActions[gaForward]->setEnabled(navigator.CanGoForward());
    FActions[gaCopyValues]->setEnabled(FInput.HasValues());
    FActions[gaZoom]->setChecked(!FInput.GetPanMode());
    FActions[gaPan]->setChecked(FInput.GetPanMode());
    FActions[gaCursor]->setChecked(FInput.Cursor().GetShown());
    FActions[gaMarkers]->setChecked(FInput.Markers().GetShown());
    QStringList lines;
    for (const std::string& line : FInput.StatusLines())
        lines.append(QString::fromStdString(line));
    const QString status = lines.join(QStringLiteral("   |   "));
    if (status == FStatus)
        return;
    FStatus = status;
    if (OnStatus)
        OnStatus(FStatus);
}

void KxGraphInteraction::ShowMenu(TPoint at)
{
    if (!FMenu || !FInput.Graph())
        return;
    FMenuPlace = at;
    // Ranges that the program moved by itself.
    Follow();
    const TPoint root = FInput.Graph()->OriginInRoot() + at;
    const double ratio = FWidget.devicePixelRatioF();
    FMenu->popup(FWidget.mapToGlobal(QPointF(root.X / ratio, root.Y / ratio).toPoint()));
}

}  // namespace plotkit
