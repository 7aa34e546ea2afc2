#include "host/VectorDevice.h"

#include "host/StrokeReduction.h"

namespace plotkit {

namespace {

/// Longer lines are parted: readers and viewers have their limits, and strokes in one piece take time that grows faster
/// than their length.
constexpr std::size_t LongestPiece = 2000;
/// How far, in pen widths, a mitered corner reaches.
constexpr double Reach = 2;
/// In 1/96 inches: of lines up to here nobody sees that their ends are not cut along the box.
constexpr double WidestUncut = 1;
/// Of a thin pen's width, 1/96 inch: what a line does in a column so wide is hidden by the strokes beside it.
constexpr double ColumnPart = 9.0 / 16;

/// Where in the pixel a stroke runs so that it fills whole ones.
double MiddleOf(const TPenState& pen)
{
    return pen.Style == psClear || std::max(pen.Width, 1) % 2 != 0 ? 0.5 : 0;
}

TVectorPoint Middle(TPoint p, double shift)
{
    return {p.X + shift, p.Y + shift};
}

bool AllEqual(std::span<const TPoint> points)
{
    return std::all_of(points.begin(), points.end(), [&](TPoint p) { return p == points.front(); });
}

TVectorPoint Towards(TVectorPoint from, TVectorPoint to, double by)
{
    const double length = LengthOf(std::array{from, to});
    return length > by ? from + (to - from) * (by / length) : from;
}

}  // namespace

TVectorDevice::TVectorDevice(const TRect& page, double scale, const TTextMeasurer& measurer)
    : FPage(page), FScale(scale), FMeasurer(measurer)
{}

/// A clip as large as the page is none: what reaches beyond the page is cut there anyway.
TVectorBox TVectorDevice::Visible(const TDrawState& state, double margin) const
{
    const TVectorBox page = TVectorBox::Of(FPage), clip = TVectorBox::Of(state.Clip);
    const TVectorBox around = page.Inset(-margin);
    return clip.Contains(page) ? around : around.Intersected(clip);
}

void TVectorDevice::DrawOne(std::span<const TVectorPoint> points, bool closed, const TVectorPen* pen,
                            const TVectorFill* fill, const TRect* clip)
{
    FPath.Points.clear();
    FPath.Ends.clear();
    FPath.Closed = closed;
    FPath.Add(points);
    DrawPath(FPath, pen, fill, clip);
}

void TVectorDevice::Line(TPoint from, TPoint to, const TPenState& pen, const TDrawState& state)
{
    if (pen.Style == psClear || from == to || state.Mode == dmXor)
        return;
    TVectorPen stroke = StrokeOf(pen);
    const double shift = MiddleOf(pen);
    std::array ends{Middle(from, shift), Middle(to, shift)};
    const TVectorPoint by = ends[1] - ends[0];
    const double steps = std::max(std::abs(by.X), std::abs(by.Y));
    if (stroke.Style == psSolid) {
        // From the first to the last but one pixel; square ends add half the width to both.
        if (steps <= 1)
            return Dot(ends[0], pen, Visible(state, stroke.Width));
        ends[1] = ends[1] - by * (1 / steps);
    }
    DrawPiece(ends, state, stroke);
}

void TVectorDevice::Polyline(std::span<const TPoint> points, const TPenState& pen, const TDrawState& state)
{
    if (points.empty() || pen.Style == psClear || state.Mode == dmXor)
        return;
    TVectorPen stroke = StrokeOf(pen);
    const double shift = MiddleOf(pen);
    const bool isDashed = IsDashed(pen.Style);
    if (!isDashed) {
        KeepColumns(points, static_cast<int>(std::min(FScale, stroke.Width) * ColumnPart), FMerged);
        points = FMerged;
    }
    KeepVisiblePoints(points, !isDashed, FKept);
    if (FKept.size() == 1)
        return Dot(Middle(FKept[0], shift), pen, Visible(state, stroke.Width));
    const bool isClosed = FKept.size() > 3 && FKept.size() < LongestPiece && FKept.front() == FKept.back();
    stroke.RoundJoins = FKept.size() > 2 && !isClosed;
    if (stroke.RoundJoins && !isDashed)
        stroke.Ends = veRound;
    for (std::size_t first = 0; first + 1 < FKept.size(); first += LongestPiece - 1) {
        const std::size_t end = std::min(FKept.size(), first + LongestPiece);
        FPiece.clear();
        for (std::size_t i = first; i < end; ++i)
            FPiece.push_back(Middle(FKept[i], shift));
        DrawPiece(FPiece, state, stroke);
        if (isDashed)
            stroke.DashStart += LengthOf(FPiece);
    }
}

void TVectorDevice::DrawPiece(std::span<const TVectorPoint> points, const TDrawState& state, const TVectorPen& pen)
{
    const TVectorBox visible = Visible(state, Reach * pen.Width), bounds = BoundsOf(points);
    if (visible.IsEmpty() || bounds.Inset(-pen.Width / 2).Intersected(visible).IsEmpty())
        return;
    const bool isClosed = points.size() > 3 && points.front() == points.back();
    if (visible.Contains(bounds))
        return DrawOne(isClosed ? points.first(points.size() - 1) : points, isClosed, &pen, nullptr);
    const bool isWide = pen.Width > WidestUncut * FScale;
    for (const TCutPiece& piece : CutPolyline(points, isWide ? visible.Inset(-pen.Width) : visible))
        DrawCut(piece, pen, isWide ? &state.Clip : nullptr);
}

void TVectorDevice::DrawCut(const TCutPiece& piece, TVectorPen pen, const TRect* clip)
{
    std::vector<TVectorPoint> points = piece.Points;
    pen.DashStart += piece.Start;
    // The end's half width is not to stand out of the box.
    const double back = pen.Ends == veFlat ? 0 : pen.Width / 2;
    if (piece.CutFirst)
        points.front() = Towards(points[0], points[1], back);
    if (piece.CutLast)
        points.back() = Towards(points.back(), points[points.size() - 2], back);
    DrawOne(points, false, &pen, nullptr, clip);
}

void TVectorDevice::Dot(TVectorPoint at, const TPenState& pen, const TVectorBox& visible)
{
    const double half = StrokeOf(pen).Width / 2;
    if (!visible.Contains(at))
        return;
    const TVectorFill fill{pen.Color, 1};
    const std::array corners{TVectorPoint{at.X - half, at.Y - half}, TVectorPoint{at.X + half, at.Y - half},
                             TVectorPoint{at.X + half, at.Y + half}, TVectorPoint{at.X - half, at.Y + half}};
    DrawOne(corners, true, nullptr, &fill);
}

void TVectorDevice::Polygon(std::span<const TPoint> points, const TPenState& pen, const TBrushState& brush,
                            const TDrawState& state)
{
    if (points.empty())
        return;
    const bool isStroked = pen.Style != psClear && state.Mode == dmCopy;
    if (AllEqual(points)) {
        if (isStroked)
            Dot(Middle(points.front(), MiddleOf(pen)), pen, Visible(state, StrokeOf(pen).Width));
        return;
    }
    // A filling with edges along one column covers the same without the points between, like a line; an outline, too.
    KeepVisiblePoints(points, !IsDashed(pen.Style), FKept);
    std::vector<TVectorPoint> corners;
    corners.reserve(FKept.size());
    for (const TPoint& point : FKept)
        corners.push_back(Middle(point, MiddleOf(pen)));
    if (corners.size() > 2 && corners.front() == corners.back())
        corners.pop_back();
    Shape(corners, pen, brush, state);
}

void TVectorDevice::Shape(std::span<const TVectorPoint> corners, const TPenState& pen, const TBrushState& brush,
                          const TDrawState& state)
{
    const bool isStroked = pen.Style != psClear && state.Mode == dmCopy;
    TVectorPen stroke = StrokeOf(pen);
    const TVectorBox visible = Visible(state, isStroked ? Reach * stroke.Width : 0), bounds = BoundsOf(corners);
    if (visible.IsEmpty() || bounds.Intersected(visible).IsEmpty())
        return;
    if (isStroked && brush.Style == bsSolid && visible.Contains(bounds)) {
        const TVectorFill fill{brush.Color, 1};
        return DrawOne(corners, true, &stroke, &fill);
    }
    Fill(corners, visible, brush, state.Mode);
    if (!isStroked)
        return;
    std::vector<TVectorPoint> outline(corners.begin(), corners.end());
    outline.push_back(corners.front());
    DrawPiece(outline, state, stroke);
}

void TVectorDevice::Fill(std::span<const TVectorPoint> corners, const TVectorBox& visible, const TBrushState& brush,
                         TDrawMode mode)
{
    if (brush.Style == bsClear)
        return;
    const double opacity = mode == dmXor ? XorOpacity : 1;
    const std::vector<TVectorPoint> cut = CutPolygon(corners, visible);
    if (cut.size() < 3)
        return;
    if (brush.Style == bsSolid) {
        const TVectorFill fill{brush.Color, opacity};
        return DrawOne(cut, true, nullptr, &fill);
    }
    const THatch hatch = THatch::At(FScale);
    const TVectorPath lines = HatchLines(cut, brush.Style, hatch);
    TVectorPen pen;
    pen.Color = brush.Color;
    pen.Width = HatchWidth(brush.Style, hatch);
    pen.Ends = veFlat;
    pen.Opacity = opacity;
    if (!lines.Ends.empty())
        DrawPath(lines, &pen, nullptr, nullptr);
}

}  // namespace plotkit
