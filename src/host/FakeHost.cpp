#include <algorithm>

#include "host/Host.h"

namespace plotkit {

int TFakeHost::StartTimer(std::chrono::milliseconds interval, std::function<void()> onTimer)
{
    // An interval of zero would be due for ever.
    const auto step = std::max(interval, std::chrono::milliseconds(1));
    FTimers.emplace(++FLastTimer, TEntry{step, FNow + step, std::move(onTimer)});
    return FLastTimer;
}

void TFakeHost::StopTimer(int timer)
{
    FTimers.erase(timer);
}

void TFakeHost::Advance(std::chrono::milliseconds by)
{
    const auto end = FNow + std::max(by, std::chrono::milliseconds(0));
    for (;;) {
        const auto next = std::min_element(FTimers.begin(), FTimers.end(),
                                           [](const auto& a, const auto& b) { return a.second.Due < b.second.Due; });
        if (next == FTimers.end() || next->second.Due > end)
            break;
        FNow = std::max(FNow, next->second.Due);
        next->second.Due += next->second.Interval;
        // The callback may stop its timer, which destroys the entry.
        const std::function<void()> onTimer = next->second.OnTimer;
        onTimer();
    }
    FNow = std::max(FNow, end);
}

double TFakeHost::Random()
{
    // Splitmix64: G. L. Steele, D. Lea, C. H. Flood, "Fast splittable pseudorandom number generators", 2014.
    FSeed += 0x9E3779B97F4A7C15U;
    std::uint64_t bits = FSeed;
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
    bits ^= bits >> 31;
    return static_cast<double>(bits >> 11) * 0x1p-53;
}

}  // namespace plotkit
