// The job of WheelNotches is to gather the small turns of fine wheels and touch pads to whole notches.
#pragma once

#include <algorithm>

namespace plotkit {

class TWheelNotches
{
public:
    static constexpr int Notch = 120;  ///< what a wheel turns by from one stop to the next

    /// Whole steps of `step` that are complete with a turn by `delta`. A turn back begins anew.
    int Take(int delta, int step = Notch)
    {
        constexpr int most = 100 * Notch;
        if ((delta > 0) != (FRest > 0))
            FRest = 0;
        FRest += std::clamp(delta, -most, most);
        const int steps = FRest / step;
        FRest %= step;
        return steps;
    }

private:
    int FRest = 0;
};

}  // namespace plotkit
