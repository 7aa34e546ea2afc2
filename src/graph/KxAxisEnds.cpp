#include <algorithm>
#include <cmath>
#include <limits>

#include "foundation/KxArithm.h"
#include "graph/KxAxisScale.h"
#include "graph/KxNiceValues.h"
#include "host/CheckedMath.h"

namespace plotkit {

namespace {

constexpr double LargestEnd = 1.7e308;
/// Ends as far apart as doubles reach still have a width that is a double.
constexpr double LargestEndOfBoth = 7.5e307;
/// Powers of ten below lose digits.
constexpr double SmallestLogEnd = 1e-307;
constexpr double LogStartForNothing = 1e-10;
constexpr double LogStopForNothing = 1.0;

void ClampEnds(double& start, double& stop)
{
    start = std::clamp(start, -LargestEnd, LargestEnd);
    stop = std::clamp(stop, -LargestEnd, LargestEnd);
    if (std::isfinite(stop - start))
        return;
    start = std::max(start, -LargestEndOfBoth);
    stop = std::min(stop, LargestEndOfBoth);
}

}  // namespace

bool TKxAxisScale::EndsAreChosen() const
{
    const TKxChosenEnds& c = FChosen;
    return c.Known && c.Start == GetStart() && c.Stop == GetStop() && c.Scaling == FScaling &&
           c.StartEnd == FStartEnd && c.StopEnd == FStopEnd;
}

void TKxAxisScale::CalculateEnds()
{
    FEndsReset = false;
    // A rounded range has another width than the one it was made from; rounding it again could widen it with every
    // layout.
    const bool again = EndsAreChosen();
    if (again)
        FRange.SetStartStop(FChosen.FromStart, FChosen.FromStop);
    ReplaceUnusableRange();
    if (!again)
        FChosen = {GetStart(), GetStop(), 0, 0, FScaling, FStartEnd, FStopEnd, true, false};
    switch (FScaling) {
        case AxNormal:
            NormalEnds();
            break;
        case AxLog:
        case AxLogEE:
            LogEnds();
            break;
        case AxDateTime:
            DateTimeEnds();
            break;
    }
    FExponentForm = FScaleExponent < FMinExpForScaleExp;
    if (FScaling == AxNormal && FScaleExponent > FMaxExpForScaleExp && FScaleExponent > FLabelDigits)
        FExponentForm = true;
    FChosen.Start = GetStart();
    FChosen.Stop = GetStop();
}

void TKxAxisScale::TakeEnds(const TKxAxisScale& master)
{
    SetScaling(master.FScaling);
    SetStart(master.GetStart());
    SetStop(master.GetStop());
    FChosen = {GetStart(), GetStop(), GetStart(), GetStop(), FScaling, FStartEnd, FStopEnd, false, true};
    FChosen.Known = master.EndsAreChosen() && !master.FNeedsCalculate;
}

void TKxAxisScale::SpreadOverPixels(double extent)
{
    FUnitsPerPixel = extent / std::max(FPixelLength, 1);
    if (!(FUnitsPerPixel > 0))
        FUnitsPerPixel = std::numeric_limits<double>::min();
}

void TKxAxisScale::ReplaceUnusableRange()
{
    double start = GetStart(), stop = GetStop();
    if (!(start <= stop)) {
        start = FScaling == AxNormal ? 0 : 1;
        stop = FScaling == AxNormal ? 100 : 10;
        FEndsReset = true;
    }
    ClampEnds(start, stop);
    if (start != GetStart() || stop != GetStop())
        FRange.SetStartStop(start, stop);
}

void TKxAxisScale::NormalEnds()
{
    if (GetStart() == GetStop())
        WidenSingleValue();
    if (FAutoTicks)
        FTickPart = 0.02;
    if (!FChosen.Taken)
        RoundNormalEnds();
    FRangeExponent = GetExponent(GetStop() - GetStart());
    if (FAutoTicks)
        TakeTableSteps();
    ChooseLabelForm();
}

void TKxAxisScale::WidenSingleValue()
{
    double start = GetStart(), stop = start;
    start -= IntExp10(GetExponent(start));
    stop += IntExp10(GetExponent(stop));
    if (GetStart() == 0 || start == stop) {
        start = -1;
        stop = 1;
    }
    ClampEnds(start, stop);
    FRange.SetStartStop(start, stop);
    FEndsReset = true;
}

void TKxAxisScale::RoundNormalEnds()
{
    const double start = GetStart(), stop = GetStop(), width = stop - start;
    FRangeExponent = GetExponent(width);
    const double step = NiceValues().RoundField[static_cast<std::size_t>(NiceIndex(width, FRangeExponent))];
    const double roundStart = RoundDown(start, FStartEnd == AxFixed ? FTickPart : step, FRangeExponent);
    const double roundStop = RoundUp(stop, FStopEnd == AxFixed ? FTickPart : step, FRangeExponent);
    // Ends that differ in their last digits only, or that are next to the largest double, cannot be rounded.
    const double tolerance = 0.01 * width;
    if (std::isfinite(roundStop - roundStart) && roundStart < roundStop && roundStart <= start + tolerance &&
        roundStop >= stop - tolerance)
        FRange.SetStartStop(roundStart, roundStop);
}

void TKxAxisScale::TakeTableSteps()
{
    const auto i = static_cast<std::size_t>(NiceIndex(GetStop() - GetStart(), FRangeExponent));
    FTickPart = NiceValues().TickField[i];
    FMajorTickPart = NiceValues().MajorTickField[i];
    FLabelPart = NiceValues().LabelsField[i];
}

void TKxAxisScale::ChooseLabelForm()
{
    const int startExponent = GetExponent(GetStart()), stopExponent = GetExponent(GetStop());
    if (startExponent < stopExponent)
        FScaleExponent = GetStop() == 0 ? startExponent : stopExponent;
    else
        FScaleExponent = GetStart() == 0 ? stopExponent : startExponent;
    FLabelDigits = FScaleExponent - FRangeExponent - GetExponent(FLabelPart) + LastSignificant(FLabelPart);
}

void TKxAxisScale::LogEnds()
{
    if (0.01 * GetStop() > GetStop() - GetStart())
        FRange.SetStartStop(IntExp10(GetExponent(GetStart()) - 1), IntExp10(GetExponent(GetStop()) + 1));
    MakeLogRangePositive();
    RoundLogEnds();
    if (FLabelPart < FMajorTickPart)
        FLabelPart = FMajorTickPart;
}

void TKxAxisScale::MakeLogRangePositive()
{
    double start = GetStart() <= 0 ? LogStartForNothing : GetStart();
    double stop = GetStop() <= 0 ? LogStopForNothing : GetStop();
    start = std::max(start, SmallestLogEnd);
    stop = std::max(stop, SmallestLogEnd * 10);
    if (start >= stop)
        start = stop / 10;
    if (start != GetStart() || stop != GetStop())
        FRange.SetStartStop(start, stop);
}

void TKxAxisScale::RoundLogEnds()
{
    double start = GetStart(), stop = GetStop();
    FRangeExponent = RoundToInt(std::log10(stop) - std::log10(start));
    FTickPart = 0.1;
    FMajorTickPart = 1.0;
    FLabelPart = 1.0;
    if (!FChosen.Taken) {
        if (FStartEnd != AxFixed || FRangeExponent == 0) {
            const int exponent = GetExponent(start);
            start = RoundDown(Exp10(RoundDown(std::log10(start), 1.0, 0)), 1.0, exponent - 9);
        }
        if (FStopEnd != AxFixed || FRangeExponent == 0)
            stop = Exp10(RoundUp(std::log10(stop), 1.0, 0));
        start = RoundLogDown(start, FMajorTickPart, FTickPart);
        stop = RoundLogUp(stop, FMajorTickPart, FTickPart);
        FRange.SetStartStop(start, stop);
    }
    FLogStart = std::log10(GetStart());
    FLogStop = std::log10(GetStop());
}

}  // namespace plotkit
