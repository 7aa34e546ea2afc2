#include "calculated/KxInterpol.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "data/KxVector.h"

namespace plotkit {

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NoSlope = 1.7e308;
constexpr int NeighbourSteps = 4;
constexpr int Halvings = 31;
/// Below this part of its operands a difference has lost digits that the other form of the same root still has.
constexpr double Cancelled = 0x1p-10;
/// How far a segment may miss the next node: a part of its rises, and of the largest ordinate.
constexpr double GapOfSegment = 1e-9;
constexpr double GapOfAll = 1e-15;

}  // namespace

void TKxIntPolynom::RecalculateCoeffs(double xMin, double xMax, const TKxCustomRealVector& x,
                                      const TKxCustomRealVector& y, const TKxCustomRealVector* w)
{
    RecalculateCoeffs(xMin, xMax, x.Values(), y.Values(), w ? std::optional(w->Values()) : std::nullopt);
}

void TKxIntPolynom::Clear()
{
    FCount = 0;
    FLastIndex = 0;
    FSegment = TSegment{};
    for (TKxRealPosArray* const found : {&FMinima, &FMaxima, &FDiffMinima, &FDiffMaxima, &FIntMinima, &FIntMaxima})
        found->Resize(0);
}

void TKxIntPolynom::RequireJoints(std::size_t count) const
{
    const double *const x = FX.Read(), *const y = FY.Read();
    const double *const b = FB.Read(), *const c = FC.Read(), *const d = FD.Read();
    double largest = 0;
    for (std::size_t i = 0; i < count; ++i)
        largest = std::max(largest, std::abs(y[i]));
    const double allowed = GapOfAll * largest;
    bool finite = std::isfinite(c[count - 1]) && std::isfinite(d[count - 1]), meets = true;
    for (std::size_t i = 0; i + 1 < count; ++i) {
        const double h = x[i + 1] - x[i], rise = y[i + 1] - y[i];
        const double gap = ((d[i] * h + c[i]) * h + b[i]) * h - rise;
        const double turn = ((2 * c[i] + 3 * d[i] * h) * h + b[i] - b[i + 1]) * h;
        const double bound = GapOfSegment * ((std::abs(b[i]) + std::abs(b[i + 1])) * h + std::abs(rise)) + allowed;
        finite &= (gap - gap) + (turn - turn) == 0;
        meets &= std::abs(gap) <= bound && (std::abs(turn) <= bound || i + 2 == count);
    }
    if (!finite)
        throw EMathError("Floating point overflow");
    if (!meets)
        throw EMathError("Floating point underflow");
}

void TKxIntPolynom::Complete(int count)
{
    Clear();
    FCount = count;
    Enter(0);
}

void TKxIntPolynom::Load(int i, TSegment& segment) const
{
    const auto at = static_cast<std::size_t>(i);
    segment.Low = i > 0 ? FX[at] : -Infinity;
    segment.High = i < FCount ? FX[at + 1] : Infinity;
    segment.X = FX[at];
    segment.Y = FY[at];
    segment.B = FB[at];
    segment.C = FC[at];
    segment.D = FD[at];
}

TKxIntPolynom::TSegment TKxIntPolynom::Segment(int i) const
{
    TSegment segment;
    Load(i, segment);
    return segment;
}

bool TKxIntPolynom::IsNext(int i, double x) const
{
    const auto at = static_cast<std::size_t>(i);
    return i + 1 < FCount && x >= FX[at + 1] && x < FX[at + 2];
}

void TKxIntPolynom::Enter(int i) const
{
    FLastIndex = i;
    Load(i, FSegment);
}

void TKxIntPolynom::MoveTo(double x) const
{
    if (FCount == 0)
        return;
    if (const int found = IsNext(FLastIndex, x) ? FLastIndex + 1 : Search(x); found != FLastIndex)
        Enter(found);
}

int TKxIntPolynom::Search(double x) const
{
    const double* const nodes = FX.Read();
    int i = FLastIndex;
    for (int step = 0; step < NeighbourSteps; ++step) {
        if (i < FCount && x >= nodes[i + 1])
            ++i;
        else if (i > 0 && x < nodes[i])
            --i;
        else
            return i;
    }
    if (i < FCount && x >= nodes[i + 1])
        return static_cast<int>(std::upper_bound(nodes + i + 1, nodes + FCount + 1, x) - nodes) - 1;
    if (i > 0 && x < nodes[i])
        return std::max(0, static_cast<int>(std::upper_bound(nodes, nodes + i, x) - nodes) - 1);
    return i;
}

void TKxIntPolynom::Interpolate(std::span<const double> x, std::span<double> y) const
{
    for (std::size_t k = 0; k < x.size();) {
        TSegment at = SegmentAt(x[k]);
        int i = FLastIndex;
        bool follows = true;
        while (follows) {
            y[k] = at.Value(x[k]);
            if (++k == x.size())
                break;
            if (x[k] >= at.Low && x[k] < at.High)
                continue;
            follows = IsNext(i, x[k]);
            if (follows)
                at = Segment(++i);
        }
        if (i != FLastIndex)
            Enter(i);
    }
}

void TKxIntPolynom::AddExtremum(int i, double x, TFound& minima, TFound& maxima) const
{
    const auto at = static_cast<std::size_t>(i);
    if (x >= FX[at] && x < FX[at + 1])
        (Curvature(x) < 0 ? maxima : minima).push_back({x, Interpolate(x)});
}

void TKxIntPolynom::FindExtrema()
{
    TFound minima, maxima;
    for (int i = 0; i + 1 < FCount; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const double b = FB[at], c = FC[at], a = 3 * FD[at];
        const double q = c * c - 3 * FD[at] * b;
        if (!(q >= 0 && q < Infinity) || a == 0)
            continue;
        const double r = std::sqrt(q);
        const auto root = [=](double numerator) {
            return std::abs(numerator) < Cancelled * r ? -b / (numerator + 2 * c) : numerator / a;
        };
        AddExtremum(i, FX[at] + root(-c + r), minima, maxima);
        AddExtremum(i, FX[at] + root(-c - r), minima, maxima);
    }
    FMinima = TKxRealPosArray(std::move(minima));
    FMaxima = TKxRealPosArray(std::move(maxima));
}

TKxRealPos TKxIntPolynom::Inflection(int i, double node, double substitute) const
{
    const auto at = static_cast<std::size_t>(i);
    if (FD[at] == 0)
        return {node, substitute};
    const double x = FX[at] - FC[at] / (3 * FD[at]);
    const double slope = Slope(x);
    return std::isfinite(x) && std::isfinite(slope) ? TKxRealPos{x, slope} : TKxRealPos{node, substitute};
}

void TKxIntPolynom::FindDiffExtrema()
{
    TFound minima, maxima;
    for (int i = 1; i + 1 < FCount; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const double before = FB[at - 1], here = FB[at], behind = FB[at + 1];
        const bool isMinimum = here < before && here <= behind;
        const bool isMaximum = before < here && behind <= here;
        if (!isMinimum && !isMaximum)
            continue;
        const double substitute = isMinimum ? NoSlope : -NoSlope;
        const TKxRealPos a = Inflection(i - 1, FX[at], substitute);
        const TKxRealPos b = Inflection(i, FX[at], substitute);
        const bool takeB = isMinimum ? b.Value <= a.Value : a.Value <= b.Value;
        const double x = takeB ? b.Position : a.Position;
        (isMinimum ? minima : maxima).push_back({x, Slope(x)});
    }
    FDiffMinima = TKxRealPosArray(std::move(minima));
    FDiffMaxima = TKxRealPosArray(std::move(maxima));
}

TKxRealPos TKxIntPolynom::IntExtremum(int i, double sample, double integral, bool isMinimum) const
{
    const TSegment segment = Segment(std::max(i - 2, 0));
    double h = sample - segment.X;
    double step = h;
    for (int n = 0; n < Halvings; ++n) {
        const double a = h - step, b = h + step;
        const double left = segment.Integral(a), right = segment.Integral(b);
        h = (isMinimum ? left < right : left > right) ? a : b;
        step /= 2;
    }
    return {segment.X + h, segment.Integral(h) + integral};
}

void TKxIntPolynom::Integrate(std::span<const double> samples, std::vector<double>& result)
{
    FIntMinima.Resize(0);
    FIntMaxima.Resize(0);
    if (samples.empty())
        return;
    result.resize(std::max(result.size(), samples.size()));
    result[0] = 0;
    if (FCount == 0) {
        std::fill_n(result.begin() + 1, samples.size() - 1, std::numeric_limits<double>::quiet_NaN());
        return;
    }
    TFound minima, maxima;
    const auto end = static_cast<std::ptrdiff_t>(samples.size());
    int i = FindIndex(samples[0]);
    TSegment segment = Segment(i);
    double sum = 0;
    for (std::ptrdiff_t k = 1; k < end; ++k) {
        const auto at = static_cast<std::size_t>(k);
        while (i < end - 2 && i < FCount && samples[at] >= FX[static_cast<std::size_t>(i) + 1]) {
            sum += segment.Integral(FX[static_cast<std::size_t>(i) + 1] - segment.X);
            segment = Segment(++i);
        }
        result[at] = sum + segment.Integral(samples[at] - segment.X);
        if (k < 2 || k == end - 1)
            continue;
        const double first = result[at - 2], middle = result[at - 1], last = result[at];
        if (middle < first && last >= middle)
            minima.push_back(IntExtremum(i, samples[at - 1], middle, true));
        else if (middle > first && last <= middle)
            maxima.push_back(IntExtremum(i, samples[at - 1], middle, false));
    }
    FIntMinima = TKxRealPosArray(std::move(minima));
    FIntMaxima = TKxRealPosArray(std::move(maxima));
}

void TKxIntPolynom::Integrate(const TKxRealVector& samples, TKxRealVector& result)
{
    std::vector<double> integral;
    Integrate(samples.Values(), integral);
    const auto held = std::min(integral.size(), static_cast<std::size_t>(result.GetCount()));
    for (std::size_t k = 0; k < held; ++k)
        result.SetValue(static_cast<int>(k), integral[k]);
    result.Append(std::span(integral).subspan(held));
}

}  // namespace plotkit
