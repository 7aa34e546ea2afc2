// The job of CurveBench is curves through many points: Akima's interpolation and the smoothing spline.
#include <benchmark/benchmark.h>
#include <gsl/gsl_spline.h>
#include <interpolation.h>

#include <memory>

#include "calculated/KxAkima.h"
#include "calculated/KxApproxSpline.h"
#include "support/BenchData.h"

namespace {

constexpr std::size_t Nodes = 100000, Places = 1000000;

/// Ascending over all nodes.
const std::vector<double>& At()
{
    return bench::Kept(Places, [](std::size_t count) {
        std::vector<double> at(count);
        for (std::size_t i = 0; i < count; ++i)
            at[i] = bench::Unit(count)[i] * static_cast<double>(Nodes - 1);
        return at;
    });
}

alglib::real_1d_array Copy(const std::vector<double>& values)
{
    alglib::real_1d_array copy;
    copy.setcontent(static_cast<alglib::ae_int_t>(values.size()), values.data());
    return copy;
}

void BuildPlotkit(benchmark::State& state)
{
    plotkit::TKxAkima curve;
    for (auto _ : state)
        curve.RecalculateCoeffs(0, Nodes, bench::Ramp(Nodes), bench::Walk(Nodes), std::nullopt);
}

void EvaluatePlotkit(benchmark::State& state)
{
    plotkit::TKxAkima curve;
    curve.RecalculateCoeffs(0, Nodes, bench::Ramp(Nodes), bench::Walk(Nodes), std::nullopt);
    std::vector<double> y(Places);
    for (auto _ : state)
        curve.Interpolate(At(), y);
    benchmark::DoNotOptimize(y.data());
}

using TGslSpline = std::unique_ptr<gsl_spline, decltype(&gsl_spline_free)>;

void BuildGsl(benchmark::State& state)
{
    const TGslSpline curve(gsl_spline_alloc(gsl_interp_akima, Nodes), &gsl_spline_free);
    for (auto _ : state)
        gsl_spline_init(curve.get(), bench::Ramp(Nodes).data(), bench::Walk(Nodes).data(), Nodes);
}

void EvaluateGsl(benchmark::State& state)
{
    const TGslSpline curve(gsl_spline_alloc(gsl_interp_akima, Nodes), &gsl_spline_free);
    gsl_spline_init(curve.get(), bench::Ramp(Nodes).data(), bench::Walk(Nodes).data(), Nodes);
    const std::unique_ptr<gsl_interp_accel, decltype(&gsl_interp_accel_free)> place(gsl_interp_accel_alloc(),
                                                                                    &gsl_interp_accel_free);
    const std::vector<double>& at = At();
    std::vector<double> y(Places);
    for (auto _ : state)
        for (std::size_t i = 0; i < Places; ++i)
            y[i] = gsl_spline_eval(curve.get(), at[i], place.get());
    benchmark::DoNotOptimize(y.data());
}

void BuildAlglib(benchmark::State& state)
{
    const alglib::real_1d_array x = Copy(bench::Ramp(Nodes)), y = Copy(bench::Walk(Nodes));
    alglib::spline1dinterpolant curve;
    for (auto _ : state)
        alglib::spline1dbuildakima(x, y, Nodes, curve);
}

void EvaluateAlglib(benchmark::State& state)
{
    alglib::spline1dinterpolant curve;
    alglib::spline1dbuildakima(Copy(bench::Ramp(Nodes)), Copy(bench::Walk(Nodes)), Nodes, curve);
    const std::vector<double>& at = At();
    std::vector<double> y(Places);
    for (auto _ : state)
        for (std::size_t i = 0; i < Places; ++i)
            y[i] = alglib::spline1dcalc(curve, at[i]);
    benchmark::DoNotOptimize(y.data());
}

void SmoothPlotkit(benchmark::State& state)
{
    plotkit::TKxApproxSpline curve;
    for (auto _ : state)
        curve.RecalculateCoeffs(0, Nodes, bench::Ramp(Nodes), bench::Walk(Nodes), std::nullopt);
}

/// A penalized spline of fewer knots: it has none with a knot at each point in reasonable time.
void SmoothAlglib(benchmark::State& state)
{
    const alglib::real_1d_array x = Copy(bench::Ramp(Nodes)), y = Copy(bench::Walk(Nodes));
    alglib::spline1dinterpolant curve;
    alglib::spline1dfitreport report;
    for (auto _ : state)
        alglib::spline1dfit(x, y, Nodes, Nodes / 10, 1e-6, curve, report);
}

}  // namespace

BENCHMARK(BuildPlotkit)->Name("Akima build/Plotkit")->Unit(benchmark::kMillisecond);
BENCHMARK(BuildGsl)->Name("Akima build/GSL")->Unit(benchmark::kMillisecond);
BENCHMARK(BuildAlglib)->Name("Akima build/ALGLIB")->Unit(benchmark::kMillisecond);
BENCHMARK(EvaluatePlotkit)->Name("Akima evaluate/Plotkit")->Unit(benchmark::kMillisecond);
BENCHMARK(EvaluateGsl)->Name("Akima evaluate/GSL")->Unit(benchmark::kMillisecond);
BENCHMARK(EvaluateAlglib)->Name("Akima evaluate/ALGLIB")->Unit(benchmark::kMillisecond);
BENCHMARK(SmoothPlotkit)->Name("smoothing spline/Plotkit")->Unit(benchmark::kMillisecond);
BENCHMARK(SmoothAlglib)->Name("smoothing spline/ALGLIB, a tenth of the knots")->Unit(benchmark::kMillisecond);
