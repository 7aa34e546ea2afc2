// The job of KxReachingSeries is what series share whose points reach beyond their values: error bars and arrows.
#pragma once

#include <array>

#include "data/KxVector.h"
#include "series/KxExtents.h"
#include "series/KxExtraVector.h"

namespace plotkit {

/// Ranges come from the extents of the points; `TBase` is the series that draws the points themselves.
template <class TBase>
class TKxReachingSeries : public TBase
{
public:
    using TBase::TBase;

    void CalculatePoints() override
    {
        const std::array dependsOn{IsLog(this->FX.Axis), IsLog(this->FY.Axis), AreExtentsShown()};
        if (dependsOn != FScannedAs && !this->RangesNeedRecalc())
            this->RangesModified();
        FScannedAs = dependsOn;
        TBase::CalculatePoints();
    }

protected:
    virtual TKxExtent ExtentOf(bool isX, int i) const = 0;
    /// Whether points reach beyond their values at all as the styles stand.
    virtual bool AreExtentsShown() const = 0;
    virtual std::span<const TKxExtraVector> Extras() const = 0;

    void GetNewXStartStop() override { Scan(true); }
    void GetNewYStartStop() override { Scan(false); }
    void CalcXValue(int index) override { Follow(true, index); }
    void CalcYValue(int index) override { Follow(false, index); }
    bool HasOwnPointRule() const override { return true; }

    void Scan(bool isX)
    {
        (isX ? FXExtents : FYExtents)
            .Scan(isX ? this->FX : this->FY, isX ? this->XIdxNeeded() : this->YIdxNeeded(), nullptr,
                  [this, isX](int i) { return ExtentOf(isX, i); });
    }

private:
    void Follow(bool isX, int index)
    {
        TKxSeriesDirection& direction = isX ? this->FX : this->FY;
        const bool isFollowed =
            !this->RangesNeedRecalc() && dynamic_cast<TKxLiveVector*>(direction.Data) && AreFollowed(Extras(), isX);
        const TKxExtentChange change = (isX ? FXExtents : FYExtents)
                                           .Follow(direction, index, ExtentOf(isX, index),
                                                   isX ? this->XIdxNeeded() : this->YIdxNeeded(), isFollowed);
        if (change == ecMoved)
            this->Modified();
        else if (change == ecScan)
            isX ? this->GetNewXStartStop() : this->GetNewYStartStop();
    }

    TKxExtents FXExtents, FYExtents;
    std::array<bool, 3> FScannedAs{};  ///< what the extents depend on: logarithmic X, Y, whether they are shown
};

}  // namespace plotkit
