#include "series/KxDataWithErrorSeries.h"

#include <cmath>
#include <cstdlib>
#include <vector>

#include "foundation/KxLargeIni.h"
#include "graph/KxAxis.h"
#include "graph/KxDraw.h"
#include "graph/KxGraph2D.h"
#include "host/CheckedMath.h"
#include "host/PixelMath.h"

namespace plotkit {

namespace {

constexpr std::array ErrorSeriesProperties{
    Reference<&TKxDataWithErrorSeries::GetdXPlus, &TKxDataWithErrorSeries::SetdXPlus>("dXPlus"),
    Reference<&TKxDataWithErrorSeries::GetdXMinus, &TKxDataWithErrorSeries::SetdXMinus>("dXMinus"),
    Reference<&TKxDataWithErrorSeries::GetdYPlus, &TKxDataWithErrorSeries::SetdYPlus>("dYPlus"),
    Reference<&TKxDataWithErrorSeries::GetdYMinus, &TKxDataWithErrorSeries::SetdYMinus>("dYMinus"),
    Property<&TKxDataWithErrorSeries::GetErrorIndicatorsColor, &TKxDataWithErrorSeries::SetErrorColor>(
        "ErrorIndicatorsColor"),
};

constexpr std::int32_t NoBar = -1;
/// As much as stays near the processor.
constexpr std::size_t PointsAtOnce = 8192;

/// Pixels from a point at `position`, whose value is `value`, to the end of its error.
std::int32_t BarLength(const TKxAxisMapping& mapping, double value, std::int32_t position, double error)
{
    if (!std::isfinite(error) || position == MissingPosition)
        return NoBar;
    if (!mapping.IsLog())
        return RoundToInt(std::fabs(error) / mapping.UnitsPerPixel);
    const double end = value + error;
    const std::int32_t floor = mapping.Forward ? 0 : mapping.PixelLength;
    return SaturatePixel(std::abs(std::int64_t{end > 0 ? mapping.RealToInt(end) : floor} - position));
}

void AddBar(TPoint at, std::int32_t length, TPoint step, TPoint cap, std::vector<TPoint>& lines)
{
    const TPoint end = MovePoint(at, {length * step.X, length * step.Y});
    lines.insert(lines.end(), {at, end, MovePoint(end, {-cap.X, -cap.Y}), MovePoint(end, cap)});
}

}  // namespace

constinit const TClassInfo TKxDataWithErrorSeries::Class{
    "TKxDataWithErrorSeries", &TKxDataSeries::Class, ErrorSeriesProperties, &CreateComponent<TKxDataWithErrorSeries>};

TKxDataWithErrorSeries::TKxDataWithErrorSeries(TComponent* owner) : TKxReachingSeries(owner)
{
    FErrors[YPlus].IsX = FErrors[YMinus].IsX = false;
}

TKxDataWithErrorSeries::~TKxDataWithErrorSeries()
{
    BeginDestroy();
    LeaveExtraVectors(*this, FErrors);
}

void TKxDataWithErrorSeries::SetErrorColor(TColor color)
{
    if (color == FErrorColor)
        return;
    FErrorColor = color;
    Modified();
}

void TKxDataWithErrorSeries::SetXData(TKxCustomRealVector* vector)
{
    const TKxCustomRealVector* const before = GetXData();
    TKxDataSeries::SetXData(vector);
    KeepExtraVector(*this, FErrors, true, before);
}

void TKxDataWithErrorSeries::SetYData(TKxCustomRealVector* vector)
{
    const TKxCustomRealVector* const before = GetYData();
    TKxDataSeries::SetYData(vector);
    KeepExtraVector(*this, FErrors, false, before);
}

double TKxDataWithErrorSeries::ErrorOf(TSide side, int i) const
{
    const TKxExtraVector& error = FErrors[side];
    if (i < 0 || i >= error.Count() || !SamplePoints()->GetVisible())
        return 0;
    const double value = std::fabs(error.Data->GetValue(i));
    return std::isfinite(value) ? value : 0;
}

TKxExtent TKxDataWithErrorSeries::ExtentOf(bool isX, int i) const
{
    const TKxSeriesDirection& direction = isX ? FX : FY;
    if (i < 0 || i >= direction.Count())
        return {std::nan(""), std::nan("")};
    const double value = direction.Value(i);
    const double low = value - ErrorOf(isX ? XMinus : YMinus, i);
    // A logarithmic axis that had to show what is not positive would show little else.
    const bool endsAtFloor = low <= 0 && IsLog(direction.Axis);
    return {endsAtFloor ? value : low, value + ErrorOf(isX ? XPlus : YPlus, i)};
}

void TKxDataWithErrorSeries::CalculatePoint(int index)
{
    TKxDataSeries::CalculatePoint(index);
    CalculateErrors(index, index + 1);
}

void TKxDataWithErrorSeries::CalculateAllPoints()
{
    MapPoints(0, FPointsCount);
    for (TKxExtraVector& error : FErrors)
        error.Pixels.SetCount(0);
    CalculateErrors(0, FPointsCount);
}

void TKxDataWithErrorSeries::CalculateErrors(int first, int end)
{
    for (const TSide side : {XPlus, XMinus, YPlus, YMinus}) {
        TKxExtraVector& error = FErrors[side];
        const TKxSeriesDirection& direction = error.IsX ? FX : FY;
        const int last = std::min({end, FPointsCount, error.Count(), direction.Count()});
        if (!direction.Axis || first < 0 || first >= last)
            continue;
        if (error.Pixels.GetCount() < last)
            error.Pixels.SetCount(last);
        const TKxAxisMapping mapping = direction.Axis->Mapping();
        const auto errors = error.Data->Values(), values = direction.Values();
        const auto points = FPoints.Values();
        const auto lengths = error.Pixels.Write();
        for (auto i = static_cast<std::size_t>(first); i < static_cast<std::size_t>(last); ++i) {
            const double size = std::fabs(errors[i]);
            lengths[i] =
                BarLength(mapping, values[i], error.IsX ? points[i].X : points[i].Y, IsPlus(side) ? size : -size);
        }
    }
}

std::array<TKxDataWithErrorSeries::TBars, 4> TKxDataWithErrorSeries::Bars() const
{
    std::array<TBars, 4> bars;
    const int size = World()->Px(SamplePoints()->GetSize());
    for (const TSide side : {XPlus, XMinus, YPlus, YMinus}) {
        const TKxExtraVector& error = FErrors[side];
        // A twisted axis has its larger values on the other side.
        const int step = (error.IsX ? FX : FY).Axis->Mapping().Forward == IsPlus(side) ? 1 : -1;
        bars[side] = {error.Pixels.Values(), error.IsX ? TPoint{step, 0} : TPoint{0, step},
                      error.IsX ? TPoint{0, size} : TPoint{size, 0}};
    }
    return bars;
}

void TKxDataWithErrorSeries::DrawMarks(TCanvas& canvas)
{
    const TRect area = World()->DataRect();
    const TBrush brush = canvas.Brush;
    canvas.Pen.Style = psSolid;
    canvas.Pen.Width = 1;
    canvas.Pen.Color = FErrorColor;
    const auto bars = Bars();
    const auto points = FPoints.Values();
    std::vector<TPoint> seen, lines;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const TPoint at = points[i];
        if (at.X < 0 || at.X > area.Width() || at.Y < 0 || at.Y > area.Height())
            continue;
        seen.push_back(at);
        for (const TBars& side : bars)
            if (i < side.Lengths.size() && side.Lengths[i] != NoBar)
                AddBar(at, side.Lengths[i], side.Step, side.Cap, lines);
        if (lines.size() > PointsAtOnce) {
            DrawLines(lines, canvas);
            lines.clear();
        }
    }
    DrawLines(lines, canvas);
    canvas.Brush = brush;
    DrawSymbols(seen, canvas);
}

void TKxDataWithErrorSeries::Notification(TComponent* component, TOperation operation)
{
    TKxDataSeries::Notification(component, operation);
    if (operation != opRemove || !ForgetExtraVector(FErrors, component) || IsDestroying())
        return;
    RangesModified();
    CalculatePoints();
    if (TKx2DGraph* const graph = Graph())
        graph->Modified();
}

TKxSampleForm TKxDataWithErrorSeries::SampleForm() const
{
    TKxSampleForm form;
    form.HasXErrors = GetdXPlus() || GetdXMinus();
    form.HasYErrors = GetdYPlus() || GetdYMinus();
    form.ErrorColor = FErrorColor;
    return form;
}

void TKxDataWithErrorSeries::WriteToIni(TKxIniList& list, const std::string& section)
{
    TKxDataSeries::WriteToIni(list, section);
    list.WriteComponentRef(section, "dXMinus", GetdXMinus());
    list.WriteComponentRef(section, "dXPlus", GetdXPlus());
    list.WriteComponentRef(section, "dYMinus", GetdYMinus());
    list.WriteComponentRef(section, "dYPlus", GetdYPlus());
    list.WriteInteger(section, "ErrorBars.Color", ColorToInt(FErrorColor));
}

void TKxDataWithErrorSeries::ReadFromIni(TKxIniList& list, const std::string& section)
{
    TKxDataSeries::ReadFromIni(list, section);
    constexpr std::array<std::pair<const char*, TSide>, 4> keys{
        {{"dXMinus", XMinus}, {"dXPlus", XPlus}, {"dYMinus", YMinus}, {"dYPlus", YPlus}}};
    for (const auto& [key, side] : keys)
        if (TKxCustomRealVector* vector = FErrors[side].Data; list.ReadComponentRef(section, key, vector))
            Link(side, vector);
    SetErrorColor(IntToColor(list.ReadInteger(section, "ErrorBars.Color", ColorToInt(FErrorColor))));
}

}  // namespace plotkit
