// The job of LiveDay is a day of live data at full speed: 1,000 pairs a second into vectors that keep the newest ones,
// in the batches of 30 frames a second, a frame painted for every second. It tells what memory and frames did, hour by
// hour, and fails when a value was lost.
//
// live_day [newest pairs, 100000] [hours, 24]
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/Form.h"
#include "series/KxDataSeries.h"

namespace {

using namespace plotkit;

constexpr long PairsPerSecond = 1000, BatchesPerSecond = 30, SecondsPerHour = 3600;

/// Numbers that are exact as doubles, so that each value can be told from all others near it.
double HeightOf(long i)
{
    return static_cast<double>(i * 2654435761L % 2001 - 1000) + static_cast<double>(i / 7 % 20011);
}

double Seconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double CpuSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

long ResidentKilobytes()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (long size = 0; word == "VmRSS:" && status >> size)
            return size;
    return 0;
}

class TLiveDay
{
public:
    explicit TLiveDay(int newest)
    {
        FForm->SetBounds(0, 0, 800, 600);
        auto* const graph = new TKx2DGraph(FForm.get());
        graph->SetParent(FForm.get());
        graph->SetAlign(alClient);
        auto* const series = new TKxDataSeries(FForm.get());
        series->SetXAxis(graph->GetPrimaryXAxis());
        series->SetYAxis(graph->GetPrimaryYAxis());
        series->SetXData(FX);
        series->SetYData(FY);
        series->GetPointStyle().SetVisible(false);
        FX->SetNewest(newest);
        FY->SetNewest(newest);
    }

    void RunSecond()
    {
        const double start = Seconds();
        for (long batch = 0; batch < BatchesPerSecond; ++batch)
            Feed((batch + 1) * PairsPerSecond / BatchesPerSecond - batch * PairsPerSecond / BatchesPerSecond);
        const double fed = Seconds(), fedCpu = CpuSeconds();
        FCommands += FForm->Picture().Commands.size();
        FFrames.push_back({Seconds() - fed, CpuSeconds() - fedCpu});
        FFeeding += fed - start;
    }

    /// How many of the values that should be there are not.
    long Lost() const
    {
        const auto xs = FX->Values(), ys = FY->Values();
        const long count = std::min<long>(FNext, FX->GetNewest());
        if (static_cast<long>(xs.size()) != count || xs.size() != ys.size() ||
            static_cast<long>(FX->Dropped()) != FNext - count)
            return FNext;
        long lost = 0;
        for (long i = 0; i < count; ++i) {
            const long pair = FNext - count + i;
            const auto at = static_cast<std::size_t>(i);
            lost += xs[at] != static_cast<double>(pair) || ys[at] != HeightOf(pair);
        }
        return lost;
    }

    void Report(long hour)
    {
        const auto wall = Sorted(&TFrame::Wall), cpu = Sorted(&TFrame::Cpu);
        const double median = cpu[cpu.size() / 2];
        const long slow = cpu.end() - std::upper_bound(cpu.begin(), cpu.end(), 2 * median);
        std::printf("%4ld %11ld %9ld kB %9.1f %9.3f %9.3f %9.3f %9.3f %9ld\n", hour, FNext, ResidentKilobytes(),
                    FFeeding * 1e9 / static_cast<double>(PairsPerSecond) / static_cast<double>(FFrames.size()),
                    wall[wall.size() / 2], wall.back(), median, cpu.back(), slow);
        std::fflush(stdout);
        FFrames.clear();
        FFeeding = 0;
    }

private:
    struct TFrame
    {
        double Wall, Cpu;
    };

    void Feed(long count)
    {
        FXs.clear();
        FYs.clear();
        for (long i = 0; i < count; ++i, ++FNext) {
            FXs.push_back(static_cast<double>(FNext));
            FYs.push_back(HeightOf(FNext));
        }
        FX->Append(FXs);
        FY->Append(FYs);
    }
    /// Milliseconds.
    std::vector<double> Sorted(double TFrame::*time) const
    {
        std::vector<double> times;
        for (const TFrame& frame : FFrames)
            times.push_back(frame.*time * 1e3);
        std::sort(times.begin(), times.end());
        return times;
    }

    std::unique_ptr<TForm> FForm = std::make_unique<TForm>(nullptr);
    TKxLiveVector* FX = new TKxLiveVector(FForm.get());
    TKxLiveVector* FY = new TKxLiveVector(FForm.get());
    std::vector<double> FXs, FYs;
    std::vector<TFrame> FFrames;
    double FFeeding = 0;
    std::size_t FCommands = 0;
    long FNext = 0;
};

}  // namespace

int main(int count, char** arguments)
{
    const int newest = count > 1 ? std::atoi(arguments[1]) : 100000;
    const long hours = count > 2 ? std::atol(arguments[2]) : 24;
    TLiveDay day(newest);
    std::printf(
        "newest %d; hour 0 fills the vectors; frames in ms, slow: twice the median CPU time\n"
        "hour       pairs    resident   ns/pair    median       max   cpu med   cpu max      slow\n",
        newest);
    for (long second = 0; second <= newest / PairsPerSecond; ++second)
        day.RunSecond();
    day.Report(0);
    long lost = day.Lost();
    for (long hour = 1; hour <= hours; ++hour) {
        for (long second = 0; second < SecondsPerHour; ++second)
            day.RunSecond();
        day.Report(hour);
        lost += day.Lost();
    }
    std::printf("lost %ld\n", lost);
    return lost == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
