#include "calculated/KxApproxSpline.h"

#include <algorithm>
#include <cmath>

#include "calculated/KxSmoothingSpline.h"
#include "calculated/KxSort.h"

namespace plotkit {

namespace {

constexpr std::size_t FewestNodes = 6;

}  // namespace

void TKxApproxSpline::Require(std::size_t nodes)
{
    if (nodes < FewestNodes)
        throw EMathError("Not enough data!");
}

void TKxApproxSpline::RecalculateCoeffs(double xMin, double xMax, std::span<const double> x, std::span<const double> y,
                                        std::optional<std::span<const double>> w)
{
    Clear();
    const std::size_t taken = Gather(xMin, xMax, x, y, w);
    Require(taken);
    QuickSortYWtoX(0, static_cast<int>(taken) - 1, FX, FY, FW);
    const std::size_t nodes = MergeEqualAbscissae(taken);
    Require(nodes);
    for (TKxRealArray* const array : {&FX, &FY, &FW, &FB, &FC, &FD})
        array->Resize(nodes + 1);
    CalcCoeffs(nodes);
    Complete(static_cast<int>(nodes));
}

std::size_t TKxApproxSpline::Gather(double xMin, double xMax, std::span<const double> x, std::span<const double> y,
                                    std::optional<std::span<const double>> w)
{
    const std::size_t length = std::min({x.size(), y.size(), w ? w->size() : x.size()});
    for (TKxRealArray* const array : {&FX, &FY, &FW})
        array->Resize(length);
    double *const nodeX = FX.Write(), *const nodeY = FY.Write(), *const nodeW = FW.Write();
    std::size_t taken = 0;
    for (std::size_t i = 0; i < length; ++i) {
        const double weight = w ? std::fabs((*w)[i]) : 1;
        const bool isComplete = std::isfinite(x[i]) && std::isfinite(y[i]) && std::isfinite(weight);
        if (!isComplete || x[i] < xMin || x[i] > xMax)
            continue;
        nodeX[taken] = x[i];
        nodeY[taken] = y[i];
        nodeW[taken] = weight * FWeightFactor;
        ++taken;
    }
    return taken;
}

std::size_t TKxApproxSpline::MergeEqualAbscissae(std::size_t taken)
{
    double *const x = FX.Write(), *const y = FY.Write(), *const w = FW.Write();
    std::size_t last = 0;
    for (std::size_t i = 1; i < taken; ++i) {
        if (x[i] == x[last]) {
            y[last] = (y[last] + y[i]) / 2;
            w[last] = (w[last] + w[i]) / 2;
            continue;
        }
        ++last;
        x[last] = x[i];
        y[last] = y[i];
        w[last] = w[i];
    }
    return last + 1;
}

void TKxApproxSpline::CalcCoeffs(std::size_t n)
{
    const std::span x(FX.Write(), n + 1), y(FY.Write(), n + 1), b(FB.Write(), n + 1), c(FC.Write(), n + 1),
        d(FD.Write(), n + 1);
    CalcSmoothingSpline({x.first(n), y.first(n), FW.Span().first(n), b.first(n), c.first(n), d.first(n)});
    for (const std::span<double> values : {x, y, b, c, d})
        values[n] = values[n - 1];
    RequireJoints(n);
}

}  // namespace plotkit
