// The job of PolynomialBench is polynomials through a million points, each way with the digits it gets right.
#include <benchmark/benchmark.h>
#include <gsl/gsl_multifit.h>
#include <gsl/gsl_multilarge.h>
#include <interpolation.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <span>

#include "calculated/KxPolyRegr.h"
#include "support/BenchData.h"

namespace {

constexpr std::size_t Count = 1000000;

/// Ordinates of the polynomial whose coefficients are all 1, so that wrong digits show.
const std::vector<double>& Ordinates(std::size_t order)
{
    return bench::Kept(order, [](std::size_t top) {
        std::vector<double> ys;
        for (const double x : bench::Unit(Count)) {
            double y = 1;
            for (std::size_t k = 0; k < top; ++k)
                y = y * x + 1;
            ys.push_back(y);
        }
        return ys;
    });
}

void ReportDigits(benchmark::State& state, std::span<const double> coefficients)
{
    double worst = 1e-16;
    for (const double c : coefficients)
        worst = std::max(worst, std::abs(c - 1));
    state.counters["digits"] = -std::log10(worst);
}

void Plotkit(benchmark::State& state)
{
    const auto order = static_cast<std::size_t>(state.range(0));
    plotkit::TKxPolynomRegessionResults results;
    results.Order = static_cast<std::int32_t>(order);
    for (auto _ : state)
        plotkit::PolynomRegression(0, 1, bench::Unit(Count), Ordinates(order), results);
    ReportDigits(state, results.Coeffs.Span());
}

/// The normal equations, rows handed over in blocks.
void GslNormalEquations(benchmark::State& state)
{
    constexpr std::size_t Block = 1000;
    const std::size_t size = static_cast<std::size_t>(state.range(0)) + 1;
    const std::vector<double>&x = bench::Unit(Count), &y = Ordinates(size - 1);
    const std::unique_ptr<gsl_multilarge_linear_workspace, decltype(&gsl_multilarge_linear_free)> fit(
        gsl_multilarge_linear_alloc(gsl_multilarge_linear_normal, size), &gsl_multilarge_linear_free);
    std::vector<double> rows(Block * size), block(Block), coefficients(size);
    for (auto _ : state) {
        gsl_multilarge_linear_reset(fit.get());
        for (std::size_t first = 0; first < Count; first += Block) {
            for (std::size_t i = 0; i < Block; ++i) {
                double power = 1;
                for (std::size_t k = 0; k < size; ++k, power *= x[first + i])
                    rows[i * size + k] = power;
                block[i] = y[first + i];
            }
            gsl_matrix_view a = gsl_matrix_view_array(rows.data(), Block, size);
            gsl_vector_view b = gsl_vector_view_array(block.data(), Block);
            gsl_multilarge_linear_accumulate(&a.matrix, &b.vector, fit.get());
        }
        double norm = 0, residual = 0;
        gsl_vector_view c = gsl_vector_view_array(coefficients.data(), size);
        gsl_multilarge_linear_solve(0, &c.vector, &norm, &residual, fit.get());
    }
    ReportDigits(state, coefficients);
}

void GslSvd(benchmark::State& state)
{
    const std::size_t size = static_cast<std::size_t>(state.range(0)) + 1;
    const std::vector<double>&x = bench::Unit(Count), &y = Ordinates(size - 1);
    const std::unique_ptr<gsl_multifit_linear_workspace, decltype(&gsl_multifit_linear_free)> fit(
        gsl_multifit_linear_alloc(Count, size), &gsl_multifit_linear_free);
    const gsl_vector_const_view b = gsl_vector_const_view_array(y.data(), Count);
    std::vector<double> rows(Count * size), covariance(size * size), coefficients(size);
    gsl_matrix_view a = gsl_matrix_view_array(rows.data(), Count, size);
    gsl_matrix_view cov = gsl_matrix_view_array(covariance.data(), size, size);
    gsl_vector_view c = gsl_vector_view_array(coefficients.data(), size);
    for (auto _ : state) {
        for (std::size_t i = 0; i < Count; ++i) {
            double power = 1;
            for (std::size_t k = 0; k < size; ++k, power *= x[i])
                rows[i * size + k] = power;
        }
        double squares = 0;
        gsl_multifit_linear(&a.matrix, &b.vector, &c.vector, &cov.matrix, &squares, fit.get());
    }
    ReportDigits(state, coefficients);
}

void AlglibQr(benchmark::State& state)
{
    const auto size = static_cast<alglib::ae_int_t>(state.range(0) + 1);
    const std::vector<double>& x = bench::Unit(Count);
    alglib::real_1d_array y, coefficients;
    y.setcontent(Count, Ordinates(static_cast<std::size_t>(size - 1)).data());
    alglib::real_2d_array rows;
    rows.setlength(Count, size);
    alglib::ae_int_t info = 0;
    alglib::lsfitreport report;
    for (auto _ : state) {
        for (std::size_t i = 0; i < Count; ++i) {
            double power = 1;
            for (alglib::ae_int_t k = 0; k < size; ++k, power *= x[i])
                rows[static_cast<alglib::ae_int_t>(i)][k] = power;
        }
        alglib::lsfitlinear(y, rows, Count, size, info, coefficients, report);
    }
    ReportDigits(state, {coefficients.getcontent(), static_cast<std::size_t>(size)});
}

constexpr std::size_t Lanes = 8;
template <std::size_t Order>
struct TSums
{
    double Powers[2 * Order + 1][Lanes], Products[Order + 1][Lanes];
};

template <std::size_t Order>
[[gnu::always_inline]] inline void SumPlainly(const double* x, const double* y, TSums<Order>& sums)
{
    for (std::size_t i = 0; i + Lanes <= Count; i += Lanes)
        for (std::size_t j = 0; j < Lanes; ++j) {
            double power = 1;
            for (std::size_t k = 0; k <= 2 * Order; ++k, power *= x[i + j]) {
                sums.Powers[k][j] += power;
                if (k <= Order)
                    sums.Products[k][j] += power * y[i + j];
            }
        }
}

// No templates: Clang clones none.
[[gnu::target_clones("avx512f", "avx2", "default")]] void Sum3(const double* x, const double* y, TSums<3>& sums)
{
    SumPlainly(x, y, sums);
}
[[gnu::target_clones("avx512f", "avx2", "default")]] void Sum5(const double* x, const double* y, TSums<5>& sums)
{
    SumPlainly(x, y, sums);
}

/// What reading the points and plain sums of powers cost.
template <std::size_t Order, void (*Sum)(const double*, const double*, TSums<Order>&)>
void Limit(benchmark::State& state)
{
    const std::vector<double>&x = bench::Unit(Count), &y = Ordinates(Order);
    for (auto _ : state) {
        TSums<Order> sums{};
        Sum(x.data(), y.data(), sums);
        benchmark::DoNotOptimize(sums);
    }
}

void Orders(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(3)->Arg(5)->Unit(benchmark::kMillisecond);
}

}  // namespace

BENCHMARK(Plotkit)->Name("polynomial/Plotkit")->Apply(Orders);
BENCHMARK(GslNormalEquations)->Name("polynomial/GSL normal equations")->Apply(Orders);
BENCHMARK(GslSvd)->Name("polynomial/GSL SVD")->Apply(Orders);
BENCHMARK(AlglibQr)->Name("polynomial/ALGLIB")->Apply(Orders);
BENCHMARK_TEMPLATE(Limit, 3, Sum3)->Name("polynomial/limit/3")->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(Limit, 5, Sum5)->Name("polynomial/limit/5")->Unit(benchmark::kMillisecond);
