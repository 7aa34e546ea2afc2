// The job of KxAxisLayout is to give every axis and legend of a graph its place, and the plotting area what remains.
#pragma once

#include <array>
#include <vector>

#include "graph/KxAxisTypes.h"

namespace plotkit {

class TComponent;
class TKx2DGraph;
class TKxAttachedLegend;
class TKxAxis;

/// One layout of all axes that stand in the same graph as `axis`; without a graph, beside it.
class TKxAxisLayout
{
public:
    explicit TKxAxisLayout(TKxAxis& axis);
    void Run();

private:
    static constexpr std::size_t SideCount = 4;
    template <class T>
    using TSides = std::array<T, SideCount>;

    void CollectAxes(const TComponent* from);
    void CalculateAxes();
    bool RefreshCaptions();
    void LayOut();
    void StartRooms();
    void PlaceLegends();
    void PlaceLegend(TKxAttachedLegend& legend);
    void TakeRooms();
    void TakeRoom(TKxAxis& axis);
    int NeededDepth(const TKxAxis& axis) const;
    void TakeBottom(TKxAxis& axis, int depth);
    void TakeLeft(TKxAxis& axis, int depth);
    void TakeTop(TKxAxis& axis, int depth);
    void TakeRight(TKxAxis& axis, int depth);
    void LetLabelsOverhang();
    void PlaceAxes();
    void PlaceVertical(TKxAxis& axis);
    void PlaceHorizontal(TKxAxis& axis);
    void Recalculate(TKxAxis& axis);
    void LeaveOutEndGridLines(TKxAxis& axis, TKxAxisPos atFirst, TKxAxisPos atLast);
    void FollowMasters();
    void PlaceWorld();
    void CrossAtZero();
    void CentreTitleAndLegend();

    static void GrowHeight(TKxAxis& axis, int by);
    static void GrowWidth(TKxAxis& axis, int by);
    int& Room(TKxAxisPos side) { return FRoom[side]; }
    int HalfThickness(const TKxAxis& axis) const;

    TKxAxis* FAxis;
    TKx2DGraph* FGraph;
    std::vector<TKxAxis*> FAxes;  ///< in component order
    TKxAttachedLegend* FLastLegend = nullptr;
    TSides<int> FRoom{}, FInward{}, FGap{};
    TSides<TKxAxis*> FSide{};  ///< the first axis of each side in component order
    int FOverhangX = 0, FOverhangY = 0;
    int FFrameWidth = 0;
    bool FHasPrimaries = false;
    bool FZeroCrossX = false, FZeroCrossY = false;
};

}  // namespace plotkit
