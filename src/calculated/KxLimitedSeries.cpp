#include "calculated/KxLimitedSeries.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "foundation/KxLargeIni.h"
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
    const auto values = series.XValues();
    const auto count = std::min(values.size(), series.YValues().size());
    for (const double value : values.first(count))
        if (std::isfinite(value)) {
            extent.first = std::min(extent.first, value);
            extent.second = std::max(extent.second, value);
        }
    return extent;
}

}  // namespace

void TKxLimitedSeries::SetLimits()
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
    std::tie(FDisplayStart, FDisplayStop) = ShownInterval();
}

std::pair<double, double> TKxLimitedSeries::ShownInterval() const
{
    const TKxAxis* const axis = FCoupled ? nullptr : GetXAxis();
    return {axis && FDisplayAutoStart ? axis->GetStart() : FDisplayStart,
            axis && FDisplayAutoStop ? axis->GetStop() : FDisplayStop};
}

void TKxLimitedSeries::SettingsChanged()
{
    if (FParentSeries)
        FParentSeries->ChildModified();
    if (IsDesigning())
        SetLimits();
}

void TKxLimitedSeries::StoreBound(double& bound, double value, bool& automatic)
{
    if (value == bound)
        return;
    automatic = false;
    bound = value;
    SettingsChanged();
}

void TKxLimitedSeries::StoreDisplayBound(double& bound, double value, bool& automatic)
{
    if (value == bound)
        return;
    FCoupled = false;
    StoreBound(bound, value, automatic);
}

void TKxLimitedSeries::StoreFlag(bool& flag, bool value)
{
    if (value == flag)
        return;
    flag = value;
    SettingsChanged();
}

void TKxLimitedSeries::StoreAuto(bool& flag, bool automatic)
{
    if (automatic && FParentSeries)
        StoreFlag(flag, automatic);
    else
        flag = automatic;
}

void TKxLimitedSeries::WriteLimits(TKxIniList& list, const std::string& section) const
{
    list.WriteReal(section, "CalcStart", FCalculationStart);
    list.WriteReal(section, "CalcStop", FCalculationStop);
    list.WriteReal(section, "DisplayStart", FDisplayStart);
    list.WriteReal(section, "DisplayStop", FDisplayStop);
}

void TKxLimitedSeries::ReadLimits(const TKxIniList& list, const std::string& section)
{
    FAutoStart = list.ReadBool(section, "AutoStart", FAutoStart);
    FCalculationStart = list.ReadReal(section, "CalcStart", FCalculationStart);
    FAutoStop = list.ReadBool(section, "AutoStop", FAutoStop);
    FCalculationStop = list.ReadReal(section, "CalcStop", FCalculationStop);
    FCoupled = list.ReadBool(section, "CoupleCalcAndDisplay", FCoupled);
    FDisplayAutoStart = list.ReadBool(section, "DisplayAutoStart", FDisplayAutoStart);
    FDisplayStart = list.ReadReal(section, "DisplayStart", FDisplayStart);
    FDisplayAutoStop = list.ReadBool(section, "DisplayAutoStop", FDisplayAutoStop);
    FDisplayStop = list.ReadReal(section, "DisplayStop", FDisplayStop);
}

}  // namespace plotkit
