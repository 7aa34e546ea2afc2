// The job of KxMatrix is to solve linear equations: symmetric positive definite ones, and banded ones.
#pragma once

#include <span>
#include <vector>

#include "calculated/DoubleDouble.h"
#include "foundation/KxConsts.h"

namespace plotkit {

/// Entry [i][j] is row i, column j.
using TKxRealMatrix = TArray<TKxRealArray>;

/// A square matrix of numbers with about 106 bits.
class TKxPreciseMatrix
{
public:
    explicit TKxPreciseMatrix(std::size_t size) : FSize(size), FEntries(size * size) {}

    std::size_t Size() const { return FSize; }
    TDoubleDouble& operator()(std::size_t row, std::size_t column) { return FEntries[row * FSize + column]; }
    const TDoubleDouble& operator()(std::size_t row, std::size_t column) const
    {
        return FEntries[row * FSize + column];
    }

private:
    std::size_t FSize;
    std::vector<TDoubleDouble> FEntries;
};

/// The upper factor U of a symmetric matrix A = U'U, written over the diagonal and the upper triangle, which alone are
/// read. The arithmetic has about 106 bits; the entries count as known to the last bit of a double. A pivot that these
/// errors could account for is not positive: a matrix with dependent rows is always reported. EMathError "Cholesky
/// Decomposition: Matrix is not square!", "Cholesky Decomposition ([0,0]): Matrix is not positive definite!" or, for
/// any later pivot, "Cholesky Decomposition ([i,i]): Matrix is not positive definite!"; the matrix is then as before.
void CholeskyDecomposition(TKxRealMatrix& a);
/// Solves U'U x = b with the factor; x replaces b, which has as many elements.
void CholeskySubstitution(const TKxRealMatrix& factor, TKxRealArray& b);

/// The same for entries whose errors are up to `tolerance`, relative to the roots of their diagonal entries' product.
void CholeskyDecomposition(TKxPreciseMatrix& a, double tolerance);
void CholeskySubstitution(const TKxPreciseMatrix& factor, std::span<TDoubleDouble> b);

/// Solves the n equations A x = b in place by elimination without pivoting: x replaces b, A holds the factors. Row i of
/// A has `lower` + 1 + `upper` entries, the diagonal's in column `lower`. A pivot below `CMaxAcurancy` does not
/// eliminate. EMathError "Not enough data!" for n < 3, `lower` + `upper` > n or too few entries, "Matrix:
/// Diagonal-Dimensions must be positive!", and "Floating point division by zero" where the diagonal ends as 0.
void SolveBand(int n, int lower, int upper, TKxRealMatrix& a, TKxRealArray& b);
/// The same with the rows of A one behind the other.
void SolveBand(int n, int lower, int upper, std::span<double> a, std::span<double> b);

}  // namespace plotkit
