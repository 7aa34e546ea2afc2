#include "graph/KxAxisLayout.h"

#include <algorithm>
#include <cstdlib>

#include "graph/KxAttached.h"
#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "graph/KxLabel.h"

namespace plotkit {

namespace {

/// The captions that the labels ask for may need another room than the captions before.
constexpr int MostLayouts = 2;

bool SpansZero(const TKxAxis& axis)
{
    return axis.GetStart() < 0 && axis.GetStop() > 0;
}

class TAlignGuard
{
public:
    explicit TAlignGuard(TWindowControl& control) : FControl(control) { FControl.DisableAlign(); }
    TAlignGuard(const TAlignGuard&) = delete;
    TAlignGuard& operator=(const TAlignGuard&) = delete;
    ~TAlignGuard() { FControl.EnableAlign(); }

private:
    TWindowControl& FControl;
};

}  // namespace

TKxAxisLayout::TKxAxisLayout(TKxAxis& axis) : FAxis(&axis), FGraph(GraphOf(axis))
{
    CollectAxes(axis.Owner());
    if (FGraph != axis.Owner())
        CollectAxes(FGraph);
    if (std::find(FAxes.begin(), FAxes.end(), &axis) == FAxes.end())
        FAxes.push_back(&axis);
}

void TKxAxisLayout::CollectAxes(const TComponent* from)
{
    if (!from)
        return;
    for (TComponent* component : from->Components()) {
        auto* axis = dynamic_cast<TKxAxis*>(component);
        if (axis && (FGraph ? GraphOf(*axis) == FGraph : axis->Parent() == FAxis->Parent()))
            FAxes.push_back(axis);
    }
}

void TKxAxisLayout::Run()
{
    CalculateAxes();
    for (int i = 0; i < MostLayouts; ++i) {
        LayOut();
        FollowMasters();
        if (!RefreshCaptions())
            break;
    }
    for (TKxAxis* axis : FAxes)
        if (axis->GetVisible())
            axis->FNeedsCalculate = false;
    if (FGraph)
        FGraph->Invalidate();
}

void TKxAxisLayout::CalculateAxes()
{
    for (TKxAxis* axis : FAxes) {
        if (!axis->GetVisible())
            continue;
        if (const TKxAxis* master = axis->GetMasterAxis(); master && axis->GetIsSlaveAxis()) {
            axis->TakeEnds(*master);
            axis->TakeAutoCaption(master->GetAutoCaption());
            axis->CalculateEnds();
        } else {
            axis->CalculateEnds();
            axis->RefreshAutoCaption();
        }
        Recalculate(*axis);
    }
}

bool TKxAxisLayout::RefreshCaptions()
{
    bool changed = false;
    for (TKxAxis* axis : FAxes) {
        if (!axis->GetVisible())
            continue;
        const TKxAxis* master = axis->GetIsSlaveAxis() ? axis->GetMasterAxis() : nullptr;
        const TKxCaption before = axis->GetCaption();
        if (!master)
            axis->RefreshAutoCaption();
        else if (axis->GetAutoCaption() != master->GetAutoCaption())
            axis->TakeAutoCaption(master->GetAutoCaption());
        changed = changed || axis->GetCaption() != before;
    }
    return changed;
}

void TKxAxisLayout::Recalculate(TKxAxis& axis)
{
    axis.CalculateTicks();
    axis.FNeedsCalculate = false;
}

/// A date-time master rounds its ends to the ticks that its length has room for, maybe after its slaves took them.
void TKxAxisLayout::FollowMasters()
{
    for (TKxAxis* axis : FAxes) {
        const TKxAxis* master = axis->GetIsSlaveAxis() ? axis->GetMasterAxis() : nullptr;
        if (!master || !axis->GetVisible() ||
            (axis->GetStart() == master->GetStart() && axis->GetStop() == master->GetStop()))
            continue;
        axis->TakeEnds(*master);
        axis->CalculateEnds();
        Recalculate(*axis);
    }
}

void TKxAxisLayout::LayOut()
{
    if (!FGraph)
        return;
    StartRooms();
    const TAlignGuard guard(*FGraph);
    PlaceLegends();
    TakeRooms();
    LetLabelsOverhang();
    PlaceAxes();
    if (FHasPrimaries)
        PlaceWorld();
}

void TKxAxisLayout::StartRooms()
{
    FInward = {};
    FGap = {};
    FSide = {};
    FOverhangX = 0;
    FOverhangY = 0;
    FFrameWidth = FGraph->GetFrameLine().GetVisible() ? FGraph->Px(FGraph->GetFrameLine().GetWidth()) : 0;
    FRoom.fill(FFrameWidth);
    if (FGraph->GetShowTitle())
        Room(AxTopPos) += FGraph->TitleLabel().GetHeight();
    FHasPrimaries = FGraph->PrimaryXAxis() && FGraph->PrimaryYAxis();
    const bool crosses = FHasPrimaries && FGraph->GetZeroOrigin();
    FZeroCrossX = crosses && SpansZero(*FGraph->PrimaryXAxis());
    FZeroCrossY = crosses && SpansZero(*FGraph->PrimaryYAxis());
}

void TKxAxisLayout::PlaceLegends()
{
    std::vector<TKxAttachedLegend*> legends(FGraph->AttachedList().begin(), FGraph->AttachedList().end());
    std::stable_sort(legends.begin(), legends.end(), [](const TKxAttachedLegend* a, const TKxAttachedLegend* b) {
        return a->ComponentIndex() < b->ComponentIndex();
    });
    FLastLegend = nullptr;
    for (TKxAttachedLegend* legend : legends) {
        if (!legend->GetVisible() || legend->Parent() != FGraph || !legend->FitToGraph())
            continue;
        PlaceLegend(*legend);
        FLastLegend = legend;
    }
}

void TKxAxisLayout::PlaceLegend(TKxAttachedLegend& legend)
{
    const int gap = FGraph->Px(legend.GetOutsideGap());
    const TKxAxisPos side = legend.GetInGraphPosition();
    const int centred = (FGraph->GetWidth() - legend.GetWidth()) / 2;
    switch (side) {
        case AxBottomPos:
            Room(side) += legend.GetHeight() + 2 * gap;
            legend.SetTop(FGraph->GetHeight() - Room(side) + gap);
            legend.SetLeft(centred);
            break;
        case AxLeftPos:
            legend.SetLeft(Room(side) + gap);
            Room(side) += legend.GetWidth() + 2 * gap;
            break;
        case AxTopPos:
            legend.SetTop(Room(side) + gap);
            Room(side) += legend.GetHeight() + 2 * gap;
            legend.SetLeft(centred);
            break;
        case AxRightPos:
            Room(side) += legend.GetWidth() + 2 * gap;
            legend.SetLeft(FGraph->GetWidth() - Room(side) + gap);
            break;
        case AxFreeFloating:
            break;
    }
}

int TKxAxisLayout::HalfThickness(const TKxAxis& axis) const
{
    return axis.Px(axis.GetAxisThicknes()) / 2;
}

int TKxAxisLayout::NeededDepth(const TKxAxis& axis) const
{
    const int ticks = std::abs(axis.Px(axis.GetMajorTickLength())), gap = axis.Px(axis.GetScalingsTicksGap());
    const bool horizontal = axis.Orientation() == AxHorizontal;
    const int labels = horizontal ? axis.FMaxLabelHeight : axis.FMaxLabelWidth;
    const int depth = ticks + axis.Px(axis.GetBorderCaptionGap()) + gap + labels +
                      (horizontal ? axis.FCaptionHeight : axis.FCaptionWidth);
    if (!axis.ExponentForm())
        return depth;
    const int factor = horizontal ? axis.FMaxLabelHeight : axis.FExponentLabelWidth;
    return std::max(depth, ticks + axis.Px(axis.GetExponentScalingsGap()) + factor + gap);
}

void TKxAxisLayout::TakeRooms()
{
    // From the last to the first, so that each side remembers its first axis.
    for (auto axis = FAxes.rbegin(); axis != FAxes.rend(); ++axis) {
        if ((*axis)->GetVisible())
            TakeRoom(**axis);
        else if ((*axis)->GetPosition() != AxFreeFloating)
            Room((*axis)->GetPosition()) += (*axis)->Px((*axis)->GetBorderCaptionGap());
    }
    for (std::size_t side = 0; side < SideCount; ++side)
        FRoom[side] -= std::max(FInward[side], 0);
}

void TKxAxisLayout::TakeRoom(TKxAxis& axis)
{
    axis.FDrawFirstGridLine = true;
    axis.FDrawLastGridLine = true;
    const int depth = NeededDepth(axis);
    if (axis.GetPosition() != AxFreeFloating)
        FSide[axis.GetPosition()] = &axis;
    switch (axis.GetPosition()) {
        case AxBottomPos:
            TakeBottom(axis, depth);
            break;
        case AxLeftPos:
            TakeLeft(axis, depth);
            break;
        case AxTopPos:
            TakeTop(axis, depth);
            break;
        case AxRightPos:
            TakeRight(axis, depth);
            break;
        case AxFreeFloating:
            break;
    }
}

/// An axis that does not size itself would otherwise grow with every layout.
void TKxAxisLayout::GrowHeight(TKxAxis& axis, int by)
{
    if (axis.GetAutoSize())
        axis.SetHeight(axis.GetHeight() + by);
}

void TKxAxisLayout::GrowWidth(TKxAxis& axis, int by)
{
    if (axis.GetAutoSize())
        axis.SetWidth(axis.GetWidth() + by);
}

void TKxAxisLayout::TakeBottom(TKxAxis& axis, int depth)
{
    const int half = HalfThickness(axis), ticks = axis.Px(axis.GetMajorTickLength());
    if (axis.GetAutoSize()) {
        if (!FZeroCrossY)
            Room(AxBottomPos) += depth;
        axis.SetBounds(0, FGraph->GetHeight() - Room(AxBottomPos) - half, FGraph->GetWidth(), depth);
        FGap[AxBottomPos] = axis.Px(axis.GetValuesTicksGap());
        FOverhangX = std::max(FOverhangX, axis.FMaxLabelWidth);
    }
    if (axis.GetMajorTickLength() < 1) {
        FInward[AxBottomPos] = -ticks;
        axis.FAxisY = -ticks;
    } else {
        GrowHeight(axis, half);
        axis.FAxisY = half;
    }
    axis.FPixelLength = axis.GetWidth() - axis.FMaxLabelWidth - 1;
    axis.FAxisX = axis.FMaxLabelWidth / 2;
}

void TKxAxisLayout::TakeLeft(TKxAxis& axis, int depth)
{
    const int ticks = axis.Px(axis.GetMajorTickLength());
    if (axis.GetAutoSize()) {
        axis.SetBounds(Room(AxLeftPos), 0, depth + 1, FGraph->GetHeight());
        if (!FZeroCrossX)
            Room(AxLeftPos) += depth;
        FGap[AxLeftPos] = axis.Px(axis.GetValuesTicksGap());
        FOverhangY = std::max(FOverhangY, axis.FMaxLabelHeight);
    }
    axis.FAxisY = axis.FMaxLabelHeight / 2;
    axis.FPixelLength = axis.GetHeight() - axis.FMaxLabelHeight;
    if (axis.GetMajorTickLength() < 1) {
        GrowWidth(axis, HalfThickness(axis));
        axis.FAxisX = depth - 1;
    } else {
        FInward[AxLeftPos] = ticks;
        axis.FAxisX = depth - ticks - 1;
    }
}

void TKxAxisLayout::TakeTop(TKxAxis& axis, int depth)
{
    const int ticks = axis.Px(axis.GetMajorTickLength());
    if (axis.GetAutoSize()) {
        axis.SetBounds(0, Room(AxTopPos), FGraph->GetWidth(), depth + 1);
        Room(AxTopPos) += depth;
        FGap[AxTopPos] = axis.Px(axis.GetValuesTicksGap());
        FOverhangX = std::max(FOverhangX, axis.FMaxLabelWidth);
    }
    if (axis.GetMajorTickLength() < 1) {
        axis.FAxisY = depth;
        GrowHeight(axis, HalfThickness(axis));
    } else {
        FInward[AxTopPos] = ticks;
        axis.FAxisY = depth - ticks;
    }
    axis.FPixelLength = axis.GetWidth() - axis.FMaxLabelWidth - 1;
    axis.FAxisX = axis.FMaxLabelWidth / 2;
}

void TKxAxisLayout::TakeRight(TKxAxis& axis, int depth)
{
    const int half = HalfThickness(axis), ticks = axis.Px(axis.GetMajorTickLength());
    if (axis.GetAutoSize()) {
        Room(AxRightPos) += depth;
        axis.SetBounds(FGraph->GetWidth() - Room(AxRightPos), 0, depth + 1, FGraph->GetHeight());
        FGap[AxRightPos] = axis.Px(axis.GetValuesTicksGap());
        FOverhangY = std::max(FOverhangY, axis.FMaxLabelHeight);
    }
    axis.FAxisY = axis.FMaxLabelHeight / 2;
    axis.FPixelLength = axis.GetHeight() - axis.FMaxLabelHeight;
    if (axis.GetMajorTickLength() < 1) {
        FInward[AxRightPos] = -ticks;
        axis.FAxisX = -ticks;
    } else {
        GrowWidth(axis, half);
        axis.FAxisX = half;
    }
}

/// The frame counts at the top and at the right only.
void TKxAxisLayout::LetLabelsOverhang()
{
    Room(AxTopPos) = std::max(Room(AxTopPos), FOverhangY / 2 + FFrameWidth);
    Room(AxBottomPos) = std::max(Room(AxBottomPos), FOverhangY / 2);
    Room(AxRightPos) = std::max(Room(AxRightPos), FOverhangX / 2 + FFrameWidth);
    Room(AxLeftPos) = std::max(Room(AxLeftPos), FOverhangX / 2);
}

}  // namespace plotkit
