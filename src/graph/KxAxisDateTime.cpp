#include <algorithm>
#include <limits>

#include "graph/KxAxis.h"
#include "graph/KxDateTimeTicks.h"

namespace plotkit {

namespace {

/// Room between two labels, 1/96 inch.
constexpr int GapBesideLabels = 10;
constexpr int GapBetweenLines = 4;

}  // namespace

void TKxAxis::DateTimeEnds()
{
    TKxDateTimeRange range = ClampedRange({GetStart(), GetStop()});
    if (range.Start == range.Stop) {
        range = RangeAround(range.Start);
        FEndsReset = true;
    }
    for (const TKxDateTimeStep& step : DateTimeSteps()) {
        ApplyDateTimeStep(step, range.Start, range.Stop);
        if (DateTimeLabelsFit(step))
            return;
    }
    FRange.SetStartStop(range.Start, range.Stop);
}

void TKxAxis::ApplyDateTimeStep(const TKxDateTimeStep& step, double start, double stop)
{
    if (EndIsRounded(FStartEnd))
        start = RoundedToTick(start, step, false);
    if (EndIsRounded(FStopEnd))
        stop = RoundedToTick(stop, step, true);
    FRange.SetStartStop(start, stop);
    SpreadOverPixels(stop - start);
    FDTRegion = step.Region;
    FDTLabelStep = step.LabelStep;
}

const TKxDateTimeStep& TKxAxis::DateTimeStep() const
{
    for (const TKxDateTimeStep& step : DateTimeSteps())
        if (step.Region == FDTRegion && step.LabelStep == FDTLabelStep)
            return step;
    return DateTimeSteps().back();
}

bool TKxAxis::DateTimeLabelsFit(const TKxDateTimeStep& step) const
{
    const TKxDateTimeRange range{GetStart(), GetStop()};
    const bool horizontal = Orientation() == AxHorizontal;
    const int gap = Px(horizontal ? GapBesideLabels : GapBetweenLines);
    const auto extentOf = [&](TDateTime value) {
        int height = 0;
        const int width = Measured(DateTimeLabel(value, step, range), &height).Width;
        return horizontal ? width : height;
    };
    // Most steps are too fine by far; one label tells, even if others are shorter.
    const double fewest = (range.Stop - range.Start) / DaysBetweenLabels(step) - 1;
    if (fewest * gap > FPixelLength || fewest * (gap + extentOf(range.Start) / 2) > FPixelLength)
        return false;
    const auto ticks = DateTimeTicksOf(range, step, MostTicks());
    if (!ticks)
        return false;
    std::vector<std::pair<int, double>> labels;
    for (const TKxDateTimeTick& tick : *ticks)
        if (tick.Labelled)
            labels.emplace_back(RealToIntPosition(tick.Value), tick.Value);
    std::sort(labels.begin(), labels.end());
    int edge = std::numeric_limits<int>::min() / 2;
    for (const auto& [position, value] : labels) {
        const int extent = extentOf(value), from = position - extent / 2;
        if (from < edge + gap)
            return false;
        edge = from + extent;
    }
    return true;
}

void TKxAxis::DateTimeTicks()
{
    // The length of the line may have changed, and with it the step that the ends are rounded to.
    if (EndsAreChosen()) {
        FRange.SetStartStop(FChosen.FromStart, FChosen.FromStop);
        DateTimeEnds();
        FChosen.Start = GetStart();
        FChosen.Stop = GetStop();
    }
    SpreadOverPixels(GetStop() - GetStart());
    if (FPixelLength <= 0)
        return;
    const TKxDateTimeStep& step = DateTimeStep();
    const TKxDateTimeRange range{GetStart(), GetStop()};
    const auto ticks = DateTimeTicksOf(range, step, MostTicks());
    if (!ticks)
        return;
    for (const TKxDateTimeTick& tick : *ticks) {
        AddTick(tick.Value, tick.Labelled);
        if (tick.Labelled && GetShowScaleLabels())
            AddLabelAt(DateTimeLabel(tick.Value, step, range), tick.Value);
    }
}

}  // namespace plotkit
