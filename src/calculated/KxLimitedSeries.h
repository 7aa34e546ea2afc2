// The job of KxLimitedSeries is the two intervals of a series that is computed from another one, its parent: between
// which abscissae points are computed with, and between which the curve is drawn.
#pragma once

#include <utility>

#include "series/KxNotCalculatedSeries.h"

namespace plotkit {

class TKxLimitedSeries : public TKxSeries
{
public:
    using TKxSeries::TKxSeries;

    TKxNotCalculatedSeries* GetParentSeries() const { return FParentSeries; }

    bool GetAutoStart() const { return FAutoStart; }
    void SetAutoStart(bool automatic) { StoreAuto(FAutoStart, automatic); }
    bool GetAutoStop() const { return FAutoStop; }
    void SetAutoStop(bool automatic) { StoreAuto(FAutoStop, automatic); }
    bool GetDisplayAutoStart() const { return FDisplayAutoStart; }
    void SetDisplayAutoStart(bool automatic) { StoreFlag(FDisplayAutoStart, automatic); }
    bool GetDisplayAutoStop() const { return FDisplayAutoStop; }
    void SetDisplayAutoStop(bool automatic) { StoreFlag(FDisplayAutoStop, automatic); }
    bool GetCoupleCalculationAndDisplay() const { return FCoupled; }
    void SetCoupleCalcAndDisplay(bool coupled) { StoreFlag(FCoupled, coupled); }
    /// The interval whose points are computed with, bounds included. Setting a bound makes it a fixed one.
    double GetCalculationStart() const { return FCalculationStart; }
    void SetCalculationStart(double start) { StoreBound(FCalculationStart, start, FAutoStart); }
    double GetCalculationStop() const { return FCalculationStop; }
    void SetCalculationStop(double stop) { StoreBound(FCalculationStop, stop, FAutoStop); }
    /// The interval over which the curve is drawn. Setting a bound uncouples it from the other interval.
    double GetDisplayStart() const { return FDisplayStart; }
    void SetDisplayStart(double start) { StoreDisplayBound(FDisplayStart, start, FDisplayAutoStart); }
    double GetDisplayStop() const { return FDisplayStop; }
    void SetDisplayStop(double stop) { StoreDisplayBound(FDisplayStop, stop, FDisplayAutoStop); }
    bool IsStartStored() const { return !FAutoStart; }
    bool IsStopStored() const { return !FAutoStop; }
    bool IsDisplayStartStored() const { return !FDisplayAutoStart; }
    bool IsDisplayStopStored() const { return !FDisplayAutoStop; }
    bool IsCouplingStored() const { return !FCoupled || !FDisplayAutoStart || !FDisplayAutoStop; }
    /// Automatic bounds are taken from the parent's data and from the X axis.
    void SetLimits();

protected:
    /// The display interval as the axis is now: between calculations automatic bounds go with it.
    std::pair<double, double> ShownInterval() const;
    /// A setting changed: the parent lets its children be calculated at the next paint.
    void SettingsChanged();
    void WriteLimits(TKxIniList& list, const std::string& section) const;
    void ReadLimits(const TKxIniList& list, const std::string& section);

    TKxNotCalculatedSeries* FParentSeries = nullptr;

private:
    void StoreBound(double& bound, double value, bool& automatic);
    void StoreDisplayBound(double& bound, double value, bool& automatic);
    void StoreFlag(bool& flag, bool value);
    void StoreAuto(bool& flag, bool automatic);

    double FCalculationStart = 0, FCalculationStop = 0, FDisplayStart = 0, FDisplayStop = 0;
    bool FAutoStart = true, FAutoStop = true, FDisplayAutoStart = true, FDisplayAutoStop = true;
    bool FCoupled = true;
};

}  // namespace plotkit
