// Writes docs/accuracy.md to the file that is named: correct digits of nonlinear fits of the reference sets, beside
// GSL.
#include <gsl/gsl_blas.h>
#include <gsl/gsl_errno.h>
#include <gsl/gsl_multifit_nlinear.h>
#include <gsl/gsl_multimin.h>

#include <cstdio>
#include <memory>

#include "calculated/KxSimplexFit.h"
#include "formula/KxFormula.h"
#include "support/NistSet.h"

using namespace plotkit;

namespace {

/// A set with its model, as the callbacks of both libraries see it.
struct TProblem
{
    const TNistSet& Set;
    TKxTypedFormula Model = CompileFormula(Set.Formula);
    TKxMisfit Misfit{Model.Function, {Set.X, Set.Y, {}}};
};

double SimplexDigits(const TProblem& problem, const std::vector<double>& start, int iterations)
{
    TKxSimplexFit fit(problem.Misfit, start);
    for (int i = 0; i <= iterations && fit.BestValue() != 0; ++i)
        fit.Step();
    return problem.Set.Digits(fit.Best());
}

double GslMisfit(const gsl_vector* coefs, void* problem)
{
    return static_cast<const TProblem*>(problem)->Misfit({coefs->data, coefs->size});
}

/// The first simplex has the same edges as ours.
double GslSimplexDigits(TProblem& problem, const std::vector<double>& start, int iterations)
{
    const std::size_t n = start.size();
    std::vector<double> at = start, edge(n);
    for (std::size_t k = 0; k < n; ++k)
        edge[k] = 1.05 * start[k];
    gsl_vector_view x = gsl_vector_view_array(at.data(), n), step = gsl_vector_view_array(edge.data(), n);
    gsl_multimin_function function{&GslMisfit, n, &problem};
    const std::unique_ptr<gsl_multimin_fminimizer, decltype(&gsl_multimin_fminimizer_free)> fit(
        gsl_multimin_fminimizer_alloc(gsl_multimin_fminimizer_nmsimplex2, n), &gsl_multimin_fminimizer_free);
    if (gsl_multimin_fminimizer_set(fit.get(), &function, &x.vector, &step.vector))
        return 0;
    for (int i = 0; i <= iterations; ++i)
        if (gsl_multimin_fminimizer_iterate(fit.get()))
            break;
    return problem.Set.Digits({fit->x->data, n});
}

int GslResiduals(const gsl_vector* coefs, void* data, gsl_vector* residuals)
{
    const auto& problem = *static_cast<const TProblem*>(data);
    std::vector<double> y(problem.Set.Y.size());
    problem.Model.Function.Run(problem.Set.X, {coefs->data, coefs->size}, y.data());
    for (std::size_t i = 0; i < y.size(); ++i)
        gsl_vector_set(residuals, i, y[i] - problem.Set.Y[i]);
    return GSL_SUCCESS;
}

double GslLevenbergDigits(TProblem& problem, std::vector<double> start, int iterations)
{
    const std::size_t n = start.size(), count = problem.Set.X.size();
    const gsl_multifit_nlinear_parameters parameters = gsl_multifit_nlinear_default_parameters();
    const std::unique_ptr<gsl_multifit_nlinear_workspace, decltype(&gsl_multifit_nlinear_free)> fit(
        gsl_multifit_nlinear_alloc(gsl_multifit_nlinear_trust, &parameters, count, n), &gsl_multifit_nlinear_free);
    gsl_multifit_nlinear_fdf function{&GslResiduals, nullptr, nullptr, count, n, &problem, 0, 0, 0};
    const gsl_vector_view x = gsl_vector_view_array(start.data(), n);
    int info = 0;
    gsl_multifit_nlinear_init(&x.vector, &function, fit.get());
    gsl_multifit_nlinear_driver(static_cast<std::size_t>(iterations), 1e-15, 1e-15, 0, nullptr, nullptr, &info,
                                fit.get());
    return problem.Set.Digits({gsl_multifit_nlinear_position(fit.get())->data, n});
}

constexpr const char* Head =
    R"(# Accuracy of nonlinear fits

Correct decimal digits of the worst coefficient (11 are certified) on the nonlinear reference sets of NIST with one
variable (data/nist-strd), written by `bench/numerics/accuracy.sh`. Each cell holds two numbers: from start 1, far from the
solution, and from start 2, near to it. "Plotkit" is the simplex method of the fitted line after 300 (the default) and
3000 iterations; "nmsimplex2" is GSL's simplex from the same first simplex, "Levenberg-Marquardt" GSL's trust-region
method with numerical derivatives. All see the same typed formulas.

| set | coefficients | Plotkit, 300 | Plotkit, 3000 | nmsimplex2, 300 | nmsimplex2, 3000 | Levenberg-Marquardt |
|---|---|---|---|---|---|---|
)";

}  // namespace

int main(int argc, char** argv)
{
    std::FILE* const file = argc > 1 ? std::fopen(argv[1], "w") : nullptr;
    if (!file) {
        std::fputs("accuracy FILE: the file cannot be written\n", stderr);
        return 1;
    }
    gsl_set_error_handler_off();
    std::fputs(Head, file);
    constexpr std::size_t Methods = 5;
    std::array<std::array<int, 2>, Methods> good{};
    for (const TNistSet& set : NistSets(PLOTKIT_SOURCE_DIR "/data/nist-strd")) {
        TProblem problem{set};
        std::fprintf(file, "| %s | %zu |", set.Name.c_str(), set.Certified.size());
        std::array<std::array<double, 2>, Methods> digits{};
        for (std::size_t s = 0; s < 2; ++s) {
            const std::vector<double>& start = set.Starts[s];
            digits[0][s] = SimplexDigits(problem, start, 300);
            digits[1][s] = SimplexDigits(problem, start, 3000);
            digits[2][s] = GslSimplexDigits(problem, start, 300);
            digits[3][s] = GslSimplexDigits(problem, start, 3000);
            digits[4][s] = GslLevenbergDigits(problem, start, 3000);
        }
        for (std::size_t m = 0; m < Methods; ++m) {
            std::fprintf(file, " %.1f / %.1f |", digits[m][0], digits[m][1]);
            for (std::size_t s = 0; s < 2; ++s)
                good[m][s] += digits[m][s] >= 6;
        }
        std::fputs("\n", file);
    }
    std::fputs("| sets with 6 digits or more | |", file);
    for (const auto& [far, near] : good)
        std::fprintf(file, " %d / %d |", far, near);
    std::fputs("\n", file);
    return std::fclose(file) ? 1 : 0;
}
