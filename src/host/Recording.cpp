#include "host/Recording.h"

#include <algorithm>

#include "host/PixelMath.h"

namespace plotkit {

namespace {

/// Points moved, without a copy where they stay in place.
class TMovedPoints
{
public:
    TMovedPoints(std::span<const TPoint> points, TPoint by) : FPoints(points)
    {
        if (by == TPoint{})
            return;
        FMoved.assign(points.begin(), points.end());
        for (TPoint& point : FMoved)
            point = MovePoint(point, by);
        FPoints = FMoved;
    }
    TMovedPoints(const TMovedPoints&) = delete;
    TMovedPoints& operator=(const TMovedPoints&) = delete;

    operator std::span<const TPoint>() const { return FPoints; }

private:
    std::vector<TPoint> FMoved;
    std::span<const TPoint> FPoints;
};

/// Draws commands, moved, on a device. With `clip` set it takes the place of the commands' own clips.
struct TReplayer
{
    TDrawDevice& Device;
    TPoint Shift;
    const TRect* Clip = nullptr;

    TDrawState Moved(const TDrawState& state) const { return {state.Mode, Clip ? *Clip : MoveClip(state.Clip, Shift)}; }

    void operator()(const TLineCommand& c) const
    {
        Device.Line(MovePoint(c.From, Shift), MovePoint(c.To, Shift), c.Pen, Moved(c.State));
    }
    void operator()(const TLinesCommand& c) const
    {
        Device.Lines(TMovedPoints(c.Ends, Shift), c.Pen, Moved(c.State));
    }
    void operator()(const TPolylineCommand& c) const
    {
        Device.Polyline(TMovedPoints(c.Points, Shift), c.Pen, Moved(c.State));
    }
    void operator()(const TPolygonCommand& c) const
    {
        Device.Polygon(TMovedPoints(c.Points, Shift), c.Pen, c.Brush, Moved(c.State));
    }
    void operator()(const TEllipseCommand& c) const
    {
        Device.Ellipse(MoveBox(c.Box, Shift), c.Pen, c.Brush, Moved(c.State));
    }
    void operator()(const TRectangleCommand& c) const
    {
        Device.Rectangle(MoveBox(c.Box, Shift), c.Pen, c.Brush, Moved(c.State));
    }
    void operator()(const TFocusRectCommand& c) const { Device.FocusRect(MoveBox(c.Box, Shift), Moved(c.State)); }
    void operator()(const TTextCommand& c) const
    {
        TTextRun run = c.Run;
        run.At = MovePoint(run.At, Shift);
        Device.Text(run, Moved(c.State));
    }
    void operator()(const TStampCommand& c) const
    {
        Device.Stamp(c.Shape, TMovedPoints(c.Points, Shift), Moved(c.State));
    }
};

class TExpander : public TRecording
{
public:
    void Lines(std::span<const TPoint> ends, const TPenState& pen, const TDrawState& state) override
    {
        TDrawDevice::Lines(ends, pen, state);
    }
    void Stamp(const std::shared_ptr<const TRecording>& shape, std::span<const TPoint> points,
               const TDrawState& state) override
    {
        DrawStamp(*this, *shape, points, state);
    }
};

/// A filling of whole pixels; nullptr for other commands.
const TRectangleCommand* AsFill(const TDrawCommand& command)
{
    const auto* box = std::get_if<TRectangleCommand>(&command);
    const bool isFill = box && box->Pen.Style == psClear && box->Brush.Style == bsSolid && box->State.Mode == dmCopy;
    return isFill ? box : nullptr;
}

/// Whether nothing is left to be seen of a filling when the next command is drawn: a form under its graph.
bool IsCovered(const TDrawCommand& command, const TDrawCommand& next)
{
    const TRectangleCommand *const below = AsFill(command), *const above = below ? AsFill(next) : nullptr;
    if (!above)
        return false;
    const TRect seen = below->Box.Intersected(below->State.Clip);
    return seen.IsEmpty() || seen.Intersected(above->Box).Intersected(above->State.Clip) == seen;
}

bool RemovesItself(const TDrawCommand& command)
{
    return std::holds_alternative<TFocusRectCommand>(command) ||
           std::visit([](const auto& c) { return c.State.Mode == dmXor; }, command);
}

}  // namespace

bool operator==(const TStampCommand& a, const TStampCommand& b)
{
    if (a.Points != b.Points || a.State != b.State)
        return false;
    return a.Shape == b.Shape || (a.Shape && b.Shape && *a.Shape == *b.Shape);
}

void TRecording::Line(TPoint from, TPoint to, const TPenState& pen, const TDrawState& state)
{
    Add(TLineCommand{from, to, pen, state});
}

void TRecording::Lines(std::span<const TPoint> ends, const TPenState& pen, const TDrawState& state)
{
    Add(TLinesCommand{{ends.begin(), ends.end()}, pen, state});
}

void TRecording::Polyline(std::span<const TPoint> points, const TPenState& pen, const TDrawState& state)
{
    Add(TPolylineCommand{{points.begin(), points.end()}, pen, state});
}

void TRecording::Polygon(std::span<const TPoint> points, const TPenState& pen, const TBrushState& brush,
                         const TDrawState& state)
{
    Add(TPolygonCommand{{points.begin(), points.end()}, pen, brush, state});
}

void TRecording::Ellipse(const TRect& box, const TPenState& pen, const TBrushState& brush, const TDrawState& state)
{
    Add(TEllipseCommand{box, pen, brush, state});
}

void TRecording::Rectangle(const TRect& box, const TPenState& pen, const TBrushState& brush, const TDrawState& state)
{
    Add(TRectangleCommand{box, pen, brush, state});
}

void TRecording::FocusRect(const TRect& box, const TDrawState& state)
{
    Add(TFocusRectCommand{box, state});
}

void TRecording::Text(const TTextRun& run, const TDrawState& state)
{
    Add(TTextCommand{run, state});
}

void TRecording::Stamp(const std::shared_ptr<const TRecording>& shape, std::span<const TPoint> points,
                       const TDrawState& state)
{
    Add(TStampCommand{shape, {points.begin(), points.end()}, state});
}

void TRecording::Replay(TDrawDevice& device, TPoint shift) const
{
    // On itself a recording grows while it is read.
    const auto copy = &device == this ? Commands : std::vector<TDrawCommand>();
    const TReplayer replayer{device, shift};
    const std::span<const TDrawCommand> commands = &device == this ? copy : Commands;
    for (std::size_t i = 0; i < commands.size(); ++i)
        if (i + 1 == commands.size() || !IsCovered(commands[i], commands[i + 1]))
            std::visit(replayer, commands[i]);
}

TRecording TRecording::Expanded() const
{
    TExpander expander;
    Replay(expander);
    TRecording result;
    result.Commands = std::move(expander.Commands);
    return result;
}

void DrawStamp(TDrawDevice& device, const TRecording& shape, std::span<const TPoint> points, const TDrawState& state)
{
    for (const TPoint& point : points) {
        const TReplayer replayer{device, point, &state.Clip};
        for (const TDrawCommand& command : shape.Commands)
            std::visit(replayer, command);
    }
}

void TOverlay::Add(TDrawCommand command)
{
    if (RemovesItself(command)) {
        const auto twin = std::find(Commands.rbegin(), Commands.rend(), command);
        if (twin != Commands.rend()) {
            Commands.erase(std::next(twin).base());
            return;
        }
    }
    TRecording::Add(std::move(command));
}

}  // namespace plotkit
