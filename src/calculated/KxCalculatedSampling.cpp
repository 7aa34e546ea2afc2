#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <utility>

#include "calculated/KxCalculatedSeries.h"
#include "graph/KxAxis.h"

namespace plotkit {

namespace {

constexpr std::int64_t MostSpacings = 1 << 16;      // a zoomed axis would ask for billions
constexpr std::int64_t SpacingsWithoutAxis = 1000;  // nothing is drawn, but the curve can be read

}  // namespace

std::vector<double> TKxCalculatedSeries::Spacings()
{
    std::vector<double> xs;
    const double start = GetDisplayStart(), stop = GetDisplayStop();
    const TKxAxis* const axis = GetXAxis();
    std::int64_t width = SpacingsWithoutAxis;
    if (axis)
        width = std::abs(std::int64_t{axis->RealToIntPosition(stop)} - axis->RealToIntPosition(start));
    FCoarse = width > MostSpacings;
    width = std::min(width, MostSpacings);
    const double step = (stop - start) / static_cast<double>(width + 1);
    xs.reserve(static_cast<std::size_t>(width) + 2);
    double x = start;
    while (x <= stop) {
        xs.push_back(x);
        const double next = x + step;
        if (!(next > x))
            break;  // no room between two doubles
        x = next;
    }
    if (axis) {
        FLastAxisStart = axis->GetStart();
        FLastAxisStop = axis->GetStop();
    }
    return xs;
}

void TKxCalculatedSeries::GetXSpacings()
{
    FXResult->Take(Spacings());
}

void TKxCalculatedSeries::GetContinousLine()
{
    std::vector<double> xs = Spacings();
    std::vector<double> ys(xs.size());
    GetYs(xs, ys);
    SetResult(std::move(xs), std::move(ys));
}

void TKxCalculatedSeries::GetYs(std::span<const double> xs, std::span<double> ys)
{
    std::transform(xs.begin(), xs.end(), ys.begin(), [this](double x) { return GetY(x); });
}

/// False when that failed; this series may then be gone.
bool TKxCalculatedSeries::RefineCoarseCurve()
{
    if (!std::exchange(FCoarse, false))
        return true;
    const auto alive = Lifeline().Watch();
    FLastAxisStart = std::numeric_limits<double>::quiet_NaN();
    CalculateLine();
    return !alive.expired() && FXResult->GetCount() > 0;
}

void TKxCalculatedSeries::CalculateLine()
{
    const TKxAxis* const axis = GetXAxis();
    if (!axis || FXResult->GetCount() == 0)
        return;
    if (axis->GetStart() == FLastAxisStart && axis->GetStop() == FLastAxisStop)
        return;
    FLastAxisStart = axis->GetStart();
    FLastAxisStop = axis->GetStop();
    const auto [start, stop] = ShownInterval();
    const double from = std::max(start, FLastAxisStart), to = std::min(stop, FLastAxisStop);
    Attempt([this, from, to] { Resample(from, to); });
}

void TKxCalculatedSeries::Resample(double start, double stop)
{
    const auto xs = FXResult->WriteInPlace();
    const auto ys = FYResult->WriteInPlace();
    const std::size_t count = std::min(xs.size(), ys.size());
    // The last sample lies one step short of the end on purpose.
    const double parts = static_cast<double>(xs.size() + 1);
    for (std::size_t i = 0; i < count; ++i)
        xs[i] = start + static_cast<double>(i) * (stop - start) / parts;
    // Where the axis shows nothing of the display interval there is no curve.
    if (start <= stop)
        GetYs(xs.first(count), ys.first(count));
    else
        std::fill_n(ys.begin(), count, std::numeric_limits<double>::quiet_NaN());
}

}  // namespace plotkit
