// The job of SortBench is sorting a million pairs by abscissa, in disorder and in order.
#include <benchmark/benchmark.h>
#include <gsl/gsl_sort.h>

#include <algorithm>
#include <utility>

#include "calculated/KxSort.h"
#include "support/BenchData.h"

namespace {

constexpr std::size_t Count = 1000000;

/// Noise, or the same in ascending order.
const std::vector<double>& Abscissae(bool sorted)
{
    return bench::Kept(sorted, [sorted](std::size_t) {
        std::vector<double> values = bench::Noise(Count);
        if (sorted)
            std::sort(values.begin(), values.end());
        return values;
    });
}

void Plotkit(benchmark::State& state, bool sorted)
{
    for (auto _ : state) {
        state.PauseTiming();
        plotkit::TKxRealArray x(Abscissae(sorted)), y(bench::Walk(Count));
        state.ResumeTiming();
        plotkit::QuickSortYtoX(0, Count - 1, x, y);
    }
}

void StdSort(benchmark::State& state, bool sorted)
{
    std::vector<std::pair<double, double>> pairs(Count);
    for (auto _ : state) {
        state.PauseTiming();
        for (std::size_t i = 0; i < Count; ++i)
            pairs[i] = {Abscissae(sorted)[i], bench::Walk(Count)[i]};
        state.ResumeTiming();
        std::sort(pairs.begin(), pairs.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    }
}

void Gsl(benchmark::State& state, bool sorted)
{
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<double> x = Abscissae(sorted), y = bench::Walk(Count);
        state.ResumeTiming();
        gsl_sort2(x.data(), 1, y.data(), 1, Count);
    }
}

}  // namespace

BENCHMARK_CAPTURE(Plotkit, , false)->Name("sort/Plotkit")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StdSort, , false)->Name("sort/std::sort")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Gsl, , false)->Name("sort/GSL")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Plotkit, , true)->Name("sort sorted/Plotkit")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StdSort, , true)->Name("sort sorted/std::sort")->Unit(benchmark::kMillisecond);
