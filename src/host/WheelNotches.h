// The job of WheelNotches is to gather the small turns of fine wheels and touch pads to whole notches.
#pragma once

#include <algorithm>

namespace plotkit {

class TWheelNotches
{
public:
    /// Whole notches that are complete with a turn by `delta`, 120 to a notch. A turn back begins anew.
    int Take(int delta)
    {
        constexpr int notch = 120, most = 100;
        if ((delta > 0) != (FRest > 0))
            FRest = 0;
        FRest += std::clamp(delta, -most * notch, most * notch);
        const int notches = FRest / notch;
        FRest %= notch;
        return notches;
    }

private:
    int FRest = 0;
};

}  // namespace plotkit
