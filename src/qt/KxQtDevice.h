// The job of KxQtDevice is to draw on a QPainter with the exact pixels that a drawing device promises.
#pragma once

#include <QPainter>
#include <optional>

#include "host/DrawDevice.h"
#include "qt/KxQtPen.h"

class QImage;

namespace plotkit {

/// Draws on a painter that is active for the device's whole life. On a raster image without antialiasing and without
/// transform but whole-pixel moves, the pixels are exactly those that TDrawDevice promises, in exclusive-or mode too
/// (the image must be opaque). With antialiasing or a scale the same shapes are drawn smoothly: for a picture of scale
/// n·s drawn through `painter.scale(1 / n, 1 / n)`, lines on multiples of n are sharp.
///
/// Boxes may have their corners in any order. Of a pen wider than a pixel the ends of a solid line reach half its width
/// further. psInsideFrame draws as psSolid, since shapes in boxes stay inside anyway. The painter's pen, brush, clip
/// and modes are left as the last call set them; a clip that it has at the beginning is kept to.
class TQtDevice : public TDrawDevice
{
public:
    /// `scale`: device pixels per 1/96 inch, what hatches and focus rectangles are sized with.
    explicit TQtDevice(QPainter& painter, double scale = 1);

    void Line(TPoint from, TPoint to, const TPenState& pen, const TDrawState& state) override;
    void Lines(std::span<const TPoint> ends, const TPenState& pen, const TDrawState& state) override;
    void Polyline(std::span<const TPoint> points, const TPenState& pen, const TDrawState& state) override;
    void Polygon(std::span<const TPoint> points, const TPenState& pen, const TBrushState& brush,
                 const TDrawState& state) override;
    void Ellipse(const TRect& box, const TPenState& pen, const TBrushState& brush, const TDrawState& state) override;
    void Rectangle(const TRect& box, const TPenState& pen, const TBrushState& brush, const TDrawState& state) override;
    void FocusRect(const TRect& box, const TDrawState& state) override;
    /// In one run with even spacing where that agrees with the given advances, otherwise character by character.
    void Text(const TTextRun& run, const TDrawState& state) override;
    void Stamp(const std::shared_ptr<const TRecording>& shape, std::span<const TPoint> points,
               const TDrawState& state) override;

private:
    /// Sets mode and clip; false when nothing can be seen.
    bool Begin(const TDrawState& state);
    void SetStroke(const TPenState& pen, Qt::PenCapStyle cap, Qt::PenJoinStyle join = Qt::MiterJoin);
    void SetStrokeOnly(const TPenState& pen, Qt::PenCapStyle cap);
    void SetFillOnly(const TBrushState& brush);
    bool IsThin(const TPenState& pen) const;
    double StrokeWidth(const TPenState& pen) const;
    double StrokeShift(const TPenState& pen) const;

    void Dot(QPointF at, const TPenState& pen);
    /// A thin solid line along a row or column, set pixel by pixel; false when that cannot be.
    bool DrawStraight(TPoint from, TPoint to, const TPenState& pen, TDrawMode mode);
    void Point(TPoint at, const TPenState& pen);
    void ThinLine(TPoint from, TPoint to, bool mirrored);
    void WideLine(TPoint from, TPoint to, const TPenState& pen);
    void ThinPolyline(std::span<const TPoint> points, const TPenState& pen, TDrawMode mode);
    void WidePolyline(std::span<const TPoint> points, const TPenState& pen, TDrawMode mode);
    bool StrokePixels(std::span<const TPoint> points, const TPenState& pen);
    void StrokePieces(const QPolygonF& points, const TPenState& pen);
    void FillPolygon(std::span<const TPoint> points, const TPenState& pen, const TBrushState& brush);
    void OutlinePolygon(std::span<const TPoint> points, const TPenState& pen);
    void ThinRectangle(const TRect& box, const TPenState& pen, const TBrushState& brush, TDrawMode mode);
    /// A box with a thin solid border, set pixel by pixel; false when that cannot be.
    bool FillPixels(const TRect& box, TColor border, const TBrushState& brush);
    void WideRectangle(const TRect& box, const TPenState& pen, const TBrushState& brush);
    void ThinEllipse(const TRect& box, const TPenState& pen, const TBrushState& brush, TDrawMode mode);
    void WideEllipse(const TRect& box, const TPenState& pen, const TBrushState& brush);
    void DrawRun(const TTextRun& run);

    /// The image that the painter draws on, when its pixels can be written directly; where its origin stands there; and
    /// the same when a pixel of the calls is one of the image.
    QImage* OpenImage() const;
    QImage* WritableImage() const { return FFineness == 1 ? OpenImage() : nullptr; }
    TPoint OriginInImage() const;

    QPainter& FPainter;
    TQtBrushes FBrushes;
    TRect FBounds;        ///< of the target, in the coordinates of the calls
    double FTargetPixel;  ///< the side of a pixel of the target, in the coordinates of the calls
    bool FAntialias;
    bool FSmooth;   ///< antialiased or scaled
    int FFineness;  ///< pixels of the calls to one of the target, where that is a simple matter, 0 where it is not
    std::optional<TDrawState> FState;
    std::optional<TPenState> FStroke;
    Qt::PenCapStyle FCap = Qt::FlatCap;
    Qt::PenJoinStyle FJoin = Qt::MiterJoin;
};

}  // namespace plotkit
