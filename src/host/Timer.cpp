#include "host/Timer.h"

#include <algorithm>

#include "host/Host.h"

namespace plotkit {

TTimer::TTimer(int milliSeconds, TEvent<> onTimer)
    : FHost(&Host()),
      FInterval(std::max(1, milliSeconds)),
      FTimer(FHost->StartTimer(std::chrono::milliseconds(FInterval), [onTimer = std::move(onTimer)] { onTimer(); }))
{}

TTimer::~TTimer()
{
    FHost->StopTimer(FTimer);
}

}  // namespace plotkit
