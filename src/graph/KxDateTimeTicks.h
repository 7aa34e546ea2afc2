// The job of KxDateTimeTicks is the calendar of date-time axes: the ways to divide time, their ticks and label texts.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "graph/KxAxisTypes.h"
#include "host/DateTime.h"

namespace plotkit {

/// A way to divide time. Labels stand at every `LabelStep`-th unit of `Region`, ticks at every `TickStep`-th of
/// `TickRegion`; a label's moment is always a tick's.
struct TKxDateTimeStep
{
    TKxDTRegion Region;
    int LabelStep;
    TKxDTRegion TickRegion;
    int TickStep;
};

/// All ways, from milliseconds to millennia, labels growing apart.
std::span<const TKxDateTimeStep> DateTimeSteps();

/// The longest distance of two neighbouring labels.
double DaysBetweenLabels(const TKxDateTimeStep& step);

/// A range of day numbers, `Start` not above `Stop`.
struct TKxDateTimeRange
{
    TDateTime Start = 0;
    TDateTime Stop = 0;
};

/// Within the years 1 to 9999.
TKxDateTimeRange ClampedRange(TKxDateTimeRange range);
/// A moment and one unit around it on either side, the unit being the smallest that its text needs: the day of a
/// midnight, the minute of 12:30.
TKxDateTimeRange RangeAround(TDateTime moment);
/// Down or up to a tick.
TDateTime RoundedToTick(TDateTime value, const TKxDateTimeStep& step, bool up);

struct TKxDateTimeTick
{
    TDateTime Value;
    bool Labelled;
};

/// The ticks of a range in ascending order of value; nothing when there would be more than `limit`.
std::optional<std::vector<TKxDateTimeTick>> DateTimeTicksOf(const TKxDateTimeRange& range, const TKxDateTimeStep& step,
                                                            int limit);

/// The text of the label at a moment, in the host's locale.
std::string DateTimeLabel(TDateTime value, const TKxDateTimeStep& step, const TKxDateTimeRange& range);
/// The dates, or the years, that labels of a unit leave out: "2012-10-29", "2011 – 2012"; empty when they show the
/// year.
std::string DatesBeside(TKxDTRegion region, const TKxDateTimeRange& range);

}  // namespace plotkit
