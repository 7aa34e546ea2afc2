// The job of VectorDevice is to turn drawing commands into a few plain shapes, cut at their clips, for formats that
// keep shapes instead of pixels.
#pragma once

#include "host/ClipGeometry.h"
#include "host/PenPattern.h"
#include "host/TextMeasurer.h"

namespace plotkit {

/// Lines and outlines are cut geometrically, hatches are lines, so that no more than text and
/// the ends of wide lines are ever left to a format's own clipping. Exclusive-or has no like in such formats: areas
/// become as transparent as XorOpacity, lines and focus rectangles, which only ever mark something for a moment, are
/// left out.
class TVectorDevice : public TDrawDevice
{
public:
    static constexpr double XorOpacity = 0.45;

    /// `page`: what can be seen at all; `scale`: device pixels per 1/96 inch. The measurer outlives the device.
    TVectorDevice(const TRect& page, double scale, const TTextMeasurer& measurer);

    void Line(TPoint from, TPoint to, const TPenState& pen, const TDrawState& state) override;
    void Polyline(std::span<const TPoint> points, const TPenState& pen, const TDrawState& state) override;
    void Polygon(std::span<const TPoint> points, const TPenState& pen, const TBrushState& brush,
                 const TDrawState& state) override;
    void Ellipse(const TRect& box, const TPenState& pen, const TBrushState& brush, const TDrawState& state) override;
    void Rectangle(const TRect& box, const TPenState& pen, const TBrushState& brush, const TDrawState& state) override;
    void FocusRect(const TRect&, const TDrawState&) override {}
    void Text(const TTextRun& run, const TDrawState& state) override;
    void Stamp(const std::shared_ptr<const TRecording>& shape, std::span<const TPoint> points,
               const TDrawState& state) override;

protected:
    /// A pen, a filling or both. With `clip` the ends of a wide line are still to be cut off straight.
    virtual void DrawPath(const TVectorPath& path, const TVectorPen* pen, const TVectorFill* fill,
                          const TRect* clip) = 0;
    virtual void DrawOval(const TVectorBox& box, const TVectorPen* pen, const TVectorFill* fill) = 0;
    /// `clip`: nullptr when the whole run can be seen.
    virtual void DrawRun(const TTextRun& run, const TRect* clip) = 0;
    /// The same shape at points where it is seen whole.
    virtual void DrawStamps(const TRecording& shape, std::span<const TPoint> points);

    const TRect& Page() const { return FPage; }
    double Scale() const { return FScale; }
    const TTextMeasurer& Measurer() const { return FMeasurer; }

private:
    TVectorBox Visible(const TDrawState& state, double margin) const;
    void DrawPiece(std::span<const TVectorPoint> points, const TDrawState& state, const TVectorPen& pen);
    void DrawCut(const TCutPiece& piece, TVectorPen pen, const TRect* clip);
    void DrawOne(std::span<const TVectorPoint> points, bool closed, const TVectorPen* pen, const TVectorFill* fill,
                 const TRect* clip = nullptr);
    void Fill(std::span<const TVectorPoint> corners, const TVectorBox& visible, const TBrushState& brush,
              TDrawMode mode);
    void Shape(std::span<const TVectorPoint> corners, const TPenState& pen, const TBrushState& brush,
               const TDrawState& state);
    void Dot(TVectorPoint at, const TPenState& pen, const TVectorBox& visible);

    TRect FPage;
    double FScale;
    const TTextMeasurer& FMeasurer;
    std::vector<TPoint> FKept, FMerged;
    std::vector<TVectorPoint> FPiece;
    TVectorPath FPath;
};

/// What a recording may touch, pens with it; everything when texts are in it.
TRect DrawnBounds(const TRecording& recording);

}  // namespace plotkit
