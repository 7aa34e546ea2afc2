#include "host/CommandBox.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "host/CheckedMath.h"
#include "host/PixelMath.h"

namespace plotkit {

namespace {

TRect Widened(const TRect& box, int by)
{
    return {AddPixels(box.Left, -by), AddPixels(box.Top, -by), AddPixels(box.Right, by), AddPixels(box.Bottom, by)};
}

TRect Around(std::span<const TPoint> points, int reach)
{
    if (points.empty())
        return {};
    TRect box{points[0].X, points[0].Y, points[0].X, points[0].Y};
    for (const TPoint& p : points)
        box = {std::min(box.Left, p.X), std::min(box.Top, p.Y), std::max(box.Right, p.X), std::max(box.Bottom, p.Y)};
    return Widened(box, reach);
}

TRect AroundBox(const TRect& box)
{
    const std::array corners{box.TopLeft(), TPoint{box.Right, box.Bottom}};
    return Around(corners, 1);
}

/// Letters may reach out of the cell; no further than their size.
TRect AroundText(const TTextRun& run)
{
    const double size = 2 * run.Font.PixelSize() + 2;
    const double length = run.Advances.empty() ? size * static_cast<double>(run.Text.size()) : run.Advances.back();
    const double angle = -run.Font.Angle % 3600 * std::numbers::pi / 1800;
    const double along = std::cos(angle), across = std::sin(angle);
    std::array<TPoint, 4> corners;
    std::size_t i = 0;
    for (const double x : {-size, length + size})
        for (const double y : {-size, 2 * size})
            corners[i++] = MovePoint(run.At, {RoundToInt(x * along - y * across), RoundToInt(x * across + y * along)});
    return Around(corners, 2);
}

struct TReach
{
    TRect operator()(const TLineCommand& c) const
    {
        const std::array ends{c.From, c.To};
        return Around(ends, LineReach(c.Pen.Width));
    }
    TRect operator()(const TLinesCommand& c) const { return Around(c.Ends, LineReach(c.Pen.Width)); }
    TRect operator()(const TPolylineCommand& c) const { return Around(c.Points, LineReach(c.Pen.Width)); }
    TRect operator()(const TPolygonCommand& c) const { return Around(c.Points, LineReach(c.Pen.Width)); }
    TRect operator()(const TEllipseCommand& c) const { return AroundBox(c.Box); }
    TRect operator()(const TRectangleCommand& c) const { return AroundBox(c.Box); }
    TRect operator()(const TFocusRectCommand& c) const { return AroundBox(c.Box); }
    TRect operator()(const TTextCommand& c) const { return AroundText(c.Run); }
    TRect operator()(const TStampCommand& c) const
    {
        if (!c.Shape || c.Points.empty())
            return {};
        const TRect at = Around(c.Points, 0);
        TRect box = at;
        for (const TDrawCommand& command : c.Shape->Commands) {
            const TRect shape = std::visit(TReach(), command);
            box = {std::min(box.Left, AddPixels(at.Left, shape.Left)), std::min(box.Top, AddPixels(at.Top, shape.Top)),
                   std::max(box.Right, AddPixels(at.Right, shape.Right)),
                   std::max(box.Bottom, AddPixels(at.Bottom, shape.Bottom))};
        }
        return box;
    }
};

/// The thickness of an empty frame; 0 for what has something inside.
int FrameThickness(const TDrawCommand& command)
{
    constexpr int DotSize = 32;  // of a focus rectangle at the largest usual resolution
    if (std::holds_alternative<TFocusRectCommand>(command))
        return DotSize;
    const auto* box = std::get_if<TRectangleCommand>(&command);
    return box && box->Brush.Style == bsClear ? LineReach(box->Pen.Width) : 0;
}

}  // namespace

TRect CommandBox(const TDrawCommand& command)
{
    return std::visit(TReach(), command).Intersected(std::visit([](const auto& c) { return c.State.Clip; }, command));
}

void AddCommandBoxes(const TDrawCommand& command, std::vector<TRect>& boxes)
{
    const TRect box = CommandBox(command);
    const int line = FrameThickness(command);
    if (line == 0 || box.Width() <= 2 * line || box.Height() <= 2 * line) {
        boxes.push_back(box);
        return;
    }
    const TRect frame = std::visit(TReach(), command);
    for (const TRect& side : {TRect{frame.Left, frame.Top, frame.Right, AddPixels(frame.Top, line + 1)},
                              TRect{frame.Left, AddPixels(frame.Bottom, -line - 1), frame.Right, frame.Bottom},
                              TRect{frame.Left, frame.Top, AddPixels(frame.Left, line + 1), frame.Bottom},
                              TRect{AddPixels(frame.Right, -line - 1), frame.Top, frame.Right, frame.Bottom}})
        if (const TRect seen = side.Intersected(box); !seen.IsEmpty())
            boxes.push_back(seen);
}

}  // namespace plotkit
