#include <cstdlib>

#include "graph/KxGraph2D.h"
#include "graph/KxLegend.h"
#include "host/PixelMath.h"

namespace plotkit {

namespace {

constexpr int DragThreshold = 3;

}  // namespace

TKxPlottable* TKxLegend::SeriesAt(int x, int y) const
{
    if (!FGraph)
        return nullptr;
    for (std::size_t i = 0; i < FPlan.Boxes.size() && i < FEntries.size(); ++i) {
        if (!FPlan.Boxes[i].Contains({x, y}))
            continue;
        // Since the last paint it may have gone.
        TKxPlottable* found = nullptr;
        ForEachSeries(FGraph->GetSeriesList(), [&](TKxPlottable& series) {
            if (&series == FEntries[i].Series)
                found = &series;
        });
        return found;
    }
    return nullptr;
}

void TKxLegend::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    if (button == mbLeft) {
        FPressed = TPoint{x, y};
        FDragging = false;
    }
    TKxAttachedLegend::MouseDown(button, shift, x, y);
}

void TKxLegend::MouseMove(TShiftState shift, int x, int y)
{
    if (!FPressed)
        SetCursor(FClickHides && SeriesAt(x, y) ? crHand : crDefault);
    else if (FInGraphPosition == AxFreeFloating)
        DragTo({x, y});
    TKxAttachedLegend::MouseMove(shift, x, y);
}

void TKxLegend::DragTo(TPoint at)
{
    const auto distance = [](int a, int b) { return std::abs(std::int64_t{a} - b); };
    const int threshold = Px(DragThreshold);
    FDragging = FDragging || distance(at.X, FPressed->X) > threshold || distance(at.Y, FPressed->Y) > threshold;
    if (!FDragging)
        return;
    // The pixels count from the legend, which moves along.
    const TPoint by{SaturatePixel(std::int64_t{at.X} - FPressed->X), SaturatePixel(std::int64_t{at.Y} - FPressed->Y)};
    const TPoint to = KeptInside(MovePoint(Bounds().TopLeft(), by), GetWidth(), GetHeight());
    SetBounds(to.X, to.Y, GetWidth(), GetHeight());
}

void TKxLegend::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    TKxPlottable* clicked = nullptr;
    if (button == mbLeft && FPressed) {
        if (!FDragging && SeriesAt(x, y) == SeriesAt(FPressed->X, FPressed->Y))
            clicked = SeriesAt(x, y);
        FPressed.reset();
        FDragging = false;
    }
    const auto alive = Lifeline().Watch();
    TKxAttachedLegend::MouseUp(button, shift, x, y);
    if (alive.expired() || !clicked || SeriesAt(x, y) != clicked)
        return;
    if (FClickHides)
        clicked->SetShown(!clicked->GetShown());
    OnEntryClick(*clicked);
}

}  // namespace plotkit
