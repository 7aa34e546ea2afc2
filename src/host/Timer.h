// The job of Timer is a callback every so many milliseconds while it is enabled, on the host's clock.
#pragma once

#include "host/Event.h"

namespace plotkit {

class THost;

class TTimer
{
public:
    /// Starts at once on the host in force, which must outlive the timer; an interval below 1 is taken as 1.
    TTimer(int milliSeconds, TEvent<> onTimer);
    TTimer(const TTimer&) = delete;
    TTimer& operator=(const TTimer&) = delete;
    ~TTimer();

    int Interval() const { return FInterval; }

private:
    THost* FHost;
    int FInterval;
    int FTimer;
};

}  // namespace plotkit
