// The job of Recording is to keep drawing commands as values: compared in tests, replayed on devices, printed as text.
#pragma once

#include <string>
#include <variant>

#include "host/DrawDevice.h"

namespace plotkit {

struct TLineCommand
{
    TPoint From, To;
    TPenState Pen;
    TDrawState State;
    friend bool operator==(const TLineCommand&, const TLineCommand&) = default;
};
struct TLinesCommand
{
    std::vector<TPoint> Ends;
    TPenState Pen;
    TDrawState State;
    friend bool operator==(const TLinesCommand&, const TLinesCommand&) = default;
};
struct TPolylineCommand
{
    std::vector<TPoint> Points;
    TPenState Pen;
    TDrawState State;
    friend bool operator==(const TPolylineCommand&, const TPolylineCommand&) = default;
};
struct TPolygonCommand
{
    std::vector<TPoint> Points;
    TPenState Pen;
    TBrushState Brush;
    TDrawState State;
    friend bool operator==(const TPolygonCommand&, const TPolygonCommand&) = default;
};
struct TEllipseCommand
{
    TRect Box;
    TPenState Pen;
    TBrushState Brush;
    TDrawState State;
    friend bool operator==(const TEllipseCommand&, const TEllipseCommand&) = default;
};
struct TRectangleCommand
{
    TRect Box;
    TPenState Pen;
    TBrushState Brush;
    TDrawState State;
    friend bool operator==(const TRectangleCommand&, const TRectangleCommand&) = default;
};
struct TFocusRectCommand
{
    TRect Box;
    TDrawState State;
    friend bool operator==(const TFocusRectCommand&, const TFocusRectCommand&) = default;
};
struct TTextCommand
{
    TTextRun Run;
    TDrawState State;
    friend bool operator==(const TTextCommand&, const TTextCommand&) = default;
};
/// Shapes compare by their commands.
struct TStampCommand
{
    std::shared_ptr<const TRecording> Shape;
    std::vector<TPoint> Points;
    TDrawState State;
    friend bool operator==(const TStampCommand& a, const TStampCommand& b);
};

using TDrawCommand = std::variant<TLineCommand, TLinesCommand, TPolylineCommand, TPolygonCommand, TEllipseCommand,
                                  TRectangleCommand, TFocusRectCommand, TTextCommand, TStampCommand>;

class TRecording : public TDrawDevice
{
public:
    std::vector<TDrawCommand> Commands;

    void Line(TPoint from, TPoint to, const TPenState& pen, const TDrawState& state) override;
    void Lines(std::span<const TPoint> ends, const TPenState& pen, const TDrawState& state) override;
    void Polyline(std::span<const TPoint> points, const TPenState& pen, const TDrawState& state) override;
    void Polygon(std::span<const TPoint> points, const TPenState& pen, const TBrushState& brush,
                 const TDrawState& state) override;
    void Ellipse(const TRect& box, const TPenState& pen, const TBrushState& brush, const TDrawState& state) override;
    void Rectangle(const TRect& box, const TPenState& pen, const TBrushState& brush, const TDrawState& state) override;
    void FocusRect(const TRect& box, const TDrawState& state) override;
    void Text(const TTextRun& run, const TDrawState& state) override;
    void Stamp(const std::shared_ptr<const TRecording>& shape, std::span<const TPoint> points,
               const TDrawState& state) override;

    /// Draws the commands, moved by `shift`, on another device; a filling that the next one covers is left out.
    void Replay(TDrawDevice& device, TPoint shift = {}) const;
    /// One line per command, for people and for comparison with kept files.
    std::string ToText() const;
    /// The same picture with every stamp and every set of lines written out as the commands they stand for.
    TRecording Expanded() const;
    void Clear() { Commands.clear(); }

    friend bool operator==(const TRecording& a, const TRecording& b) { return a.Commands == b.Commands; }

protected:
    virtual void Add(TDrawCommand command) { Commands.push_back(std::move(command)); }
};

/// Draws what a stamp stands for, command by command, with the clip of `state`: for devices without a way of their own.
void DrawStamp(TDrawDevice& device, const TRecording& shape, std::span<const TPoint> points, const TDrawState& state);

/// What was drawn outside a paint (a zoom rectangle, markers). It is replayed after the picture; an exclusive-or
/// command that is recorded again takes its twin away.
class TOverlay : public TRecording
{
protected:
    void Add(TDrawCommand command) override;
};

}  // namespace plotkit
