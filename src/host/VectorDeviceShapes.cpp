#include <numbers>

#include "host/CheckedMath.h"
#include "host/PixelMath.h"
#include "host/Recording.h"
#include "host/VectorDevice.h"

namespace plotkit {

namespace {

constexpr TPenState NoPen{clBlack, psClear, 1};

/// Corners in order.
TVectorBox Ordered(const TRect& box)
{
    const TVectorBox b = TVectorBox::Of(box);
    return {std::min(b.Left, b.Right), std::min(b.Top, b.Bottom), std::max(b.Left, b.Right), std::max(b.Top, b.Bottom)};
}

std::array<TVectorPoint, 4> CornersOf(const TVectorBox& box)
{
    return {TVectorPoint{box.Left, box.Top}, TVectorPoint{box.Right, box.Top}, TVectorPoint{box.Right, box.Bottom},
            TVectorPoint{box.Left, box.Bottom}};
}

std::vector<TVectorPoint> OvalCorners(const TVectorBox& box)
{
    const double rx = box.Width() / 2, ry = box.Height() / 2;
    const int count = std::clamp(static_cast<int>(12 * std::sqrt(std::max(rx, ry))), 24, 720);
    std::vector<TVectorPoint> corners;
    for (int i = 0; i < count; ++i) {
        const double angle = 2 * std::numbers::pi * i / count;
        corners.push_back({box.Left + rx + rx * std::cos(angle), box.Top + ry + ry * std::sin(angle)});
    }
    return corners;
}

/// A pen whose stroke lies inside a box, and what of the box it runs along. A box that is all outline becomes a
/// filling.
struct TBoxed
{
    TPenState Pen;
    TBrushState Brush;
    TVectorBox Box;

    TBoxed(const TVectorBox& box, const TPenState& pen, const TBrushState& brush, TDrawMode mode)
        : Pen(pen), Brush(brush), Box(box)
    {
        if (mode == dmXor || pen.Style == psClear) {
            Pen = NoPen;
            return;
        }
        const double width = StrokeOf(pen).Width;
        if (2 * width >= std::min(box.Width(), box.Height())) {
            Brush = {pen.Color, bsSolid};
            Pen = NoPen;
        } else {
            Box = box.Inset(width / 2);
        }
    }
};

struct TBounds
{
    TVectorBox Box{NoClip.Right * 1.0, NoClip.Bottom * 1.0, NoClip.Left * 1.0, NoClip.Top * 1.0};

    void Add(std::span<const TPoint> points, const TPenState& pen)
    {
        // Mitered corners reach furthest.
        const double margin = pen.Style == psClear ? 1 : 2 * std::max(1, pen.Width) + 1;
        for (const TPoint& p : points)
            Box = {std::min(Box.Left, p.X - margin), std::min(Box.Top, p.Y - margin), std::max(Box.Right, p.X + margin),
                   std::max(Box.Bottom, p.Y + margin)};
    }
    void Add(const TRect& box) { Add(std::array{box.TopLeft(), TPoint{box.Right, box.Bottom}}, NoPen); }

    void operator()(const TLineCommand& c) { Add(std::array{c.From, c.To}, c.Pen); }
    void operator()(const TLinesCommand& c) { Add(c.Ends, c.Pen); }
    void operator()(const TPolylineCommand& c) { Add(c.Points, c.Pen); }
    void operator()(const TPolygonCommand& c) { Add(c.Points, c.Pen); }
    void operator()(const TEllipseCommand& c) { Add(c.Box); }
    void operator()(const TRectangleCommand& c) { Add(c.Box); }
    void operator()(const TFocusRectCommand& c) { Add(c.Box); }
    void operator()(const TTextCommand&) { Add(NoClip); }
    void operator()(const TStampCommand& c)
    {
        const TRect shape = c.Shape ? DrawnBounds(*c.Shape) : TRect{};
        for (const TPoint& point : c.Points)
            Add(MoveBox(shape, point));
    }
};

TVectorBox CellOf(const TTextRun& run, double height)
{
    // Turned about its first corner; letters may stand out of the cell a little.
    const double angle = run.Font.Angle % 3600 * std::numbers::pi / 1800, slack = height / 4;
    const double width = run.Advances.empty() ? 0 : run.Advances.back();
    const TVectorBox cell = TVectorBox{0, 0, width, height}.Inset(-slack);
    std::vector<TVectorPoint> corners;
    for (const TVectorPoint& p : CornersOf(cell))
        corners.push_back({run.At.X + p.X * std::cos(angle) + p.Y * std::sin(angle),
                           run.At.Y - p.X * std::sin(angle) + p.Y * std::cos(angle)});
    return BoundsOf(corners);
}

}  // namespace

TRect DrawnBounds(const TRecording& recording)
{
    TBounds bounds;
    for (const TDrawCommand& command : recording.Commands)
        std::visit(bounds, command);
    const TVectorBox& box = bounds.Box;
    return {RoundToInt(std::floor(box.Left)), RoundToInt(std::floor(box.Top)), RoundToInt(std::ceil(box.Right)),
            RoundToInt(std::ceil(box.Bottom))};
}

void TVectorDevice::Rectangle(const TRect& box, const TPenState& pen, const TBrushState& brush, const TDrawState& state)
{
    const TVectorBox whole = Ordered(box);
    if (whole.Width() == 0 || whole.Height() == 0)
        return;
    const TBoxed boxed(whole, pen, brush, state.Mode);
    Shape(CornersOf(boxed.Box), boxed.Pen, boxed.Brush, state);
}

void TVectorDevice::Ellipse(const TRect& box, const TPenState& pen, const TBrushState& brush, const TDrawState& state)
{
    const TVectorBox whole = Ordered(box);
    const TVectorBox visible = Visible(state, 0);
    if (whole.Width() == 0 || whole.Height() == 0 || whole.Intersected(visible).IsEmpty())
        return;
    const TBoxed boxed(whole, pen, brush, state.Mode);
    const bool hasHatch = boxed.Brush.Style != bsSolid && boxed.Brush.Style != bsClear;
    if (hasHatch || !visible.Contains(whole))
        return Shape(OvalCorners(boxed.Box), boxed.Pen, boxed.Brush, state);
    const TVectorPen stroke = StrokeOf(boxed.Pen);
    const TVectorFill fill{boxed.Brush.Color, state.Mode == dmXor ? XorOpacity : 1};
    const bool isStroked = boxed.Pen.Style != psClear, isFilled = boxed.Brush.Style == bsSolid;
    if (isStroked || isFilled)
        DrawOval(boxed.Box, isStroked ? &stroke : nullptr, isFilled ? &fill : nullptr);
}

void TVectorDevice::Text(const TTextRun& run, const TDrawState& state)
{
    const TVectorBox cell = CellOf(run, FMeasurer.Height(run.Font));
    const TVectorBox visible = Visible(state, 0);
    if (run.Text.empty() || visible.IsEmpty() || cell.Intersected(visible).IsEmpty())
        return;
    const bool isWhole =
        TVectorBox::Of(state.Clip).Contains(cell) || TVectorBox::Of(state.Clip).Contains(TVectorBox::Of(FPage));
    DrawRun(run, isWhole ? nullptr : &state.Clip);
}

void TVectorDevice::Stamp(const std::shared_ptr<const TRecording>& shape, std::span<const TPoint> points,
                          const TDrawState& state)
{
    if (!shape || points.empty())
        return;
    const TRect bounds = DrawnBounds(*shape);
    const TVectorBox visible = Visible(state, 0);
    std::vector<TPoint> whole;
    // Symbols are drawn in order, since one may cover another.
    const auto drawWhole = [&] {
        if (!whole.empty())
            DrawStamps(*shape, whole);
        whole.clear();
    };
    for (const TPoint& point : points) {
        const TVectorBox box = TVectorBox::Of(MoveBox(bounds, point));
        if (visible.Contains(box)) {
            if (whole.empty() || whole.back() != point)
                whole.push_back(point);
        } else if (!box.Intersected(visible).IsEmpty()) {
            drawWhole();
            DrawStamp(*this, *shape, {&point, 1}, state);
        }
    }
    drawWhole();
}

void TVectorDevice::DrawStamps(const TRecording& shape, std::span<const TPoint> points)
{
    DrawStamp(*this, shape, points, {});
}

}  // namespace plotkit
