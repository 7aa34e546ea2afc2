#include "calculated/KxAkima.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

#include "calculated/KxSmoothing.h"
#include "calculated/KxSort.h"

namespace plotkit {

namespace {

constexpr std::size_t FewestNodes = 3;
/// Elements behind the nodes: two phantom points, and room for the steps beyond them.
constexpr std::size_t Tail = 4;

/// A power of two that brings `sum` near 1, so that products with weights of any size stay doubles.
double Normaliser(double sum)
{
    constexpr std::uint64_t exponentMask = std::uint64_t{0x7FF} << 52, one = std::uint64_t{1023} << 52;
    return std::bit_cast<double>(2 * one - (std::bit_cast<std::uint64_t>(sum) & exponentMask));
}

/// Whether a number is far from the ends of the doubles. As an integer: a logical value would make branches of it.
int IsPlain(double number)
{
    constexpr std::uint64_t far = 332;
    return (std::bit_cast<std::uint64_t>(number) >> 52 & 0x7FF) - (1023 - far) <= 2 * far;
}

}  // namespace

void TKxAkima::Require(std::size_t nodes)
{
    if (nodes < FewestNodes)
        throw EMathError("Not enough data!");
}

void TKxAkima::RecalculateCoeffs(double xMin, double xMax, std::span<const double> x, std::span<const double> y,
                                 std::optional<std::span<const double>> w)
{
    Clear();
    const TGathered gathered = Gather(xMin, xMax, x, y, w);
    std::size_t nodes = gathered.Count;
    Require(nodes);
    if (!gathered.IsAscending) {
        QuickSortYtoX(0, static_cast<int>(nodes) - 1, FX, FY);
        nodes = MergeEqualAbscissae(nodes);
        Require(nodes);
    }
    if (FDoSmoothing)
        Smooth(nodes);
    for (TKxRealArray* const array : {&FX, &FY, &FB, &FC, &FD})
        array->Resize(nodes + Tail);
    FM.Resize(nodes + Tail + 1);
    Extrapolate(nodes);
    CalcCoeffs(nodes);
    Complete(static_cast<int>(nodes));
}

TKxAkima::TGathered TKxAkima::Gather(double xMin, double xMax, std::span<const double> x, std::span<const double> y,
                                     std::optional<std::span<const double>> w)
{
    const std::size_t length = std::min({x.size(), y.size(), w ? w->size() : x.size()});
    FX.Resize(length + Tail);
    FY.Resize(length + Tail);
    double* const nodeX = FX.Write();
    double* const nodeY = FY.Write();
    std::size_t taken = 0;
    bool ascending = true;
    double last = -std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < length; ++i) {
        if (x[i] > xMax || x[i] < xMin || !std::isfinite(x[i]) || !std::isfinite(y[i]))
            continue;
        if (w && ((*w)[i] == 0 || !std::isfinite((*w)[i])))
            continue;
        ascending &= x[i] > last;
        last = x[i];
        nodeX[taken] = x[i];
        nodeY[taken] = y[i];
        ++taken;
    }
    return {taken, ascending};
}

std::size_t TKxAkima::MergeEqualAbscissae(std::size_t taken)
{
    double* const x = FX.Write();
    double* const y = FY.Write();
    std::size_t last = 0;
    for (std::size_t i = 1; i < taken; ++i) {
        if (x[i] == x[last]) {
            y[last] = (y[last] + y[i]) / 2;
            continue;
        }
        ++last;
        x[last] = x[i];
        y[last] = y[i];
    }
    return last + 1;
}

void TKxAkima::Smooth(std::size_t nodes)
{
    FX.Resize(nodes);
    FY.Resize(nodes);
    if (FSmoothLog)
        SmoothVectorLog(FSmoothRange, FX, FY);
    else
        SmoothVector(FSmoothRange, FX, FY);
}

void TKxAkima::Extrapolate(std::size_t n)
{
    double* const x = FX.Write();
    double* const y = FY.Write();
    double* const m = FM.Write();
    for (std::size_t i = 0; i + 1 < n; ++i)
        m[i + 2] = (y[i + 1] - y[i]) / (x[i + 1] - x[i]);

    const double x1 = x[0] + x[1] - x[2];
    const double x0 = x1 + x[0] - x[1];
    const double y1 = (x[0] - x1) * (m[3] - 2 * m[2]) + y[0];
    m[1] = (y[0] - y1) / (x[0] - x1);
    const double y0 = (x1 - x0) * (m[2] - 2 * m[1]) + y1;
    m[0] = (y1 - y0) / (x1 - x0);

    x[n] = x[n - 1] + x[n - 2] - x[n - 3];
    y[n] = (2 * m[n] - m[n - 1]) * (x[n] - x[n - 1]) + y[n - 1];
    m[n + 1] = (y[n] - y[n - 1]) / (x[n] - x[n - 1]);
    const double farX = x[n] + x[n - 1] - x[n - 2];
    const double farY = (2 * m[n + 1] - m[n]) * (farX - x[n]) + y[n];
    m[n + 2] = (farY - y[n]) / (farX - x[n]);
    m[n + 3] = m[n + 4] = 0;

    // Segment n, which is used beyond the first phantom point, ends at the last node and not at the second phantom
    // point.
    for (double* const of : {x, y}) {
        of[n + 1] = of[n - 1];
        of[n + 2] = of[n];
    }
    x[n + 3] = farX;
    y[n + 3] = farY;
}

void TKxAkima::CalcCoeffs(std::size_t n)
{
    const double* const m = FM.Read();
    double* const b = FB.Write();
    for (std::size_t i = 0; i <= n; ++i) {
        const double w1 = std::abs(m[i + 3] - m[i + 2]);
        const double w2 = std::abs(m[i + 1] - m[i]);
        const double scale = Normaliser(w1 + w2);
        const double u1 = w1 * scale, u2 = w2 * scale;
        const bool even = m[i] == m[i + 1] && m[i + 2] == m[i + 3];
        b[i] = even ? (m[i + 3] + m[i + 2]) * 0.5 : (u1 * m[i + 1] + u2 * m[i + 2]) / (u1 + u2);
    }
    b[n + 1] = b[n - 1];
    b[n + 2] = b[n];
    b[n + 3] = 0;

    const double* const x = FX.Read();
    double* const c = FC.Write();
    double* const d = FD.Write();
    int isPlain = 1;
    for (std::size_t i = 0; i <= n + 2; ++i) {
        const double h = x[i + 1] - x[i];
        const double cube = b[i] + b[i + 1] - 2 * m[i + 2];
        c[i] = (3 * m[i + 2] - 2 * b[i] - b[i + 1]) / h;
        d[i] = cube / (h * h);
        isPlain &= int{i >= n} | (IsPlain(cube) & IsPlain(d[i]));
    }
    c[n + 3] = d[n + 3] = 0;
    if (isPlain == 0)
        RequireJoints(n);
}

}  // namespace plotkit
