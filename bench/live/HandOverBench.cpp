// What a thread that measures pays per pair, one by one and in blocks, while another takes them every millisecond; and
// the whole way into vectors that a series follows.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <numeric>

#include "data/KxRowQueue.h"
#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/Form.h"
#include "qt/KxLiveFeed.h"
#include "series/KxDataSeries.h"

namespace {

using namespace plotkit;

using TPairs = std::vector<std::array<double, 2>>;

struct TPlotkitWay
{
    TKxRowQueue Queue{2};

    void Push(double x, double y) { Queue.Push(x, y); }
    void Push(std::span<const double> x, std::span<const double> y) { Queue.Push(x, y); }
    void Take() { benchmark::DoNotOptimize(Queue.Take().Column(0).data()); }
};

/// The least that a lock costs.
struct TLockWay
{
    std::mutex Mutex;
    TPairs Waiting, Taken;

    void Push(double x, double y)
    {
        const std::lock_guard lock(Mutex);
        Waiting.push_back({x, y});
    }
    void Push(std::span<const double> x, std::span<const double> y)
    {
        const std::lock_guard lock(Mutex);
        for (std::size_t i = 0; i < x.size(); ++i)
            Waiting.push_back({x[i], y[i]});
    }
    void Take()
    {
        Taken.clear();
        const std::lock_guard lock(Mutex);
        std::swap(Waiting, Taken);
    }
};

/// The limit: a ring for one writer, who waits when it is full, and one reader.
struct TRingWay
{
    static constexpr std::size_t Room = 1 << 21;
    TPairs Ring{Room};
    alignas(64) std::atomic<std::size_t> Written = 0;
    alignas(64) std::atomic<std::size_t> Read = 0;
    TPairs Taken;

    void Push(double x, double y) { Push(std::span(&x, 1), std::span(&y, 1)); }
    void Push(std::span<const double> x, std::span<const double> y)
    {
        const std::size_t at = Written.load(std::memory_order_relaxed);
        while (at + x.size() - Read.load(std::memory_order_acquire) > Room)
            std::this_thread::yield();
        for (std::size_t i = 0; i < x.size(); ++i)
            Ring[(at + i) % Room] = {x[i], y[i]};
        Written.store(at + x.size(), std::memory_order_release);
    }
    void Take()
    {
        const std::size_t end = Written.load(std::memory_order_acquire);
        Taken.clear();
        for (std::size_t i = Read.load(std::memory_order_relaxed); i < end; ++i)
            Taken.push_back(Ring[i % Room]);
        Read.store(end, std::memory_order_release);
    }
};

/// Per pair, on the thread that pushes.
template <class TWay>
void HandOver(benchmark::State& state)
{
    const auto block = static_cast<std::size_t>(state.range(0));
    std::vector<double> x(1000);
    std::iota(x.begin(), x.end(), 0);
    TWay way;
    const std::jthread taker([&](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            way.Take();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    });
    for (auto _ : state)
        for (std::size_t i = 0; i < x.size(); i += block)
            if (block == 1)
                way.Push(x[i], x[i]);
            else
                way.Push(std::span(x).subspan(i, block), std::span(x).subspan(i, block));
    state.counters["per_pair"] = benchmark::Counter(static_cast<double>(state.iterations()) * 1e3,
                                                    benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

/// A million pairs from a thread into two live vectors with a series that listens, as fast as it goes.
void WholeWay(benchmark::State& state)
{
    constexpr std::size_t Count = 1000000;
    const auto block = static_cast<std::size_t>(state.range(0));
    std::vector<double> x(Count);
    std::iota(x.begin(), x.end(), 0);
    for (auto _ : state) {
        TForm form(nullptr);
        auto* graph = new TKx2DGraph(&form);
        graph->SetParent(&form);
        auto* series = new TKxDataSeries(&form);
        auto *xs = new TKxLiveVector(&form), *ys = new TKxLiveVector(&form);
        series->SetXAxis(graph->GetPrimaryXAxis());
        series->SetYAxis(graph->GetPrimaryYAxis());
        series->SetXData(xs);
        series->SetYData(ys);
        TKxLiveFeed feed({xs, ys});
        const std::jthread thread([&, queue = feed.Queue()] {
            for (std::size_t i = 0; i < Count; i += block)
                if (block == 1)
                    queue->Push(x[i], x[i]);
                else
                    queue->Push(std::span(x).subspan(i, block), std::span(x).subspan(i, block));
        });
        while (static_cast<std::size_t>(ys->GetCount()) < Count)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    state.counters["per_pair"] = benchmark::Counter(static_cast<double>(state.iterations()) * 1e6,
                                                    benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

}  // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const auto add = [](const char* name, void (*run)(benchmark::State&)) {
        benchmark::RegisterBenchmark(name, run)->Arg(1)->Arg(10)->Arg(100)->Arg(1000)->UseRealTime();
    };
    add("hand over/Plotkit", HandOver<TPlotkitWay>);
    add("hand over/lock and vector", HandOver<TLockWay>);
    add("hand over/lock-free ring", HandOver<TRingWay>);
    benchmark::RegisterBenchmark("whole way/Plotkit", WholeWay)->Arg(1)->Arg(100)->UseRealTime();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
