#include "series/KxGraphCursor.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "host/Host.h"
#include "host/Restore.h"

namespace plotkit {

namespace {

/// Half the side of a mark, 1/96 inch.
constexpr int CurrentMark = 5;
constexpr int OtherMark = 3;

/// What turns a background black, or white where it is dark, in exclusive-or mode.
TColor ContrastTo(TColor background)
{
    const TColor color = Host().ResolveColor(background);
    const int light = 299 * RedOf(color) + 587 * GreenOf(color) + 114 * BlueOf(color);
    return light > 127'500 ? color : IntToColor(ColorToInt(color) ^ ColorToInt(clWhite));
}

}  // namespace

TKxGraphCursor::TKxGraphCursor(TKx2DGraph& graph)
    : TComponent(nullptr),
      FGraph(&graph),
      FPainting(std::make_unique<TEventChain<TCanvas&>>(graph.World(), graph.World().OnPaintOverlay,
                                                        TEvent<TCanvas&>::Bind<&TKxGraphCursor::Paint>(this)))
{
    WatchFor(FGraph);
}

TKxGraphCursor::~TKxGraphCursor()
{
    SetShown(false);
    BeginDestroy();
}

void TKxGraphCursor::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation != opRemove || component != FGraph)
        return;
    FGraph = nullptr;
    FSeries = nullptr;
    FReader = {};
    FReadings.clear();
    FCurrent = -1;
}

void TKxGraphCursor::SetShown(bool shown)
{
    if (FShown == shown)
        return;
    FShown = shown;
    if (FGraph && shown && FIndex < 0) {
        const TRect data = FGraph->World().DataRect();
        MoveTo({data.Left + data.Width() / 2, data.Top + data.Height() / 2});
    }
    Refresh();
    OnMoved();
}

const std::vector<TKxReading>& TKxGraphCursor::Readings()
{
    if (FStale || FReader.HasGone())
        Read();
    return FReadings;
}

const TKxReading* TKxGraphCursor::Current()
{
    Readings();
    return FCurrent < 0 ? nullptr : &FReadings[static_cast<std::size_t>(FCurrent)];
}

bool TKxGraphCursor::Follow()
{
    if (!FGraph || !FShown)
        return false;
    FStale = FStale || FReader.HasGone();
    FReader.Follow(*FGraph);
    return FReader.Count() > 0;
}

void TKxGraphCursor::MoveTo(TPoint at)
{
    if (!Follow())
        return;
    const TRect data = FGraph->World().DataRect();
    const double x = double{1} * at.X - data.Left, y = double{1} * at.Y - data.Top;
    int place = -1, index = -1;
    double least = std::numeric_limits<double>::infinity();
    for (int i = 0; i < FReader.Count(); ++i) {
        const int found = FReader.Points(i).Find(x, y);
        const auto reading = FReader.Read(i, found);
        if (!reading)
            continue;
        const double distance = std::hypot(double{1} * reading->Pixel.X - at.X, double{1} * reading->Pixel.Y - at.Y);
        if (!(distance < least))
            continue;
        place = i;
        index = found;
        least = distance;
    }
    Stand(place, index);
}

void TKxGraphCursor::Stand(int place, int index)
{
    if (place < 0 || index < 0)
        return;
    FSeries = FReader.Points(place).Series();
    FIndex = index;
    Refresh();
}

void TKxGraphCursor::Step(int points)
{
    const int place = Follow() ? FReader.PlaceOf(FSeries) : -1;
    if (place < 0)
        return;
    int index = FIndex;
    for (int i = 0; i < std::abs(points); ++i) {
        const int next = FReader.Points(place).Next(index, points);
        if (next == index)
            break;
        index = next;
    }
    Stand(place, index);
}

void TKxGraphCursor::StepPixels(int pixels)
{
    const int place = Follow() ? FReader.PlaceOf(FSeries) : -1;
    const auto reading = FReader.Read(place, FIndex);
    if (!reading || pixels == 0)
        return;
    TKxNearestPoint& points = FReader.Points(place);
    const TKxAxisMapping mapping = FSeries->GetXAxis()->Mapping();
    const auto right = [&](int index) { return PlaceOf(mapping, FSeries->XValues()[static_cast<std::size_t>(index)]); };
    const double from = PlaceOf(mapping, reading->X);
    const int next = points.Next(FIndex, pixels);
    const bool hasOrder = points.IsOrdered();
    const int far = hasOrder ? points.Find(from + pixels) : next;
    const bool isFarther = far >= 0 && (right(far) - right(next)) * pixels > 0;
    Stand(place, isFarther ? far : next);
}

void TKxGraphCursor::StepSeries(int by)
{
    const int count = Follow() ? FReader.Count() : 0;
    const int from = FReader.PlaceOf(FSeries);
    if (from < 0 || by == 0)
        return;
    const TKxAxisMapping mapping = FSeries->GetXAxis()->Mapping();
    const auto reading = FReader.Read(from, FIndex);
    const double x = reading ? PlaceOf(mapping, reading->X) : 0;
    for (int i = 1; i < count; ++i) {
        const int place = ((from + i * (by > 0 ? 1 : -1)) % count + count) % count;
        const int index = FReader.Points(place).Find(x);
        if (index >= 0)
            return Stand(place, index);
    }
}

void TKxGraphCursor::GoToEnd(bool right)
{
    const int place = Follow() ? FReader.PlaceOf(FSeries) : -1;
    if (place >= 0)
        Stand(place, FReader.Points(place).Outermost(right));
}

void TKxGraphCursor::Read()
{
    FReadings.clear();
    FCurrent = -1;
    const bool canRead = Follow();
    FStale = false;
    if (!canRead)
        return;
    int place = FReader.PlaceOf(FSeries);
    for (int i = 0; place < 0 && i < FReader.Count(); ++i)
        if (FReader.Points(i).Outermost(false) >= 0)
            place = i;
    if (place < 0)
        return;
    FSeries = FReader.Points(place).Series();
    // Points may have gone, or lost their place.
    FIndex = std::clamp(FIndex, 0, std::max(FReader.Points(place).Count() - 1, 0));
    if (!FReader.Points(place).HasPlace(FIndex))
        FIndex = FReader.Points(place).Next(FIndex, -1);
    if (!FReader.Points(place).HasPlace(FIndex))
        FIndex = FReader.Points(place).Next(FIndex, 1);
    const auto current = FReader.Read(place, FIndex);
    if (!current)
        return;
    const double x = PlaceOf(FSeries->GetXAxis()->Mapping(), current->X);
    for (int i = 0; i < FReader.Count(); ++i) {
        const auto reading = i == place ? current : FReader.Read(i, FReader.Points(i).Find(x));
        if (!reading)
            continue;
        if (i == place)
            FCurrent = static_cast<int>(FReadings.size());
        FReadings.push_back(*reading);
    }
}

void TKxGraphCursor::Refresh()
{
    if (!FGraph)
        return;
    const std::vector<TKxReading> before = FReadings;
    const int currentBefore = FCurrent;
    Read();
    {
        const TRestore moving(FMoving, true);
        FGraph->World().RefreshOverlay();
    }
    if (FReadings != before || FCurrent != currentBefore)
        OnMoved();
}

void TKxGraphCursor::Paint(TCanvas& canvas)
{
    if (!FGraph || !FShown || FGraph->IsDestroying())
        return;
    // Painted because the picture changed.
    if (!FMoving) {
        const std::vector<TKxReading> before = FReadings;
        Read();
        if (FReadings != before)
            OnMoved();
    }
    const TKxReading* const current = Current();
    if (!current)
        return;
    const TRect data = FGraph->World().DataRect();
    canvas.Pen = {ContrastTo(FGraph->GetDataColor()), psSolid, 1, dmXor};
    canvas.Brush.SetStyle(bsClear);
    if (current->Pixel.X >= data.Left && current->Pixel.X < data.Right) {
        canvas.MoveTo(current->Pixel.X, data.Top);
        canvas.LineTo(current->Pixel.X, data.Bottom);
    }
    // The same mark twice would take itself away.
    std::vector<TPoint> marked;
    for (const TKxReading& reading : FReadings) {
        const bool isFirst = std::find(marked.begin(), marked.end(), reading.Pixel) == marked.end();
        if (&reading == current || !isFirst || !data.Contains(reading.Pixel))
            continue;
        PaintMark(canvas, reading.Pixel, OtherMark);
        marked.push_back(reading.Pixel);
    }
    if (data.Contains(current->Pixel))
        PaintMark(canvas, current->Pixel, CurrentMark);
}

void TKxGraphCursor::PaintMark(TCanvas& canvas, TPoint at, int half) const
{
    const int reach = FGraph->Px(half);
    canvas.Rectangle(at.X - reach, at.Y - reach, at.X + reach + 1, at.Y + reach + 1);
}

}  // namespace plotkit
