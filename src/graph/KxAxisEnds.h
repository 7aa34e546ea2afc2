// The job of KxAxisEnds is to remember what the ends of an axis were made from, so that they can be chosen again.
#pragma once

#include "graph/KxAxisTypes.h"

namespace plotkit {

/// Ends that were rounded, with those that they were rounded from and the rules in force.
struct TKxChosenEnds
{
    double FromStart = 0, FromStop = 0;
    double Start = 0, Stop = 0;
    TKxAxScaling Scaling = AxNormal;
    TKxAxEnd StartEnd = AxAutoRange, StopEnd = AxAutoRange;
    bool Known = false;
    bool Taken = false;  ///< as they stand: from a master, which has rounded them, or asked for exactly
};

/// One view of the zoom history.
struct TKxZoomView
{
    double Start = 0, Stop = 0;
    TKxChosenEnds Chosen;
};

}  // namespace plotkit
