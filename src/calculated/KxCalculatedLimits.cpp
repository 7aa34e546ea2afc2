#include <algorithm>
#include <cmath>

#include "calculated/KxCalculatedSeries.h"
#include "graph/KxAxis.h"

namespace plotkit {

namespace {

/// Of the values that have a partner. Inverted when there are none.
std::pair<double, double> XExtentOf(TKxSeries& series)
{
    const TRange& range = series.XRange();
    if (!series.RangesNeedRecalc() && range.GetStart() <= range.GetStop())
        return {range.GetStart(), range.GetStop()};
    std::pair<double, double> extent{1.7e308, -1.7e308};
    if (!series.GetXData() || !series.GetYData())
        return extent;
    const auto values = series.GetXData()->Values();
    const auto count = std::min(values.size(), series.GetYData()->Values().size());
    for (const double value : values.first(count))
        if (std::isfinite(value)) {
            extent.first = std::min(extent.first, value);
            extent.second = std::max(extent.second, value);
        }
    return extent;
}

}  // namespace

void TKxCalculatedSeries::SetLimits()
{
    if (FParentSeries && (FAutoStart || FAutoStop)) {
        const auto extent = XExtentOf(*FParentSeries);
        if (FAutoStart)
            FCalculationStart = extent.first;
        if (FAutoStop)
            FCalculationStop = extent.second;
    }
    if (FCoupled) {
        FDisplayStart = FCalculationStart;
        FDisplayStop = FCalculationStop;
        return;
    }
    const TKxAxis* const axis = GetXAxis();
    if (axis && FDisplayAutoStart)
        FDisplayStart = axis->GetStart();
    if (axis && FDisplayAutoStop)
        FDisplayStop = axis->GetStop();
}

void TKxCalculatedSeries::StoreBound(double& bound, double value, bool& automatic)
{
    if (value == bound)
        return;
    automatic = false;
    bound = value;
    SettingsChanged();
}

void TKxCalculatedSeries::StoreDisplayBound(double& bound, double value, bool& automatic)
{
    if (value == bound)
        return;
    FCoupled = false;
    StoreBound(bound, value, automatic);
}

void TKxCalculatedSeries::StoreAuto(bool& flag, bool automatic)
{
    if (automatic == flag)
        return;
    flag = automatic;
    if (automatic && FParentSeries)
        SettingsChanged();
}

void TKxCalculatedSeries::SetDisplayAutoStart(bool automatic)
{
    if (automatic == FDisplayAutoStart)
        return;
    FDisplayAutoStart = automatic;
    SettingsChanged();
}

void TKxCalculatedSeries::SetDisplayAutoStop(bool automatic)
{
    if (automatic == FDisplayAutoStop)
        return;
    FDisplayAutoStop = automatic;
    SettingsChanged();
}

void TKxCalculatedSeries::SetCoupleCalcAndDisplay(bool coupled)
{
    if (coupled == FCoupled)
        return;
    FCoupled = coupled;
    SettingsChanged();
}

}  // namespace plotkit
