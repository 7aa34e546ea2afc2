// The job of WheelNotches is to gather the small turns of fine wheels and touch pads to whole notches.
#pragma once

#include <algorithm>

namespace plotkit {

class TWheelNotches
{
public:
    /// Whole steps of `step` that are complete with a turn by `delta`, 120 to a notch. A turn back begins anew.
    int Take(int delta, int step = 120)
    {
        constexpr int most = 100 * 120;
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
