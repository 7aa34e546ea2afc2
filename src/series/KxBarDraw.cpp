#include <algorithm>
#include <cmath>

#include "graph/KxAxis.h"
#include "graph/KxDraw.h"
#include "graph/KxGraph2D.h"
#include "host/CheckedMath.h"
#include "host/PixelMath.h"
#include "series/KxBarSeries.h"

namespace plotkit {

/// A bar with its depth.
struct TKxBarSeries::TBlock
{
    TRect Front;
    int DepthX = 0, DepthY = 0;
    const TKxBarSeries* Series = nullptr;
};

namespace {

/// A column of more blocks than this is kept in the order of lengths.
constexpr std::size_t SortedBlocks = 256;

/// Where a value stands; at the end of a logarithmic axis that has no place for it.
std::int32_t PositionOn(const TKxAxisMapping& mapping, double value)
{
    if (mapping.IsLog() && value <= 0)
        return mapping.Forward ? 0 : mapping.PixelLength;
    return mapping.RealToInt(value);
}

bool IsSeen(const TRect& box, const TRect& clip)
{
    return box.Left < clip.Right && box.Right > clip.Left && box.Top < clip.Bottom && box.Bottom > clip.Top;
}

/// Boxes no wider than a pixel, gathered by their column (or row): bars that lie closer than pixels.
class TThinBoxes
{
public:
    TThinBoxes(TCanvas& canvas, bool horizontal) : FCanvas(canvas), FHorizontal(horizontal) {}
    TThinBoxes(const TThinBoxes&) = delete;
    TThinBoxes& operator=(const TThinBoxes&) = delete;
    ~TThinBoxes() { Flush(); }

    void Add(const TRect& box)
    {
        const bool isThin = (FHorizontal ? box.Height() : box.Width()) <= 1;
        if (isThin && FHasBox && (FHorizontal ? box.Top == FBox.Top : box.Left == FBox.Left)) {
            FBox = {std::min(FBox.Left, box.Left), std::min(FBox.Top, box.Top), std::max(FBox.Right, box.Right),
                    std::max(FBox.Bottom, box.Bottom)};
            return;
        }
        Flush();
        FBox = box;
        FHasBox = true;
        if (!isThin)
            Flush();
    }

private:
    void Flush()
    {
        if (FHasBox)
            FCanvas.Rectangle(FBox.Left, FBox.Top, FBox.Right, FBox.Bottom);
        FHasBox = false;
    }

    TCanvas& FCanvas;
    bool FHorizontal;
    bool FHasBox = false;
    TRect FBox;
};

/// A front as it extends across its category and along its values, in the directions in which nearer faces lie.
struct TFace
{
    std::int64_t From, To, Low, High;
};

TFace FaceOf(const TRect& box, bool horizontal)
{
    return horizontal ? TFace{-std::int64_t{box.Bottom}, -std::int64_t{box.Top}, box.Left, box.Right}
                      : TFace{box.Left, box.Right, -std::int64_t{box.Bottom}, -std::int64_t{box.Top}};
}

}  // namespace

TKxBarSeries::TSharing TKxBarSeries::Sharing() const
{
    TSharing sharing{1, 1, FBarsGapPercent, FDepthPercent};
    if (!FShiftOverlays || !Owner())
        return sharing;
    sharing.Count = 0;
    for (TComponent* const sibling : Owner()->Components()) {
        const auto* const other = dynamic_cast<const TKxBarSeries*>(sibling);
        if (!other || other->FBarHorizontal != FBarHorizontal || other->Edges().Data != Edges().Data ||
            other->Edges().Axis != Edges().Axis)
            continue;
        ++sharing.Count;
        if (other == this)
            sharing.Place = sharing.Count;
        sharing.Gap = std::max(sharing.Gap, other->FBarsGapPercent);
        sharing.Depth = std::max(sharing.Depth, other->FDepthPercent);
    }
    return sharing;
}

/// From one pixel up to the other along the category axis, ordered.
std::optional<std::pair<int, int>> TKxBarSeries::SpanOf(int i, const TSharing& sharing) const
{
    const TKxSeriesDirection& edges = Edges();
    const double first = edges.Value(i), second = edges.Value(i + 1);
    if (!std::isfinite(first) || !std::isfinite(second) || first == second || sharing.Gap >= 100)
        return std::nullopt;
    const TKxAxisMapping mapping = edges.Axis->Mapping();
    const std::int64_t from = PositionOn(mapping, first), to = PositionOn(mapping, second);
    const double width = static_cast<double>(to - from);
    const std::int64_t gap = RoundToInt(width * sharing.Gap / 200);
    const double part = (width - 2.0 * static_cast<double>(gap)) / sharing.Count;
    const int start = SaturatePixel(from + gap + RoundToInt(part * (sharing.Place - 1)));
    const int end = SaturatePixel(from + gap + RoundToInt(part * sharing.Place));
    // A bar that lies between pixels is seen all the same.
    return std::pair{std::min(start, end), start == end ? AddPixels(start, 1) : std::max(start, end)};
}

std::optional<TRect> TKxBarSeries::BoxOf(int i, const TSharing& sharing) const
{
    const TKxSeriesDirection& heights = Heights();
    const double value = CoordinateOf(heights, i);
    if (!std::isfinite(value))
        return std::nullopt;
    const auto span = SpanOf(i, sharing);
    if (!span)
        return std::nullopt;
    const TKxAxisMapping mapping = heights.Axis->Mapping();
    const auto [low, high] =
        std::minmax({PositionOn(mapping, FStackOverlays ? TotalBelow(i) : 0), PositionOn(mapping, value)});
    return FBarHorizontal ? TRect{low, span->first, high, span->second} : TRect{span->first, low, span->second, high};
}

void TKxBarSeries::DrawLine()
{
    if (!PrepareDrawing() || !IsVisible() || FPointsCount == 0)
        return;
    TCanvas& canvas = World()->Canvas();
    canvas.Pen.Mode = dmCopy;
    const std::vector<TKxBarSeries*> group = DrawnTogether();
    if (group.size() < 2 && !FShow3DBars)
        DrawFlat(canvas);
    else if (group.empty() || group.front() == this)
        FShow3DBars ? DrawBlocks(group, canvas) : DrawStacks(group, canvas);
    canvas.Pen.Mode = dmCopy;
}

void TKxBarSeries::SetFlatStyle(TCanvas& canvas) const
{
    const TKxLineStyle& line = *SampleLine();
    const TKxAreaStyle& area = *SampleArea();
    const bool xored = area.GetVisible() && area.GetDrawXOred();
    const auto shown = [&](TColor color) { return xored ? XoredColor(color, BackColor()) : color; };
    canvas.Pen = {shown(line.GetColor()), line.GetVisible() ? line.GetStyle() : psClear, line.GetWidth(),
                  xored ? dmXor : dmCopy};
    canvas.Brush.SetColor(shown(area.GetColor()));
    canvas.Brush.SetStyle(area.GetVisible() ? area.GetStyle() : bsClear);
}

void TKxBarSeries::DrawFlat(TCanvas& canvas) const
{
    SetFlatStyle(canvas);
    const TSharing sharing = Sharing();
    const TRect clip = canvas.ClipRect();
    TThinBoxes boxes(canvas, FBarHorizontal);
    for (int i = FPointsCount - 1; i >= 0; --i)
        if (const auto box = BoxOf(i, sharing); box && !box->IsEmpty() && IsSeen(*box, clip))
            boxes.Add(*box);
}

/// The shown series whose bars may hide parts of each other, in the order of drawing; empty for a series that has its
/// places for itself. The first of them draws all: what is drawn between them comes to lie above their bars.
std::vector<TKxBarSeries*> TKxBarSeries::DrawnTogether()
{
    std::vector<TKxBarSeries*> group;
    const auto shares = [](const TKxBarSeries& s) { return s.FStackOverlays || (s.FShow3DBars && s.FShiftOverlays); };
    if (!Owner() || !shares(*this))
        return group;
    for (TComponent* const sibling : std::vector(Owner()->Components())) {
        auto* const other = dynamic_cast<TKxBarSeries*>(sibling);
        if (other && shares(*other) && other->FShow3DBars == FShow3DBars && other->GetShown() &&
            other->World() == World() && other->FBarHorizontal == FBarHorizontal &&
            other->Edges().Axis == Edges().Axis && other->IsVisible() && other->PrepareDrawing() &&
            other->FPointsCount > 0)
            group.push_back(other);
    }
    return group;
}

/// Values of both signs lead a stack back over bars that stand there already: the longer ones are drawn first.
void TKxBarSeries::DrawStacks(std::span<TKxBarSeries* const> group, TCanvas& canvas)
{
    int count = 0;
    for (const TKxBarSeries* const series : group)
        count = std::max(count, series->FPointsCount);
    const TRect clip = canvas.ClipRect();
    std::vector<std::pair<TRect, const TKxBarSeries*>> bars;
    std::vector<TSharing> sharing;
    for (const TKxBarSeries* const series : group)
        sharing.push_back(series->Sharing());
    const auto length = [this](const TRect& box) { return FBarHorizontal ? box.Width() : box.Height(); };
    const TKxBarSeries* styled = nullptr;
    for (int i = count - 1; i >= 0; --i) {
        bars.clear();
        for (std::size_t k = 0; k < group.size(); ++k)
            if (i < group[k]->FPointsCount)
                if (const auto box = group[k]->BoxOf(i, sharing[k]); box && !box->IsEmpty() && IsSeen(*box, clip))
                    bars.emplace_back(*box, group[k]);
        std::stable_sort(bars.begin(), bars.end(),
                         [&](const auto& a, const auto& b) { return length(a.first) > length(b.first); });
        for (const auto& [box, series] : bars) {
            if (styled != series)
                series->SetFlatStyle(canvas);
            styled = series;
            canvas.Rectangle(box.Left, box.Top, box.Right, box.Bottom);
        }
    }
}

void TKxBarSeries::AddBlocks(std::vector<TBlock>& blocks) const
{
    const TSharing sharing = Sharing();
    const TSharing whole{1, 1, sharing.Gap, sharing.Depth};
    for (int i = FPointsCount - 1; i >= 0; --i) {
        const auto box = BoxOf(i, sharing);
        // On a stack a bar without a height would be a lid of another colour.
        const bool isLid = box && box->IsEmpty() && !FStackedBelow.empty();
        if (!box || isLid)
            continue;
        const auto category = SpanOf(i, whole);
        const double width = static_cast<double>(category->second) - category->first;
        blocks.push_back(
            {*box, RoundToInt(width * sharing.Depth / 240), RoundToInt(width * sharing.Depth / 400), this});
    }
}

void TKxBarSeries::DrawBlock(const TBlock& block, TCanvas& canvas) const
{
    const TKxLineStyle& line = *SampleLine();
    const TColor front = SampleArea()->GetVisible() ? SampleArea()->GetColor() : BackColor();
    const bool isHollow = !SampleArea()->GetVisible();
    canvas.Pen.Width = line.GetWidth();
    Draw3DBar(block.Front.Left, block.Front.Top, block.Front.Right, block.Front.Bottom, block.DepthX, block.DepthY,
              line.GetVisible() ? line.GetColor() : front, front, isHollow ? front : ShadedColor(front, 13),
              isHollow ? front : ShadedColor(front, 6), canvas);
}

void TKxBarSeries::DrawBlocks(std::span<TKxBarSeries* const> group, TCanvas& canvas) const
{
    const TRect clip = canvas.ClipRect();
    std::vector<TBlock> blocks;
    if (group.empty())
        AddBlocks(blocks);
    for (const TKxBarSeries* const series : group)
        series->AddBlocks(blocks);
    if (group.size() > 1)
        SortBlocks(blocks, FBarHorizontal);
    for (const TBlock& block : blocks) {
        const TRect& front = block.Front;
        const TRect whole{front.Left, SaturatePixel(front.Top - std::abs(std::int64_t{block.DepthY}) - 2),
                          SaturatePixel(front.Right + std::abs(std::int64_t{block.DepthX}) + 1),
                          AddPixels(front.Bottom, 1)};
        if (IsSeen(whole, clip))
            block.Series->DrawBlock(block, canvas);
    }
}

/// Depth leads up and to the right: what lies further left or lower is drawn first, so that no front is hidden behind
/// a top or a side. Where fronts themselves lie on each other the shorter one is before the longer.
void TKxBarSeries::SortBlocks(std::vector<TBlock>& blocks, bool horizontal)
{
    const auto face = [horizontal](const TBlock& block) { return FaceOf(block.Front, horizontal); };
    std::stable_sort(blocks.begin(), blocks.end(),
                     [&](const TBlock& a, const TBlock& b) { return face(a).From < face(b).From; });
    for (auto first = blocks.begin(); first != blocks.end();) {
        auto last = first + 1;
        for (std::int64_t reached = face(*first).To; last != blocks.end() && face(*last).From < reached; ++last)
            reached = std::max(reached, face(*last).To);
        std::stable_sort(first, last, [&](const TBlock& a, const TBlock& b) {
            return face(a).High - face(a).Low > face(b).High - face(b).Low;
        });
        if (static_cast<std::size_t>(last - first) <= SortedBlocks)
            for (auto next = first; next != last; ++next) {
                const auto liesBefore = [&](const TBlock& other) { return face(other).Low < face(*next).High; };
                const auto place =
                    std::find_if(std::make_reverse_iterator(next), std::make_reverse_iterator(first), liesBefore);
                std::rotate(place.base(), next, next + 1);
            }
        first = last;
    }
}

}  // namespace plotkit
