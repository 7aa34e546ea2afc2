// The job of Canvas is the stateful drawing surface that components see: pen, brush, font, pen position, origin and
// clip.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "host/DrawDevice.h"
#include "host/TextMeasurer.h"

namespace plotkit {

/// Width in 1/96 inch; the canvas turns it into device pixels.
struct TPen
{
    TColor Color = clBlack;
    TPenStyle Style = psSolid;
    int Width = 1;
    TDrawMode Mode = dmCopy;
};

class TBrush
{
public:
    TColor Color() const { return FState.Color; }
    /// Makes a clear brush solid.
    void SetColor(TColor color);
    TBrushStyle Style() const { return FState.Style; }
    void SetStyle(TBrushStyle style) { FState.Style = style; }
    const TBrushState& State() const { return FState; }

private:
    TBrushState FState;
};

/// Whole device pixels of `value` 1/96 inches: to nearest, ties to even, sign kept, never 0 for a value other than 0.
int ScalePixels(int value, double scale);

class TCanvas
{
public:
    /// `scale`: device pixels per 1/96 inch.
    TCanvas(TDrawDevice& device, const TTextMeasurer& measurer, double scale = 1);

    TPen Pen;
    TBrush Brush;
    TFontState Font;

    TDrawDevice& Device() const { return *FDevice; }
    const TTextMeasurer& Measurer() const { return *FMeasurer; }
    double Scale() const { return FScale; }

    /// Device pixel of the point (0, 0).
    TPoint Origin() const { return FOrigin; }
    void SetOrigin(TPoint origin) { FOrigin = origin; }

    /// The box that drawing is restricted to, in the coordinates of the current origin; NoClip when there is none.
    TRect ClipRect() const;
    /// Replaces the clip; it never reaches beyond the window clip.
    void SetClipRect(const TRect& clip);
    void IntersectClipRect(const TRect& clip);
    void RemoveClip() { FClip = NoClip; }
    /// The outermost clip in device pixels, that of the window that is painted.
    const TRect& WindowClip() const { return FWindowClip; }
    void SetWindowClip(const TRect& clip) { FWindowClip = clip; }

    TPoint PenPos() const { return FPenPos; }
    void MoveTo(int x, int y) { FPenPos = {x, y}; }
    /// The end pixel is not drawn; the pen moves there.
    void LineTo(int x, int y);
    /// Separate lines, two points each, as `MoveTo` and `LineTo` draw them; the pen position stays.
    void Lines(std::span<const TPoint> ends);
    void Polyline(std::span<const TPoint> points);
    void Polygon(std::span<const TPoint> points);
    void Ellipse(int left, int top, int right, int bottom);
    void Rectangle(int left, int top, int right, int bottom);
    /// With the brush alone, in the pen's mode.
    void FillRect(const TRect& box);
    void FocusRect(const TRect& box);
    /// `x`, `y`: top left corner of the first cell; `advances` as in TTextRun, measured character by character when
    /// left out. The cell is filled unless the brush is clear. Text is always copied, whatever the pen's mode.
    void TextOut(int x, int y, std::string_view text, std::span<const std::int32_t> advances = {});
    void Stamp(const std::shared_ptr<const TRecording>& shape, std::span<const TPoint> points);

    int TextWidth(std::string_view text) const { return FMeasurer->Width(text, Font); }
    int TextHeight(std::string_view text) const;

    /// Pen as a device gets it: at scale 1 the width as it stands, otherwise 0 and 1 become the width of one pixel.
    TPenState DevicePen() const;
    TDrawState DeviceState() const;

private:
    std::span<const TPoint> Shifted(std::span<const TPoint> points);

    TDrawDevice* FDevice;
    const TTextMeasurer* FMeasurer;
    double FScale;
    TPoint FOrigin;
    TRect FClip = NoClip;  ///< device pixels
    TRect FWindowClip = NoClip;
    TPoint FPenPos;
    std::vector<TPoint> FShifted;
};

}  // namespace plotkit
