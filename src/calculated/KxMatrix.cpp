#include "calculated/KxMatrix.h"

#include <algorithm>
#include <cstdint>

#include "host/CheckedMath.h"

namespace plotkit {

namespace {

// What errors of the entries can add to pivot j. The pivot is z'Az with z from U z = -(column j above the diagonal) and
// z[j] = 1: z tells how column j follows from the columns before, so it grows when those are nearly dependent.
double PivotError(const TKxPreciseMatrix& a, std::span<const double> diagonalRoots, std::size_t j, double tolerance)
{
    std::vector<double> z(j);
    double size = diagonalRoots[j];
    for (std::size_t i = j; i-- > 0;) {
        double sum = a(i, j).High;
        for (std::size_t k = i + 1; k < j; ++k)
            sum -= a(i, k).High * z[k];
        z[i] = sum / a(i, i).High;
        size += std::abs(z[i]) * diagonalRoots[i];
    }
    return tolerance * size * size;
}

TKxPreciseMatrix PreciseCopy(const TKxRealMatrix& a)
{
    const std::size_t n = a.Length();
    TKxPreciseMatrix copy(n);
    for (std::size_t i = 0; i < n; ++i) {
        if (a[i].Length() != n)
            throw EMathError("Cholesky Decomposition: Matrix is not square!");
        for (std::size_t j = i; j < n; ++j)
            copy(i, j) = a[i][j];
    }
    return copy;
}

void CheckBand(std::int64_t n, std::int64_t lower, std::int64_t upper)
{
    if (n < 3 || lower + upper > n)
        throw EMathError("Not enough data!");
    if (lower < 0 || upper < 0)
        throw EMathError("Matrix: Diagonal-Dimensions must be positive!");
}

void EliminateBand(std::size_t n, std::size_t lower, std::size_t upper, double* a)
{
    const std::size_t width = lower + 1 + upper;
    if (lower == 0)
        return;
    for (std::size_t k = 0; k + 1 < n; ++k) {
        const double* const pivotRow = a + k * width + lower;
        if (!(std::abs(*pivotRow) >= CMaxAcurancy))
            continue;
        const std::size_t rows = std::min(lower + 1, n - k);
        const std::size_t columns = std::min(upper + 1, n - k);
        for (std::size_t r = 1; r < rows; ++r) {
            double* const row = a + (k + r) * width + lower - r;
            const double multiplier = row[0] / *pivotRow;
            row[0] = multiplier;
            for (std::size_t c = 1; c < columns; ++c)
                row[c] -= multiplier * pivotRow[c];
        }
    }
}

void SubstituteBand(std::size_t n, std::size_t lower, std::size_t upper, const double* a, double* b)
{
    const std::size_t width = lower + 1 + upper;
    for (std::size_t i = 1; i < n; ++i) {
        const double* const diagonal = a + i * width + lower;
        for (std::size_t r = 1; r <= std::min(lower, i); ++r)
            b[i] -= *(diagonal - r) * b[i - r];
    }
    for (std::size_t i = n; i-- > 0;) {
        const double* const diagonal = a + i * width + lower;
        for (std::size_t c = 1; c <= std::min(upper, n - 1 - i); ++c)
            b[i] -= diagonal[c] * b[i + c];
        b[i] = Divide(b[i], *diagonal);
    }
}

}  // namespace

void CholeskyDecomposition(TKxPreciseMatrix& a, double tolerance)
{
    const std::size_t n = a.Size();
    std::vector<double> diagonalRoots(n);
    for (std::size_t j = 0; j < n; ++j) {
        diagonalRoots[j] = std::sqrt(a(j, j).High);
        for (std::size_t i = 0; i < j; ++i) {
            for (std::size_t k = 0; k < i; ++k)
                a(i, j) -= a(k, i) * a(k, j);
            a(i, j) /= a(i, i);
        }
        TDoubleDouble pivot = a(j, j);
        for (std::size_t k = 0; k < j; ++k)
            pivot -= a(k, j) * a(k, j);
        if (j == 0 && !(pivot.High > 0))
            throw EMathError("Cholesky Decomposition ([0,0]): Matrix is not positive definite!");
        if (j > 0 && !(pivot.High > PivotError(a, diagonalRoots, j, tolerance)))
            throw EMathError("Cholesky Decomposition ([i,i]): Matrix is not positive definite!");
        a(j, j) = Sqrt(pivot);
    }
}

void CholeskySubstitution(const TKxPreciseMatrix& factor, std::span<TDoubleDouble> b)
{
    const std::size_t n = factor.Size();
    for (std::size_t j = 0; j < n; ++j) {
        for (std::size_t k = 0; k < j; ++k)
            b[j] -= b[k] * factor(k, j);
        b[j] /= factor(j, j);
    }
    for (std::size_t j = n; j-- > 0;) {
        for (std::size_t k = j + 1; k < n; ++k)
            b[j] -= factor(j, k) * b[k];
        b[j] /= factor(j, j);
    }
}

void CholeskyDecomposition(TKxRealMatrix& a)
{
    TKxPreciseMatrix factor = PreciseCopy(a);
    CholeskyDecomposition(factor, CMaxAcurancy * static_cast<double>(a.Length()));
    for (std::size_t i = 0; i < factor.Size(); ++i) {
        double* const row = a.Write()[i].Write();
        for (std::size_t j = i; j < factor.Size(); ++j)
            row[j] = factor(i, j).High;
    }
}

void CholeskySubstitution(const TKxRealMatrix& factor, TKxRealArray& b)
{
    const TKxPreciseMatrix copy = PreciseCopy(factor);
    if (b.Length() != copy.Size())
        throw EMathError("Cholesky Decomposition: Matrix is not square!");
    std::vector<TDoubleDouble> solution(b.Read(), b.Read() + b.Length());
    CholeskySubstitution(copy, solution);
    std::transform(solution.begin(), solution.end(), b.Write(), [](const TDoubleDouble& x) { return x.High; });
}

void SolveBand(int n, int lower, int upper, std::span<double> a, std::span<double> b)
{
    CheckBand(n, lower, upper);
    const auto count = static_cast<std::size_t>(n);
    const auto below = static_cast<std::size_t>(lower);
    const auto above = static_cast<std::size_t>(upper);
    if (b.size() < count || a.size() / (below + 1 + above) < count)
        throw EMathError("Not enough data!");
    EliminateBand(count, below, above, a.data());
    SubstituteBand(count, below, above, a.data(), b.data());
}

void SolveBand(int n, int lower, int upper, TKxRealMatrix& a, TKxRealArray& b)
{
    CheckBand(n, lower, upper);
    const auto count = static_cast<std::size_t>(n);
    const std::size_t width = static_cast<std::size_t>(lower) + 1 + static_cast<std::size_t>(upper);
    if (a.Length() < count || b.Length() < count)
        throw EMathError("Not enough data!");
    std::vector<double> rows(count * width);
    for (std::size_t i = 0; i < count; ++i) {
        if (a[i].Length() < width)
            throw EMathError("Not enough data!");
        std::copy_n(a[i].Read(), width, rows.data() + i * width);
    }
    SolveBand(n, lower, upper, rows, {b.Write(), b.Length()});
    TKxRealArray* const factors = a.Write();
    for (std::size_t i = 0; i < count; ++i)
        std::copy_n(rows.data() + i * width, width, factors[i].Write());
}

}  // namespace plotkit
