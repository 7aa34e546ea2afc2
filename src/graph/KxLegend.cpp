#include "graph/KxLegend.h"

#include <algorithm>

#include "graph/KxAxis.h"
#include "graph/KxGraph2D.h"
#include "graph/KxLabel.h"
#include "host/CheckedMath.h"
#include "host/ControlProperties.h"
#include "host/PixelMath.h"
#include "host/Recording.h"
#include "host/Restore.h"

namespace plotkit {

namespace {

constexpr int MostGap = 1000;
constexpr int MostTextHeights = 3;  // that the sample of an entry may be high
constexpr int LeastCharacters = 4;  // of a caption that is cut short, in heights of the text

constexpr std::array LegendRows{
    // The size of a legend that sizes itself comes back by itself.
    Property<&TKxLegend::GetWidth, &TKxLegend::SetWidth, &TKxLegend::IsNotAutoSize>("Width").Pixels(),
    Property<&TKxLegend::GetHeight, &TKxLegend::SetHeight, &TKxLegend::IsNotAutoSize>("Height").Pixels(),
    Property<&TKxLegend::GetInGraphPosition, &TKxLegend::SetInGraphPosition>("InGraphPosition"),
    Property<&TKxLegend::GetOutsideGap, &TKxLegend::SetOutsideGap>("OutsideGap"),
    Property<&TKxLegend::GetInsideGap, &TKxLegend::SetInsideGap>("InsideGap"),
    Property<&TKxLegend::GetRowGap, &TKxLegend::SetRowGap>("RowGap"),
    Property<&TKxLegend::GetColumnGap, &TKxLegend::SetColumnGap>("ColumnGap"),
    Property<&TKxLegend::GetSampleWidth, &TKxLegend::SetSampleWidth>("SampleWidth"),
    Property<&TKxLegend::GetSampleCaptionGap, &TKxLegend::SetSampleCaptionGap>("SampleCaptionGap"),
    Sub<&TKxLegend::GetFrameLine>("FrameLine"),
    Property<&TKxLegend::GetTransparent, &TKxLegend::SetTransparent>("Transparent"),
    Property<&TKxLegend::GetAutoSize, &TKxLegend::SetAutoSize>("AutoSize"),
    Property<&TKxLegend::GetClickHides, &TKxLegend::SetClickHides>("ClickHides"),
    Event<TKxLegend, &TKxLegend::OnEntryClick>("OnEntryClick"),
};
constexpr std::array LegendProperties = JoinRows(LegendRows, ControlLookRows, ControlEventRows);

}  // namespace

constinit const TClassInfo TKxLegend::Class{"TKxLegend", &TWindowControl::Class, LegendProperties,
                                            &CreateComponent<TKxLegend>};

TKxLegend::TKxLegend(TComponent* owner) : TKxAttachedLegend(owner)
{
    FFrameLine.SetColor(clBlack);
}

TKxLegend::~TKxLegend()
{
    BeginDestroy();
    if (FGraph)
        FGraph->Detach(*this);
}

void TKxLegend::SetParent(TWindowControl* parent)
{
    TKxAttachedLegend::SetParent(parent);
    auto* graph = dynamic_cast<TKx2DGraph*>(parent);
    if (graph == FGraph)
        return;
    if (FGraph) {
        StopWatching(FGraph);
        FGraph->Detach(*this);
    }
    FGraph = graph;
    FMeasured = false;
    if (!graph)
        return;
    WatchFor(graph);
    graph->Attach(*this);
}

void TKxLegend::Notification(TComponent* component, TOperation operation)
{
    TKxAttachedLegend::Notification(component, operation);
    if (operation == opRemove && component == FGraph)
        FGraph = nullptr;
}

void TKxLegend::ChangeGap(int& field, int value)
{
    Change(field, std::clamp(value, 0, MostGap));
}

void TKxLegend::SetTransparent(bool transparent)
{
    if (FTransparent == transparent)
        return;
    FTransparent = transparent;
    Invalidate();
}

void TKxLegend::Relayout()
{
    FMeasured = false;
    if (FGraph)
        FGraph->Modified();
    else
        Invalidate();
}

void TKxLegend::CMFontChanged()
{
    TKxAttachedLegend::CMFontChanged();
    Relayout();
}

void TKxLegend::CMVisibleChanged()
{
    TKxAttachedLegend::CMVisibleChanged();
    FPressed.reset();
    Relayout();
}

void TKxLegend::CMScaleChanged()
{
    TKxAttachedLegend::CMScaleChanged();
    FScale = PixelScale();
    FPressed.reset();
    Relayout();
}

bool TKxLegend::ItemsAreCurrent() const
{
    std::size_t count = 0;
    bool current = true;
    if (FGraph)
        ForEachSeries(FGraph->GetSeriesList(), [&](TKxPlottable& series) {
            if (!current || !series.GetIncludeInLegend())
                return;
            current = count < FEntries.size() && IsCurrent(FEntries[count], series);
            ++count;
        });
    return current && count == FEntries.size();
}

void TKxLegend::ItemsModified()
{
    // Series call this at every value that widens a range. A paint that is due finds out by itself what changed.
    const TWindowControl* root = Parent();
    while (root && root->Parent())
        root = root->Parent();
    if (root && !root->NeedsPaint() && !ItemsAreCurrent())
        Invalidate();
}

void TKxLegend::RefreshItems()
{
    if (FMeasured && ItemsAreCurrent())
        return;
    FEntries.clear();
    if (FGraph)
        ForEachSeries(FGraph->GetSeriesList(), [this](TKxPlottable& series) {
            if (series.GetIncludeInLegend())
                FEntries.push_back(EntryOf(series));
        });
    TRecording nowhere;
    TCanvas screen(nowhere, Host().TextMeasurer(), PixelScale());
    screen.Font = GetFont().State();
    MeasureItems(screen);
    FMeasured = true;
}

void TKxLegend::MeasureItems(TCanvas& canvas)
{
    FTextHeight = canvas.TextHeight("0");
    FEntryHeight = FTextHeight;
    FWidths.clear();
    const int beforeCaption = Px(FSampleWidth) + Px(FSampleCaptionGap);
    for (const TKxLegendEntry& entry : FEntries) {
        const int sample = std::min(SampleHeight(entry.Sample, PixelScale()), MostTextHeights * FTextHeight);
        FEntryHeight = std::max(FEntryHeight, sample);
        FWidths.push_back(entry.Caption.empty() ? Px(FSampleWidth)
                                                : AddPixels(beforeCaption, CaptionWidth(entry.Caption, canvas)));
    }
}

int TKxLegend::FrameWidth() const
{
    return FFrameLine.GetVisible() ? std::max(1, Px(std::min(FFrameLine.GetWidth(), MostGap))) : 0;
}

/// What the frame and the title of the graph leave.
TRect TKxLegend::RoomInGraph() const
{
    const TKxLineStyle& line = FGraph->GetFrameLine();
    const int frame = line.GetVisible() ? Px(std::min(line.GetWidth(), MostGap)) : 0;
    const int title = FGraph->GetShowTitle() ? FGraph->TitleLabel().GetHeight() : 0;
    return {frame, frame + title, FGraph->GetWidth() - frame, FGraph->GetHeight() - frame};
}

TKxLegendRoom TKxLegend::Room() const
{
    TKxLegendRoom room;
    room.Most = {GetWidth(), GetHeight()};
    room.RowByRow = FInGraphPosition == AxBottomPos || FInGraphPosition == AxTopPos;
    if (FAutoSize && FGraph) {
        const TRect inGraph = RoomInGraph();
        const int gaps = 2 * Px(FOutsideGap);
        room.Most = {inGraph.Width() - gaps, inGraph.Height() - gaps};
        // The data keep at least half of the graph.
        if (room.RowByRow)
            room.Most.Height = inGraph.Height() / 2 - gaps;
        else if (FInGraphPosition != AxFreeFloating) {
            room.Most.Width = inGraph.Width() / 2 - gaps;
            // Beside the labels at the ends of the axis below, which reach out over it.
            if (const TKxAxis* axis = FGraph->PrimaryXAxis(); axis && axis->GetVisible())
                room.Most.Height -= axis->GetHeight();
        }
    }
    room.EntryHeight = FEntryHeight;
    room.LeastWidth = Px(FSampleWidth) + Px(FSampleCaptionGap) + LeastCharacters * FTextHeight;
    room.RowGap = Px(FRowGap);
    room.ColumnGap = Px(FColumnGap);
    room.Margin = Px(FInsideGap) + FrameWidth();
    return room;
}

bool TKxLegend::AdjustBounds()
{
    RefreshItems();
    FPlan = ArrangeLegend(FWidths, Room());
    const TRect before = Bounds();
    const bool floats = FInGraphPosition == AxFreeFloating;
    const TPoint wanted{RoundToInt(FWanted.X * FScale), RoundToInt(FWanted.Y * FScale)};
    PlaceAt(floats ? wanted : before.TopLeft(), FAutoSize ? FPlan.Size : TSize{GetWidth(), GetHeight()});
    return Bounds() != before;
}

bool TKxLegend::FitToGraph()
{
    AdjustBounds();
    return !FEntries.empty() || !FAutoSize;
}

void TKxLegend::PlaceAt(TPoint at, TSize size)
{
    const TRestore placing(FPlacing, true);
    SetBounds(at.X, at.Y, size.Width, size.Height);
}

TPoint TKxLegend::KeptInside(TPoint at, int width, int height) const
{
    if (!FGraph || FGraph->GetWidth() <= 0 || FGraph->GetHeight() <= 0)
        return at;
    const TRect room = FInGraphPosition == AxFreeFloating ? FGraph->ClientRect() : RoomInGraph();
    return {std::max(room.Left, std::min(at.X, AddPixels(room.Right, -width))),
            std::max(room.Top, std::min(at.Y, AddPixels(room.Bottom, -height)))};
}

void TKxLegend::SetBounds(int left, int top, int width, int height)
{
    // While the resolution changes the tree puts the legend where it stands at the new one, and the layout of the axes
    // leaves a floating one where it stands.
    if (!FPlacing && FScale == PixelScale() && TPoint{left, top} != Bounds().TopLeft())
        FWanted = {left / FScale, top / FScale};
    const TPoint at =
        IsLoading() ? TPoint{left, top} : KeptInside({left, top}, std::max(width, 0), std::max(height, 0));
    TKxAttachedLegend::SetBounds(at.X, at.Y, width, height);
}

}  // namespace plotkit
