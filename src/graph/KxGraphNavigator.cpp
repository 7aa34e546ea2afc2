#include "graph/KxGraphNavigator.h"

#include <algorithm>
#include <cmath>

#include "foundation/KxArithm.h"
#include "graph/KxAxis.h"
#include "graph/KxDateTimeTicks.h"
#include "host/Host.h"

namespace plotkit {

namespace {

constexpr std::chrono::milliseconds Burst{700};
constexpr std::size_t MostViews = 200;

/// A range narrower than this part of its larger end would run out of the digits of its labels.
constexpr double NarrowestPart = 1e-12;
constexpr double FarthestEnd = 1e300;
constexpr double NarrowestRange = 1e-290;
/// Axes show a whole decade instead of less than 1 % of a value.
constexpr double NarrowestDecades = 0.005;
constexpr double FarthestDecade = 300;
constexpr double NarrowestDays = 1e-7;

struct TLimits
{
    double Lowest, Highest;
};

TLimits LimitsOf(const TKxAxis& axis)
{
    if (axis.GetScaling() == AxNormal)
        return {-FarthestEnd, FarthestEnd};
    if (axis.GetScaling() != AxDateTime)
        return {-FarthestDecade, FarthestDecade};
    const TKxDateTimeRange years = ClampedRange({-1e9, 1e9});
    return {years.Start, years.Stop};
}

double Narrowest(const TKxAxis& axis, double from, double to)
{
    if (axis.GetScaling() == AxNormal)
        return std::max(NarrowestPart * std::max(std::fabs(from), std::fabs(to)), NarrowestRange);
    return axis.GetScaling() == AxDateTime ? NarrowestDays : NarrowestDecades;
}

}  // namespace

TKxGraphNavigator::TKxGraphNavigator(TKx2DGraph& graph)
    : TComponent(nullptr),
      FGraph(&graph),
      FZooming(std::make_unique<TEventChain<>>(graph, graph.OnZooming,
                                               TEvent<>::Bind<&TKxGraphNavigator::GraphZooms>(this))),
      FZoomed(
          std::make_unique<TEventChain<>>(graph, graph.OnZoomed, TEvent<>::Bind<&TKxGraphNavigator::GraphZoomed>(this)))
{
    WatchFor(FGraph);
}

TKxGraphNavigator::~TKxGraphNavigator()
{
    BeginDestroy();
}

void TKxGraphNavigator::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation != opRemove || component != FGraph)
        return;
    FGraph = nullptr;
    FDragging = false;
    ForgetViews();
}

std::vector<TKxAxis*> TKxGraphNavigator::AxesAndSlaves() const
{
    std::vector<TKxAxis*> axes;
    if (!FGraph)
        return axes;
    for (TControl* control : FGraph->Controls())
        if (auto* axis = dynamic_cast<TKxAxis*>(control))
            axes.push_back(axis);
    return axes;
}

std::vector<TKxAxis*> TKxGraphNavigator::Axes() const
{
    std::vector<TKxAxis*> axes = AxesAndSlaves();
    std::erase_if(axes, [](const TKxAxis* axis) { return axis->GetIsSlaveAxis() && axis->GetMasterAxis(); });
    return axes;
}

TKxGraphNavigator::TSpan TKxGraphNavigator::SpanOf(const TKxAxis& axis)
{
    if (!axis.Mapping().IsLog())
        return {axis.GetStart(), axis.GetStop()};
    return {std::log10(axis.GetStart()), std::log10(axis.GetStop())};
}

bool TKxGraphNavigator::Chosen(const TKxAxis& axis, TKxAxesChoice axes)
{
    // Ends that no layout has made usable yet are none to start from.
    const TSpan span = SpanOf(axis);
    if (axis.PixelLength() <= 0 || !(span.To > span.From) || !std::isfinite(span.To - span.From))
        return false;
    return axes == acAll || (axes == acHorizontal) == (axis.Orientation() == AxHorizontal);
}

TKxGraphNavigator::TSpan TKxGraphNavigator::Fitted(const TKxAxis& axis, TSpan wanted)
{
    const TLimits limits = LimitsOf(axis);
    const double width = std::min(wanted.To - wanted.From, limits.Highest - limits.Lowest);
    if (wanted.From < limits.Lowest)
        wanted = {limits.Lowest, limits.Lowest + width};
    else if (wanted.To > limits.Highest)
        wanted = {limits.Highest - width, limits.Highest};
    return wanted;
}

TKxGraphNavigator::TSpan TKxGraphNavigator::Zoomed(const TKxAxis& axis, double centre, double factor)
{
    const TSpan span = SpanOf(axis);
    const double narrowest = Narrowest(axis, span.From, span.To);
    if (factor < 1 && (span.To - span.From) * factor < narrowest)
        factor = std::min(narrowest / (span.To - span.From), 1.0);
    if (factor == 1)
        return span;
    return Fitted(axis, {centre - (centre - span.From) * factor, centre + (span.To - centre) * factor});
}

TKxGraphNavigator::TSpan TKxGraphNavigator::Shifted(const TKxAxis& axis, TSpan span, double by)
{
    const double most = LimitsOf(axis).Highest - LimitsOf(axis).Lowest;
    by = std::clamp(by, -most, most);
    return Fitted(axis, {span.From + by, span.To + by});
}

TKxGraphNavigator::TView TKxGraphNavigator::PresentView() const
{
    TView view;
    for (TKxAxis* axis : AxesAndSlaves())
        view.push_back({axis, axis->Lifeline().Watch(), axis->ZoomState()});
    return view;
}

void TKxGraphNavigator::BeginStep(TStep step)
{
    const auto now = Host().Now();
    const bool goesOn = step == FStep && step != stOther && FAt > 0 && (step == stDrag || now - FStepTime < Burst);
    FStep = step;
    FStepTime = now;
    if (goesOn)
        return;
    FViews[FAt] = PresentView();
    FViews.resize(FAt + 1);
    if (FViews.size() >= MostViews)
        FViews.erase(FViews.begin());
    FViews.emplace_back();
    FAt = FViews.size() - 1;
    // A rectangle makes views of its own.
    if (step == stZoom || step == stPan || step == stDrag)
        for (TKxAxis* axis : AxesAndSlaves())
            axis->KeepView();
}

void TKxGraphNavigator::Make(TStep step, const std::vector<TMove>& moves)
{
    const bool changes =
        std::any_of(moves.begin(), moves.end(), [](const TMove& move) { return SpanOf(*move.Axis) != move.Span; });
    if (!changes)
        return;
    BeginStep(step);
    for (const TMove& move : moves)
        if (SpanOf(*move.Axis) != move.Span)
            ShowSpan(*move.Axis, move.Span);
    Show();
}

void TKxGraphNavigator::GraphZoomed()
{
    for (TKxAxis* axis : Axes()) {
        if (!Chosen(*axis, acAll))
            continue;
        const TSpan span = SpanOf(*axis);
        const double missing = std::max(Narrowest(*axis, span.From, span.To) - (span.To - span.From), 0.0) / 2;
        ShowSpan(*axis, Fitted(*axis, {span.From - missing, span.To + missing}));
    }
    Show();
}

void TKxGraphNavigator::ShowSpan(TKxAxis& axis, TSpan span)
{
    const bool isLog = axis.Mapping().IsLog();
    axis.ShowExactly(isLog ? Exp10(span.From) : span.From, isLog ? Exp10(span.To) : span.To);
}

void TKxGraphNavigator::Show()
{
    FGraph->Modified();
    OnChanged();
}

void TKxGraphNavigator::ZoomAbout(TPoint at, double factor, TKxAxesChoice axes)
{
    if (!FGraph || FDragging || !(factor > 0) || !std::isfinite(factor))
        return;
    const TRect data = FGraph->World().DataRect();
    std::vector<TMove> moves;
    for (TKxAxis* axis : Axes()) {
        if (!Chosen(*axis, axes))
            continue;
        const TSpan span = SpanOf(*axis);
        const double length = axis->PixelLength();
        const double position =
            axis->Orientation() == AxHorizontal ? double{1} * at.X - data.Left : double{1} * at.Y - data.Top;
        const double part = (axis->Mapping().Forward ? position : length - position) / length;
        moves.push_back({axis, Zoomed(*axis, span.From + part * (span.To - span.From), factor)});
    }
    Make(stZoom, moves);
}

void TKxGraphNavigator::ZoomAboutCentre(double factor, TKxAxesChoice axes)
{
    if (!FGraph || FDragging || !(factor > 0) || !std::isfinite(factor))
        return;
    std::vector<TMove> moves;
    for (TKxAxis* axis : Axes())
        if (Chosen(*axis, axes)) {
            const TSpan span = SpanOf(*axis);
            moves.push_back({axis, Zoomed(*axis, span.From + (span.To - span.From) / 2, factor)});
        }
    Make(stZoom, moves);
}

void TKxGraphNavigator::PanByViews(double right, double up)
{
    if (FGraph && !FDragging && std::isfinite(right) && std::isfinite(up))
        ShiftAxes(right, up);
}

void TKxGraphNavigator::PanByPixels(int right, int down)
{
    const TRect data = FGraph ? FGraph->World().DataRect() : TRect{};
    if (data.Width() > 1 && data.Height() > 1 && !FDragging)
        ShiftAxes(double{-1} * right / (data.Width() - 1), double{1} * down / (data.Height() - 1));
}

void TKxGraphNavigator::ShiftAxes(double right, double up)
{
    std::vector<TMove> moves;
    for (TKxAxis* axis : Axes()) {
        if (!Chosen(*axis, acAll))
            continue;
        const TSpan span = SpanOf(*axis);
        const double along = axis->Orientation() == AxHorizontal ? right : up;
        const double by = (axis->GetTwisted() ? -along : along) * (span.To - span.From);
        if (by != 0)
            moves.push_back({axis, Shifted(*axis, span, by)});
    }
    Make(stPan, moves);
}

void TKxGraphNavigator::BeginDrag(TPoint from)
{
    FDragged.clear();
    FDragging = FGraph != nullptr;
    FDragFrom = from;
    FStep = stNone;
    for (TKxAxis* axis : Axes())
        if (Chosen(*axis, acAll))
            FDragged.push_back({axis, axis->Lifeline().Watch(), SpanOf(*axis), axis->PixelLength()});
}

void TKxGraphNavigator::DragTo(TPoint to)
{
    if (!FDragging)
        return;
    std::vector<TMove> moves;
    for (const TDragged& dragged : FDragged) {
        if (dragged.Alive.expired())
            continue;
        const bool horizontal = dragged.Axis->Orientation() == AxHorizontal;
        const double pixels = horizontal ? double{1} * to.X - FDragFrom.X : double{1} * to.Y - FDragFrom.Y;
        const double by = pixels / dragged.Length * (dragged.Span.To - dragged.Span.From);
        const bool forward = dragged.Axis->Mapping().Forward;
        moves.push_back({dragged.Axis, Shifted(*dragged.Axis, dragged.Span, forward ? -by : by)});
    }
    Make(stDrag, moves);
}

void TKxGraphNavigator::EndDrag()
{
    FDragging = false;
    FStep = stNone;
}

void TKxGraphNavigator::CancelDrag()
{
    const bool moved = FDragging && FStep == stDrag;
    EndDrag();
    if (!moved)
        return;
    Back();
    FViews.resize(FAt + 1);
    OnChanged();
}

bool TKxGraphNavigator::CanGoHome() const
{
    const std::vector<TKxAxis*> axes = AxesAndSlaves();
    return std::any_of(axes.begin(), axes.end(), [](const TKxAxis* axis) { return axis->CanZoomBack(); });
}

void TKxGraphNavigator::Home()
{
    if (!FGraph || FDragging)
        return;
    if (CanGoHome())
        BeginStep(stOther);
    for (TKxAxis* axis : AxesAndSlaves())
        axis->LeaveZoom();
    Show();
}

void TKxGraphNavigator::ShowView(std::size_t at)
{
    FViews[FAt] = PresentView();
    FAt = at;
    FStep = stNone;
    const std::vector<TKxAxis*> present = AxesAndSlaves();
    for (const TAxisView& view : FViews[FAt])
        if (!view.Alive.expired() && std::find(present.begin(), present.end(), view.Axis) != present.end())
            view.Axis->SetZoomState(view.State);
    Show();
}

void TKxGraphNavigator::Back()
{
    if (CanGoBack() && !FDragging)
        ShowView(FAt - 1);
}

void TKxGraphNavigator::Forward()
{
    if (CanGoForward() && !FDragging)
        ShowView(FAt + 1);
}

void TKxGraphNavigator::ForgetViews()
{
    FViews.assign(1, {});
    FAt = 0;
    FStep = stNone;
    OnChanged();
}

}  // namespace plotkit
