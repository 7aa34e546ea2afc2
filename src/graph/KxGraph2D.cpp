#include "graph/KxGraph2D.h"

#include "foundation/KxLargeIni.h"
#include "graph/KxAttached.h"
#include "graph/KxAxis.h"
#include "graph/KxLabel.h"
#include "host/PixelMath.h"
#include "host/Restore.h"

namespace plotkit {

namespace {

constexpr TPropertyRow TitleFontRow()
{
    TPropertyRow row = Sub<&TKx2DGraph::GetTitleFont>("TitleFont");
    row.StoredWhen = detail::Asking<&TKx2DGraph::IsTitleFontStored>();
    return row;
}

constexpr std::array GraphProperties{
    Reference<&TKx2DGraph::PrimaryXAxis, &TKx2DGraph::SetPrimaryXAxis>("PrimaryXAxis"),
    Reference<&TKx2DGraph::PrimaryYAxis, &TKx2DGraph::SetPrimaryYAxis>("PrimaryYAxis"),
    Sub<&TKx2DGraph::GetFrameLine>("FrameLine"),
    Sub<&TKx2DGraph::GetMajorGridX>("MajorGridX"),
    Sub<&TKx2DGraph::GetMajorGridY>("MajorGridY"),
    Sub<&TKx2DGraph::GetMinorGridX>("MinorGridX"),
    Sub<&TKx2DGraph::GetMinorGridY>("MinorGridY"),
    Property<&TKx2DGraph::GetDataColor, &TKx2DGraph::SetDataColor>("DataColor"),
    Property<&TKx2DGraph::GetZeroOrigin, &TKx2DGraph::SetZeroOrigin>("ZeroOrigin"),
    Property<&TKx2DGraph::GetShowTitle, &TKx2DGraph::SetShowTitle>("ShowTitle"),
    Property<&TKx2DGraph::GetCaption, &TKx2DGraph::SetCaption>("Caption"),
    TitleFontRow(),
    Property<&TKx2DGraph::GetAutoZoom, &TKx2DGraph::SetAutoZoom>("AutoZoom"),
    Property<&TKx2DGraph::GetShareYAxes, &TKx2DGraph::SetShareYAxes>("ShareYAxes"),
};

/// The title. Its height counts in the layout.
class TTitleLabel : public TKxCustomLabel
{
public:
    explicit TTitleLabel(TKx2DGraph& graph) : TKxCustomLabel(&graph), FGraph(graph)
    {
        SetAlignment(taCenter);
        SetTransparent(true);
        SetVisible(false);
        SetParent(&graph);
        SetParentFont(true);
    }

protected:
    void CMFontChanged() override
    {
        TKxCustomLabel::CMFontChanged();
        FGraph.Modified();
    }

private:
    TKx2DGraph& FGraph;
};

}  // namespace

constinit const TClassInfo TKx2DGraph::Class{"TKx2DGraph", &TPanel::Class, GraphProperties,
                                             &CreateComponent<TKx2DGraph>};

TKx2DGraph* GraphOf(const TComponent& part)
{
    if (const auto* control = dynamic_cast<const TControl*>(&part))
        if (auto* graph = dynamic_cast<TKx2DGraph*>(control->Parent()))
            return graph;
    return dynamic_cast<TKx2DGraph*>(part.Owner());
}

TKx2DGraph::TKx2DGraph(TComponent* owner) : TPanel(owner)
{
    FFrameLine.SetVisible(false);
    for (TKxLineStyle* grid : {&FMajorGridX, &FMajorGridY, &FMinorGridX, &FMinorGridY}) {
        grid->SetStyle(psDot);
        grid->SetVisible(false);
    }
    FWorld = new TKxDrawingWorld(this);
    FDataColor = GetColor();
    FWorld->SetColor(FDataColor);
    FTitleLabel = new TTitleLabel(*this);
    TPanel::SetBounds(GetLeft(), GetTop(), 600, 400);
}

TKx2DGraph::~TKx2DGraph()
{
    BeginDestroy();
    FWorld->LeaveOverlay();
    // Series and axes that go with the graph still ask for these two; as the first of its components they go last.
    FWorld->SetParent(nullptr);
    FTitleLabel->SetParent(nullptr);
    DestroyControls();
    DestroyComponents();
}

std::vector<TComponent*> TKx2DGraph::StreamedChildren(const TComponent& root) const
{
    std::vector<TComponent*> children = TPanel::StreamedChildren(root);
    std::erase_if(children, [this](const TComponent* child) { return child == FWorld || child == FTitleLabel; });
    return children;
}

void TKx2DGraph::Attach(TKxAttachedLegend& legend)
{
    if (FAttachedList.IndexOf(&legend) >= 0)
        return;
    FAttachedList.Add(&legend);
    WatchFor(&legend);
    Modified();
}

void TKx2DGraph::Detach(TKxAttachedLegend& legend)
{
    if (!FAttachedList.Remove(&legend))
        return;
    StopWatching(&legend);
    Modified();
}

void TKx2DGraph::SetFrameLine(const TKxLineStyle& style)
{
    FFrameLine.Assign(style);
    Modified();
}

void TKx2DGraph::SetGrid(TKxLineStyle& grid, const TKxLineStyle& style)
{
    // Grid lines call for a repaint, not for a calculation.
    const TRestore keeping(FNeedsCalculate, FNeedsCalculate);
    grid.Assign(style);
    Invalidate();
}

void TKx2DGraph::SetDataColor(TColor color)
{
    if (FDataColor == color)
        return;
    FDataColor = color;
    FWorld->SetColor(color);
    Invalidate();
}

void TKx2DGraph::SetZeroOrigin(bool zeroOrigin)
{
    if (FZeroOrigin == zeroOrigin)
        return;
    FZeroOrigin = zeroOrigin;
    Modified();
}

void TKx2DGraph::SetShowTitle(bool show)
{
    if (FShowTitle == show)
        return;
    FShowTitle = show;
    FTitleLabel->SetCaption(show ? GetCaption() : TKxCaption());
    FTitleLabel->SetVisible(show);
    Modified();
}

TFont& TKx2DGraph::GetTitleFont()
{
    return FTitleLabel->GetFont();
}

void TKx2DGraph::SetTitleFont(const TFont& font)
{
    FTitleLabel->SetFont(font);
}

bool TKx2DGraph::IsTitleFontStored() const
{
    return !FTitleLabel->GetParentFont();
}

void TKx2DGraph::EndUpdate()
{
    --FUpdateCount;
    if (NotUpdating() && FNeedsCalculate)
        Invalidate();
}

TKxGraphUpdate::TKxGraphUpdate(TKx2DGraph* graph) : FGraph(graph)
{
    if (FGraph)
        FGraph->BeginUpdate();
}

TKxGraphUpdate::~TKxGraphUpdate()
{
    if (FGraph)
        FGraph->EndUpdate();
}

void TKx2DGraph::Modified()
{
    FNeedsCalculate = true;
    Invalidate();
}

void TKx2DGraph::Calculate()
{
    FWorld->ReorderSeriesList();
    for (TKxPlottable* series : GetSeriesList())
        series->CaptionIni().WriteString("Graph", "Title", GetCaption());
    for (TKxAttachedLegend* legend : FAttachedList)
        legend->ItemsModified();
    if (FPrimaryXAxis)
        FPrimaryXAxis->Calculate();
    for (TKxPlottable* series : GetSeriesList()) {
        for (TKxPlottable* child : series->Childs())
            child->CalculatePoints();
        series->CalculatePoints();
    }
    FNeedsCalculate = false;
}

void TKx2DGraph::ZoomTo(const TRect& box)
{
    const TRect data = FWorld->DataRect();
    const auto distance = [](int a, int b) { return SaturatePixel(std::int64_t{a} - b); };
    std::vector<TKxAxis*> axes;
    std::vector<TKx2DGraph*> graphs;
    for (TComponent* component : AxesOwner().Components())
        if (auto* axis = dynamic_cast<TKxAxis*>(component)) {
            axes.push_back(axis);
            TKx2DGraph* const graph = GraphOf(*axis);
            if (graph && std::find(graphs.begin(), graphs.end(), graph) == graphs.end())
                graphs.push_back(graph);
        }
    for (const TKx2DGraph* graph : graphs)
        graph->OnZooming();
    for (TKxAxis* axis : axes) {
        const bool upright = axis->Orientation() == AxVertical;
        const int from = upright ? distance(box.Top, data.Top) : distance(box.Left, data.Left);
        const int to = upright ? distance(box.Bottom, data.Top) : distance(box.Right, data.Left);
        const double a = axis->IntToRealPosition(from);
        const double b = axis->IntToRealPosition(to);
        axis->ZoomIn(std::min(a, b), std::max(a, b));
    }
    for (TKxPlottable* series : GetSeriesList())
        series->Modified();
    for (const TKx2DGraph* graph : graphs)
        graph->OnZoomed();
}

void TKx2DGraph::SetBounds(int left, int top, int width, int height)
{
    if (left != GetLeft() || top != GetTop() || width != GetWidth() || height != GetHeight())
        FNeedsCalculate = true;
    TPanel::SetBounds(left, top, width, height);
}

void TKx2DGraph::SetParent(TWindowControl* parent)
{
    const bool markersShown = FWorld->MarkersShown();
    FWorld->LeaveOverlay();
    TPanel::SetParent(parent);
    if (markersShown)
        FWorld->ShowStartStopMarkers();
}

void TKx2DGraph::CMShowingChanged()
{
    TPanel::CMShowingChanged();
    if (!IsShowing())
        FWorld->CancelDrags();  // the mouse is not captured any more
    FWorld->RefreshMarkers();
    FWorld->RefreshOverlay();
}

void TKx2DGraph::CMTextChanged()
{
    TPanel::CMTextChanged();
    if (FShowTitle)
        FTitleLabel->SetCaption(GetCaption());
    Invalidate();
}

void TKx2DGraph::CMFontChanged()
{
    TPanel::CMFontChanged();
    Modified();
}

void TKx2DGraph::CMScaleChanged()
{
    TPanel::CMScaleChanged();
    Modified();
}

void TKx2DGraph::Notification(TComponent* component, TOperation operation)
{
    TPanel::Notification(component, operation);
    if (operation != opRemove)
        return;
    if (component == FPrimaryXAxis)
        FPrimaryXAxis = nullptr;
    if (component == FPrimaryYAxis)
        FPrimaryYAxis = nullptr;
    if (const auto* axis = dynamic_cast<const TKxAxis*>(component); axis && axis->Parent() == this)
        Modified();
    const auto& legends = FAttachedList.Items();
    const auto legend = std::find(legends.begin(), legends.end(), component);
    if (legend == legends.end())
        return;
    FAttachedList.Remove(*legend);
    Modified();
}

}  // namespace plotkit
