// The job of SimplexBench is the time per call of the misfit in fits of 10,000 points: a compiled callback, a typed
// formula and GSL's simplex.
#include <benchmark/benchmark.h>
#include <gsl/gsl_multimin.h>

#include <cmath>
#include <memory>
#include <vector>

#include "calculated/KxSimplexFit.h"
#include "formula/KxFormula.h"

using namespace plotkit;

namespace {

constexpr int Steps = 300;

struct TDecay
{
    std::vector<double> X, Y;

    TDecay()
    {
        for (int i = 0; i < 10000; ++i) {
            X.push_back(i * 1e-3);
            Y.push_back(2.5 * std::exp(-0.7 * X.back()) + 0.5 + 0.01 * std::sin(12.9898 * i));
        }
    }
};

void ReportCalls(benchmark::State& state, std::int64_t calls)
{
    state.counters["calls"] = static_cast<double>(calls) / static_cast<double>(state.iterations());
    state.counters["per_call"] =
        benchmark::Counter(static_cast<double>(calls), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void Fit(benchmark::State& state, const TKxFittingFkt& function)
{
    const TDecay data;
    std::int64_t calls = 0;
    const TKxFittingFkt counted{TKxFittingFkt::TRun([&](std::span<const double> x, std::span<double> coefs, double* y) {
        calls += x.data() == data.X.data();
        function.Run(x, coefs, y);
    })};
    for (auto _ : state) {
        TKxSimplexFit fit(TKxMisfit(counted, {data.X, data.Y, {}}), std::vector<double>{1, 1, 1});
        for (int i = 0; i <= Steps; ++i)
            fit.Step();
        benchmark::DoNotOptimize(fit.BestValue());
    }
    ReportCalls(state, calls);
}

void FitCallback(benchmark::State& state)
{
    Fit(state, [](double x, std::span<const double> c) { return c[0] * std::exp(-c[1] * x) + c[2]; });
}
BENCHMARK(FitCallback)->Name("simplex/Plotkit")->Unit(benchmark::kMillisecond);

void FitTypedFormula(benchmark::State& state)
{
    Fit(state, CompileFormula("a*exp(-b*x)+c").Function);
}
BENCHMARK(FitTypedFormula)->Name("simplex/Plotkit, typed formula")->Unit(benchmark::kMillisecond);

struct TGslData
{
    TDecay Data;
    std::int64_t Calls = 0;
};

double GslMisfit(const gsl_vector* c, void* context)
{
    auto& [data, calls] = *static_cast<TGslData*>(context);
    ++calls;
    const double c0 = gsl_vector_get(c, 0), c1 = gsl_vector_get(c, 1), c2 = gsl_vector_get(c, 2);
    double sum = 0;
    for (std::size_t i = 0; i < data.X.size(); ++i) {
        const double off = data.Y[i] - (c0 * std::exp(-c1 * data.X[i]) + c2);
        sum += off * off;
    }
    return sum;
}

void FitGsl(benchmark::State& state)
{
    TGslData data;
    double start[]{1, 1, 1}, edge[]{1.05, 1.05, 1.05};
    const gsl_vector_view x = gsl_vector_view_array(start, 3), step = gsl_vector_view_array(edge, 3);
    gsl_multimin_function function{&GslMisfit, 3, &data};
    const std::unique_ptr<gsl_multimin_fminimizer, decltype(&gsl_multimin_fminimizer_free)> fit(
        gsl_multimin_fminimizer_alloc(gsl_multimin_fminimizer_nmsimplex2, 3), &gsl_multimin_fminimizer_free);
    for (auto _ : state) {
        gsl_multimin_fminimizer_set(fit.get(), &function, &x.vector, &step.vector);
        for (int i = 0; i <= Steps; ++i)
            gsl_multimin_fminimizer_iterate(fit.get());
    }
    ReportCalls(state, data.Calls);
}
BENCHMARK(FitGsl)->Name("simplex/GSL")->Unit(benchmark::kMillisecond);

}  // namespace
