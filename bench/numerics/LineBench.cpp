// The job of LineBench is the straight line through a million points.
#include <benchmark/benchmark.h>
#include <dataanalysis.h>
#include <gsl/gsl_fit.h>

#include "calculated/KxLinRegr.h"
#include "support/BenchData.h"

namespace {

constexpr std::size_t Count = 1000000;

struct TPoints
{
    const std::vector<double>& X = bench::Ramp(Count);
    const std::vector<double>& Y = bench::Walk(Count);
    const std::vector<double>& W = bench::Weights(Count);
};

void FreePlotkit(benchmark::State& state)
{
    const TPoints points;
    plotkit::TKxLinearRegessionResults results;
    for (auto _ : state) {
        plotkit::LinReg(points.X.front(), points.X.back(), points.X, points.Y, results);
        benchmark::DoNotOptimize(results.Slope);
    }
}

void WeightedPlotkit(benchmark::State& state)
{
    const TPoints points;
    plotkit::TKxLinearRegessionResults results;
    for (auto _ : state) {
        plotkit::LinRegWithWeight(points.X.front(), points.X.back(), points.X, points.Y, points.W, results);
        benchmark::DoNotOptimize(results.Slope);
    }
}

void FreeGsl(benchmark::State& state)
{
    const TPoints points;
    double offset = 0, slope = 0, c00 = 0, c01 = 0, c11 = 0, squares = 0;
    for (auto _ : state) {
        gsl_fit_linear(points.X.data(), 1, points.Y.data(), 1, Count, &offset, &slope, &c00, &c01, &c11, &squares);
        benchmark::DoNotOptimize(slope);
    }
}

void WeightedGsl(benchmark::State& state)
{
    const TPoints points;
    double offset = 0, slope = 0, c00 = 0, c01 = 0, c11 = 0, squares = 0;
    for (auto _ : state) {
        gsl_fit_wlinear(points.X.data(), 1, points.W.data(), 1, points.Y.data(), 1, Count, &offset, &slope, &c00, &c01,
                        &c11, &squares);
        benchmark::DoNotOptimize(slope);
    }
}

alglib::real_2d_array PairsOf(const TPoints& points)
{
    alglib::real_2d_array pairs;
    pairs.setlength(Count, 2);
    for (std::size_t i = 0; i < Count; ++i) {
        pairs[static_cast<alglib::ae_int_t>(i)][0] = points.X[i];
        pairs[static_cast<alglib::ae_int_t>(i)][1] = points.Y[i];
    }
    return pairs;
}

void FreeAlglib(benchmark::State& state)
{
    const alglib::real_2d_array pairs = PairsOf({});
    alglib::ae_int_t info = 0;
    alglib::linearmodel model;
    alglib::lrreport report;
    for (auto _ : state)
        alglib::lrbuild(pairs, Count, 1, info, model, report);
}

/// Takes standard deviations instead of weights.
void WeightedAlglib(benchmark::State& state)
{
    const TPoints points;
    const alglib::real_2d_array pairs = PairsOf(points);
    alglib::real_1d_array deviations;
    deviations.setcontent(Count, points.W.data());
    alglib::ae_int_t info = 0;
    alglib::linearmodel model;
    alglib::lrreport report;
    for (auto _ : state)
        alglib::lrbuilds(pairs, deviations, Count, 1, info, model, report);
}

/// What reading the points and summing plain products costs, twice: for the line, and for what it leaves over.
void FreeLimit(benchmark::State& state)
{
    const TPoints points;
    for (auto _ : state)
        for (int pass = 0; pass < 2; ++pass) {
            constexpr std::size_t Lanes = 8;
            double xx[Lanes]{}, xy[Lanes]{};
            for (std::size_t i = 0; i + Lanes <= Count; i += Lanes)
                for (std::size_t k = 0; k < Lanes; ++k) {
                    xx[k] += points.X[i + k] * points.X[i + k];
                    xy[k] += points.X[i + k] * points.Y[i + k];
                }
            benchmark::DoNotOptimize(xx);
            benchmark::DoNotOptimize(xy);
        }
}

}  // namespace

BENCHMARK(FreePlotkit)->Name("line/Plotkit")->Unit(benchmark::kMillisecond);
BENCHMARK(FreeGsl)->Name("line/GSL")->Unit(benchmark::kMillisecond);
BENCHMARK(FreeAlglib)->Name("line/ALGLIB")->Unit(benchmark::kMillisecond);
BENCHMARK(FreeLimit)->Name("line/limit")->Unit(benchmark::kMillisecond);
BENCHMARK(WeightedPlotkit)->Name("weighted line/Plotkit")->Unit(benchmark::kMillisecond);
BENCHMARK(WeightedGsl)->Name("weighted line/GSL")->Unit(benchmark::kMillisecond);
BENCHMARK(WeightedAlglib)->Name("weighted line/ALGLIB")->Unit(benchmark::kMillisecond);
