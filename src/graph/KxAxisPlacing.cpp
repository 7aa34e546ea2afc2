#include "graph/KxAttached.h"
#include "graph/KxAxis.h"
#include "graph/KxAxisLayout.h"
#include "graph/KxGraph2D.h"
#include "graph/KxLabel.h"

namespace plotkit {

void TKxAxisLayout::PlaceAxes()
{
    for (auto axis = FAxes.rbegin(); axis != FAxes.rend(); ++axis) {
        if (!(*axis)->GetVisible())
            continue;
        if (!(*axis)->GetAutoSize() || (*axis)->GetPosition() == AxFreeFloating)
            Recalculate(**axis);
        else if ((*axis)->Orientation() == AxVertical)
            PlaceVertical(**axis);
        else
            PlaceHorizontal(**axis);
    }
}

void TKxAxisLayout::PlaceVertical(TKxAxis& axis)
{
    axis.FAxisY = Room(AxTopPos) + FGap[AxTopPos] - 1;
    axis.FPixelLength = axis.GetHeight() - Room(AxBottomPos) - axis.FAxisY - FGap[AxBottomPos];
    const bool isLeft = axis.GetPosition() == AxLeftPos;
    const int half = HalfThickness(axis), length = axis.GetMajorTickLength();
    const bool pointsOut = isLeft ? length < 1 : length >= 0;
    if (axis.GetPosition() == AxLeftPos) {
        if (FZeroCrossX || FSide[AxLeftPos] != &axis)
            return Recalculate(axis);
        axis.SetLeft(Room(AxLeftPos) + FInward[AxLeftPos] - axis.GetWidth() + 1 + (length < 0 ? half : 0));
    } else {
        if (FSide[AxRightPos] != &axis)
            return Recalculate(axis);
        axis.SetLeft(FGraph->GetWidth() - Room(AxRightPos) - FInward[AxRightPos] - 1 - (length > 0 ? half : 0));
    }
    Recalculate(axis);
    if (axis.GetValuesTicksGap() == 0 && !pointsOut)
        LeaveOutEndGridLines(axis, AxTopPos, AxBottomPos);
}

void TKxAxisLayout::PlaceHorizontal(TKxAxis& axis)
{
    axis.FAxisX = Room(AxLeftPos) + FGap[AxLeftPos] - 1;
    axis.FPixelLength = axis.GetWidth() - axis.FAxisX - Room(AxRightPos) - FGap[AxRightPos] - 1;
    const bool isBottom = axis.GetPosition() == AxBottomPos;
    const int half = HalfThickness(axis), length = axis.GetMajorTickLength();
    const bool pointsOut = isBottom ? length >= 0 : length < 1;
    if (isBottom) {
        if (FZeroCrossY || FSide[AxBottomPos] != &axis)
            return Recalculate(axis);
        axis.SetTop(FGraph->GetHeight() - Room(AxBottomPos) - FInward[AxBottomPos] - (length > 0 ? half : 0));
    } else {
        if (FSide[AxTopPos] != &axis)
            return Recalculate(axis);
        axis.SetTop(Room(AxTopPos) - axis.GetHeight() + FInward[AxTopPos] + (length < 0 ? half : 0));
    }
    Recalculate(axis);
    if (axis.GetValuesTicksGap() == 0 && !pointsOut)
        LeaveOutEndGridLines(axis, AxLeftPos, AxRightPos);
}

/// Where a perpendicular line stands flush at an end of the axis, the tick there, if there is one, would run along it.
void TKxAxisLayout::LeaveOutEndGridLines(TKxAxis& axis, TKxAxisPos atFirst, TKxAxisPos atLast)
{
    const auto isFlush = [this](TKxAxisPos side) { return FSide[side] && FSide[side]->GetValuesTicksGap() == 0; };
    const auto& ticks = axis.FTickPositions;
    if (isFlush(atFirst) && (ticks.empty() || ticks.front() <= 0))
        axis.FDrawFirstGridLine = false;
    if (isFlush(atLast) && (ticks.empty() || ticks.back() >= axis.FPixelLength))
        axis.FDrawLastGridLine = false;
}

void TKxAxisLayout::PlaceWorld()
{
    TKxDrawingWorld& world = FGraph->World();
    world.SetBounds(0, 0, FGraph->GetWidth(), FGraph->GetHeight());
    if (FGraph->GetZeroOrigin())
        CrossAtZero();
    const TKxAxis &x = *FGraph->PrimaryXAxis(), &y = *FGraph->PrimaryYAxis();
    world.SetDataRect({x.AxisX(), y.AxisY(), x.AxisX() + x.PixelLength() + 1, y.AxisY() + y.PixelLength() + 1});
    CentreTitleAndLegend();
    if (FGraph->Controls().back() != &world)
        world.BringToFront();
}

void TKxAxisLayout::CrossAtZero()
{
    TKxAxis &x = *FGraph->PrimaryXAxis(), &y = *FGraph->PrimaryYAxis();
    if (FZeroCrossY) {
        x.SetTop(y.RealToIntPosition(0) + y.AxisY() - FInward[AxBottomPos]);
        Recalculate(x);
    }
    if (FZeroCrossX) {
        y.SetLeft(x.RealToIntPosition(0) + x.AxisX() - y.GetWidth() + FInward[AxLeftPos] + 2);
        Recalculate(y);
    }
}

void TKxAxisLayout::CentreTitleAndLegend()
{
    const TKxAxis &x = *FGraph->PrimaryXAxis(), &y = *FGraph->PrimaryYAxis();
    const TRect& data = FGraph->World().DataRect();
    TKxCustomLabel& title = FGraph->TitleLabel();
    title.SetTop(FFrameWidth);
    title.SetXPosition(data.Left + x.PixelLength() / 2);
    if (!FLastLegend)
        return;
    const TKxAxisPos side = FLastLegend->GetInGraphPosition();
    int left = FLastLegend->GetLeft(), top = FLastLegend->GetTop();
    if (side == AxBottomPos || side == AxTopPos)
        left = data.Left + (x.PixelLength() - FLastLegend->GetWidth()) / 2;
    else if (side != AxFreeFloating)
        top = data.Top + (y.PixelLength() - FLastLegend->GetHeight()) / 2;
    FLastLegend->SetBounds(left, top, FLastLegend->GetWidth(), FLastLegend->GetHeight());
}

}  // namespace plotkit
