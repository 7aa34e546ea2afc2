// The job of KxAxisScale is the range that an axis shows: how it follows the data, and the mapping.
#pragma once

#include "foundation/KxRange.h"
#include "graph/KxAxisEnds.h"
#include "graph/KxAxisLook.h"
#include "graph/KxAxisMapping.h"

namespace plotkit {

class TKxAxis;

class TKxAxisScale : public TKxAxisLook
{
public:
    using TKxAxisLook::TKxAxisLook;

    TKxAxisPos GetPosition() const { return FPosition; }
    void SetPosition(TKxAxisPos position) { Store(FPosition, position); }
    TKxAxScaling GetScaling() const { return FScaling; }
    /// A date-time axis is never twisted.
    void SetScaling(TKxAxScaling scaling);
    bool GetTwisted() const { return FTwisted; }
    void SetTwisted(bool twisted) { Store(FTwisted, twisted && FScaling != AxDateTime); }
    TKxAxEnd GetStartEnd() const { return FStartEnd; }
    void SetStartEnd(TKxAxEnd end) { Store(FStartEnd, end); }
    TKxAxEnd GetStopEnd() const { return FStopEnd; }
    void SetStopEnd(TKxAxEnd end) { Store(FStopEnd, end); }
    double GetStart() const { return FRange.GetStart(); }
    void SetStart(double start);
    double GetStop() const { return FRange.GetStop(); }
    void SetStop(double stop);
    bool GetAutoTicks() const { return FAutoTicks; }
    void SetAutoTicks(bool autoTicks) { Store(FAutoTicks, autoTicks); }
    bool IsNotAutoTicks() const { return !FAutoTicks; }
    /// Steps in units of 10^exponent of the range's width; the setters are ignored while `AutoTicks` is on.
    double GetTickPart() const { return FTickPart; }
    void SetTickPart(double part) { StorePart(FTickPart, part); }
    double GetMajorTickPart() const { return FMajorTickPart; }
    void SetMajorTickPart(double part) { StorePart(FMajorTickPart, part); }
    double GetLabelPart() const { return FLabelPart; }
    void SetLabelPart(double part) { StorePart(FLabelPart, part); }
    int GetMaxExpForScaleExp() const { return FMaxExpForScaleExp; }
    void SetMaxExpForScaleExp(int exponent) { Store(FMaxExpForScaleExp, exponent); }
    int GetMinExpForScaleExp() const { return FMinExpForScaleExp; }
    void SetMinExpForScaleExp(int exponent) { Store(FMinExpForScaleExp, exponent); }
    bool GetIsSlaveAxis() const { return FIsSlaveAxis; }
    void SetIsSlaveAxis(bool slave);
    TKxAxis* GetMasterAxis() const { return FMasterAxis; }
    /// Refused without a word: this axis, a slave, an axis of the other orientation.
    void SetMasterAxis(TKxAxis* master);

    TKxAxisOrientation Orientation() const
    {
        return FPosition == AxBottomPos || FPosition == AxTopPos ? AxHorizontal : AxVertical;
    }
    TRange& Range() { return FRange; }
    void SetRange(const TRange& range) { FRange.Assign(range); }
    /// The union of what is registered in `ValueRanges`.
    TRange& ValuesRange() { return FValuesRange; }
    void SetValuesRange(const TRange& range) { FValuesRange.Assign(range); }
    /// The ranges of the data shown on this axis; they belong to the series.
    TRangeList& ValueRanges() { return FValueRanges; }

    /// Positions are device pixels from `AxisX` of a horizontal, `AxisY` of a vertical axis; see TKxAxisMapping.
    TKxAxisMapping Mapping() const;
    int RealToIntPosition(double value) const { return Mapping().RealToInt(value); }
    double IntToRealPosition(int position) const { return Mapping().IntToReal(position); }
    /// Length of the axis line, device pixels; not positive when there is no room for one.
    int PixelLength() const { return FPixelLength; }

    /// Makes the range usable, rounds the ends that are not fixed and chooses the steps. Ends that came from here are
    /// rounded anew from what they were before.
    void CalculateEnds();
    /// Whether the last `CalculateEnds` found an unusable range and replaced it.
    bool EndsReset() const { return FEndsReset; }
    bool ExponentForm() const { return FExponentForm; }

    /// For the ranges of the data to call; which of them changed does not matter.
    void ValuesRangeChanged(TRange& range);
    /// The ends follow the data again and the zoom history is forgotten.
    void RedoRanges();

protected:
    /// The ends and the steps of a date-time range.
    virtual void DateTimeEnds() = 0;
    virtual void ForgetZoom() = 0;
    void Notification(TComponent* component, TOperation operation) override;
    /// Steps from the tables of nice values, whatever `AutoTicks` says.
    void TakeTableSteps();
    /// The exponent and the digits that suit scale labels of the present range and `LabelPart`.
    void ChooseLabelForm();
    /// `extent`: the whole axis in values or decades.
    void SpreadOverPixels(double extent);
    /// Range and scaling of another axis; ends that it has rounded are not rounded again.
    void TakeEnds(const TKxAxisScale& master);
    bool EndIsRounded(TKxAxEnd end) const { return !FChosen.Taken && end != AxFixed; }
    bool EndsAreChosen() const;
    void TellGraph();

    TKxAxisPos FPosition = AxLeftPos;
    TKxAxScaling FScaling = AxNormal;
    bool FTwisted = false;
    TKxAxEnd FStartEnd = AxAutoRange, FStopEnd = AxAutoRange;
    bool FAutoTicks = true;
    double FTickPart = 0.05, FMajorTickPart = 0.1, FLabelPart = 0.5;
    int FMaxExpForScaleExp = 3, FMinExpForScaleExp = -2;
    bool FIsSlaveAxis = false;
    TKxAxis* FMasterAxis = nullptr;

    bool FTicksChanged = true;
    bool FEndsReset = false;
    bool FExponentForm = false;
    double FUnitsPerPixel = 1;
    double FLogStart = 0, FLogStop = 0;
    int FScaleExponent = 0, FRangeExponent = 2, FLabelDigits = 0;
    int FPixelLength = 340;
    TRange FRange, FValuesRange;

    TKxChosenEnds FChosen;

private:
    template <class T>
    void Store(T& field, const T& value)
    {
        if (field == value)
            return;
        field = value;
        Modified();
    }
    void StorePart(double& part, double value);
    void ReplaceUnusableRange();
    void NormalEnds();
    void WidenSingleValue();
    void RoundNormalEnds();
    void LogEnds();
    void MakeLogRangePositive();
    void RoundLogEnds();
    template <auto Set>
    void FollowEnd(TKxAxEnd end, double value);

    TRangeList FValueRanges;
};

}  // namespace plotkit
