// The job of KxGraphNavigator is to move a reader through a graph: zoom, pan, the whole view, and back and forth
// between the views that were shown.
#pragma once

#include <chrono>
#include <memory>
#include <vector>

#include "graph/KxAxisZoom.h"
#include "graph/KxGraph2D.h"
#include "host/EventChain.h"

namespace plotkit {

/// Which axes an operation moves.
enum TKxAxesChoice : std::uint8_t
{
    acAll,
    acHorizontal,
    acVertical,
};

/// Works on all axes that stand in one graph; slaves follow their masters. Ends that it sets are not rounded; those on
/// logarithmic axes move in decades, those on date-time axes stay within the years 1 to 9999. It makes a view for each
/// of its operations and for each `ZoomTo` of the graph, whose ends stay as given; operations of one kind that follow
/// each other quickly make one. Without its graph, once that is gone, it does nothing.
class TKxGraphNavigator : public TComponent
{
public:
    explicit TKxGraphNavigator(TKx2DGraph& graph);
    ~TKxGraphNavigator() override;

    TKx2DGraph* Graph() const { return FGraph; }
    /// The axes it works on.
    std::vector<TKxAxis*> Axes() const;

    /// Makes the shown ranges `factor` times as long (in values or decades); what stands at `at`, a pixel of the graph,
    /// stays there. Nothing for factors that are not positive.
    void ZoomAbout(TPoint at, double factor, TKxAxesChoice axes = acAll);
    void ZoomAboutCentre(double factor, TKxAxesChoice axes = acAll);
    /// Moves the picture by parts of the plotting area: 1, 0 shows what lies right of it, 0, 1 what lies above.
    void PanByViews(double right, double up);
    /// Moves the picture by pixels.
    void PanByPixels(int right, int down);
    /// A pan that follows the mouse: `DragTo` moves what stood at `from` when it began. All of it is one view.
    void BeginDrag(TPoint from);
    void DragTo(TPoint to);
    void EndDrag();
    /// As it was before the drag.
    void CancelDrag();
    bool IsDragging() const { return FDragging; }

    /// All axes unzoomed, their automatic ends following the data. One can go back from there.
    void Home();
    bool CanGoHome() const;
    void Back();
    bool CanGoBack() const { return FGraph && FAt > 0; }
    void Forward();
    bool CanGoForward() const { return FGraph && FAt + 1 < FViews.size(); }
    /// Forgets all views but the present one.
    void ForgetViews();

    /// The shown ranges or the views changed.
    TEvent<> OnChanged;

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    enum TStep : std::uint8_t
    {
        stNone,
        stZoom,
        stPan,
        stDrag,
        stOther,
    };
    /// Values, or decades.
    struct TSpan
    {
        double From = 0, To = 0;
        friend bool operator==(const TSpan&, const TSpan&) = default;
    };
    struct TAxisView
    {
        TKxAxis* Axis;
        std::weak_ptr<const void> Alive;
        TKxZoomState State;
    };
    struct TMove
    {
        TKxAxis* Axis;
        TSpan Span;
    };
    struct TDragged
    {
        TKxAxis* Axis;
        std::weak_ptr<const void> Alive;
        TSpan Span;
        int Length;
    };
    using TView = std::vector<TAxisView>;

    static TSpan SpanOf(const TKxAxis& axis);
    static bool Chosen(const TKxAxis& axis, TKxAxesChoice axes);
    static TSpan Fitted(const TKxAxis& axis, TSpan wanted);
    static TSpan Zoomed(const TKxAxis& axis, double centre, double factor);
    static void ShowSpan(TKxAxis& axis, TSpan span);
    static TSpan Shifted(const TKxAxis& axis, TSpan span, double by);

    /// Slaves have a zoom history, too: it tells series whether they are shown zoomed.
    std::vector<TKxAxis*> AxesAndSlaves() const;
    TView PresentView() const;
    void ShowView(std::size_t at);
    void BeginStep(TStep step);
    void Make(TStep step, const std::vector<TMove>& moves);
    void ShiftAxes(double right, double up);
    void GraphZooms() { BeginStep(stOther); }
    void GraphZoomed();
    void Show();

    TKx2DGraph* FGraph;
    std::unique_ptr<TEventChain<>> FZooming, FZoomed;
    std::vector<TView> FViews{TView()};  ///< the present one is up to date when it is left
    std::size_t FAt = 0;
    TStep FStep = stNone;
    std::chrono::system_clock::time_point FStepTime;
    std::vector<TDragged> FDragged;
    TPoint FDragFrom;
    bool FDragging = false;
};

}  // namespace plotkit
