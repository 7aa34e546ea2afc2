#include "series/KxArrowSeries.h"

#include <cmath>
#include <vector>

#include "foundation/KxLargeIni.h"
#include "graph/KxAxis.h"
#include "graph/KxDraw.h"
#include "graph/KxGraph2D.h"
#include "host/CheckedMath.h"
#include "host/PixelMath.h"
#include "series/KxZoomedClip.h"

namespace plotkit {

namespace {

constexpr std::array ArrowSeriesProperties{
    Reference<&TKxSeries::GetXAxis, &TKxSeries::SetXAxis>("XAxis"),
    Reference<&TKxSeries::GetYAxis, &TKxSeries::SetYAxis>("YAxis"),
    Reference<&TKxSeries::GetXData, &TKxSeries::SetXData>("XData"),
    Reference<&TKxSeries::GetYData, &TKxSeries::SetYData>("YData"),
    Reference<&TKxSeries::GetWeight, &TKxSeries::SetWeight>("Weight"),
    Reference<&TKxArrowSeries::GetdXData, &TKxArrowSeries::SetDX>("dXData"),
    Reference<&TKxArrowSeries::GetdYData, &TKxArrowSeries::SetDY>("dYData"),
    Property<&TKxArrowSeries::GetTipLength, &TKxArrowSeries::SetTipLength>("TipLength"),
    Property<&TKxArrowSeries::GetTipWidth, &TKxArrowSeries::SetTipWidth>("TipWidth"),
};

}  // namespace

constinit const TClassInfo TKxArrowSeries::Class{"TKxArrowSeries", &TKxNotCalculatedSeries::Class,
                                                 ArrowSeriesProperties, &CreateComponent<TKxArrowSeries>};

TKxArrowSeries::TKxArrowSeries(TComponent* owner) : TKxReachingSeries(owner)
{
    FShifts[1].IsX = false;
    AttachToGraphOfOwner();
}

TKxArrowSeries::~TKxArrowSeries()
{
    BeginDestroy();
    LeaveExtraVectors(*this, FShifts);
}

void TKxArrowSeries::SetTipLength(int length)
{
    if (length == FTipLength)
        return;
    FTipLength = length;
    Modified();
}

void TKxArrowSeries::SetTipWidth(int width)
{
    if (width == FTipWidth)
        return;
    FTipWidth = width;
    Modified();
}

void TKxArrowSeries::SetXData(TKxCustomRealVector* vector)
{
    const TKxCustomRealVector* const before = GetXData();
    TKxNotCalculatedSeries::SetXData(vector);
    KeepExtraVector(*this, FShifts, true, before);
}

void TKxArrowSeries::SetYData(TKxCustomRealVector* vector)
{
    const TKxCustomRealVector* const before = GetYData();
    TKxNotCalculatedSeries::SetYData(vector);
    KeepExtraVector(*this, FShifts, false, before);
}

double TKxArrowSeries::ShiftOf(const TKxExtraVector& shift, int i) const
{
    return i >= 0 && i < shift.Count() && SampleLine()->GetVisible() ? shift.Data->GetValue(i) : 0;
}

TKxExtent TKxArrowSeries::ExtentOf(bool isX, int i) const
{
    const TKxSeriesDirection& direction = isX ? FX : FY;
    if (i < 0 || i >= direction.Count())
        return {std::nan(""), std::nan("")};
    const double start = direction.Value(i);
    const double end = start + ShiftOf(FShifts[isX ? 0 : 1], i);
    // Nothing of an arrow stands where a logarithmic axis has no place.
    return {start, end <= 0 && IsLog(direction.Axis) ? start : end};
}

void TKxArrowSeries::GetNewXStartStop()
{
    Scan(true);
    Modified();
}

void TKxArrowSeries::GetNewYStartStop()
{
    Scan(false);
    Modified();
}

void TKxArrowSeries::CalculatePoint(int index)
{
    TKxNotCalculatedSeries::CalculatePoint(index);
    CalculateEnds(index, index + 1);
}

void TKxArrowSeries::CalculateAllPoints()
{
    MapPoints(0, FPointsCount);
    for (TKxExtraVector& shift : FShifts)
        shift.Pixels.SetCount(FPointsCount);
    CalculateEnds(0, FPointsCount);
}

void TKxArrowSeries::CalculateEnds(int first, int end)
{
    const int last = std::min(end, FPointsCount);
    if (!FX.Axis || !FY.Axis || first < 0 || first >= last)
        return;
    const auto points = FPoints.Values();
    for (TKxExtraVector& shift : FShifts) {
        const TKxAxisMapping mapping = (shift.IsX ? FX : FY).Axis->Mapping();
        if (shift.Pixels.GetCount() < last)
            shift.Pixels.SetCount(last);
        const auto ends = shift.Pixels.Write();
        for (auto i = static_cast<std::size_t>(first); i < static_cast<std::size_t>(last); ++i) {
            const double by = ShiftOf(shift, static_cast<int>(i)) / mapping.UnitsPerPixel;
            const std::int32_t length = mapping.Forward ? RoundToInt(by) : -std::max(RoundToInt(by), -0x7FFFFFFF);
            const std::int32_t start = shift.IsX ? points[i].X : points[i].Y;
            ends[i] = std::isfinite(by) && points[i] != MissingPoint ? AddPixels(start, length) : MissingPosition;
        }
    }
}

void TKxArrowSeries::DrawLine()
{
    if (!PrepareDrawing() || !SampleLine()->GetVisible() || FPointsCount == 0)
        return;
    TCanvas& canvas = World()->Canvas();
    const TKxLineStyle& style = *SampleLine();
    canvas.Pen.Style = style.GetStyle();
    canvas.Pen.Width = style.GetWidth();
    canvas.Pen.Color = style.GetColor();
    const TKxZoomedClip clip(canvas, *FX.Axis, *FY.Axis);
    std::vector<TPoint> ends;
    const auto xs = EndX().Values(), ys = EndY().Values();
    for (std::size_t i = 0; i < std::min(xs.size(), ys.size()); ++i) {
        const bool isMissing = xs[i] == MissingPosition || ys[i] == MissingPosition;
        ends.push_back(isMissing ? MissingPoint : TPoint{xs[i], ys[i]});
    }
    DrawArrows(FPoints.Values(), ends, World()->Px(FTipLength), World()->Px(FTipWidth), canvas);
}

void TKxArrowSeries::Notification(TComponent* component, TOperation operation)
{
    TKxNotCalculatedSeries::Notification(component, operation);
    if (operation != opRemove || !ForgetExtraVector(FShifts, component) || IsDestroying())
        return;
    RangesModified();
    CalculatePoints();
    if (TKx2DGraph* const graph = Graph())
        graph->Modified();
}

void TKxArrowSeries::WriteToIni(TKxIniList& list, const std::string& section)
{
    TKxNotCalculatedSeries::WriteToIni(list, section);
    list.WriteComponentRef(section, "dX", GetdXData());
    list.WriteComponentRef(section, "dY", GetdYData());
    list.WriteInteger(section, "TipLength", FTipLength);
    list.WriteInteger(section, "TipWidth", FTipWidth);
}

void TKxArrowSeries::ReadFromIni(TKxIniList& list, const std::string& section)
{
    TKxNotCalculatedSeries::ReadFromIni(list, section);
    if (TKxCustomRealVector* vector = GetdXData(); list.ReadComponentRef(section, "dX", vector))
        SetDX(vector);
    if (TKxCustomRealVector* vector = GetdYData(); list.ReadComponentRef(section, "dY", vector))
        SetDY(vector);
    SetTipLength(list.ReadInteger(section, "TipLength", FTipLength));
    SetTipWidth(list.ReadInteger(section, "TipWidth", FTipWidth));
}

}  // namespace plotkit
