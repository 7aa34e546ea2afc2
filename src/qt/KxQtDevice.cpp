#include "qt/KxQtDevice.h"

#include <QPaintDevice>
#include <algorithm>
#include <cmath>

#include "qt/KxQtLines.h"

namespace plotkit {

namespace {

constexpr int WidestPen = 100000;

TRect BoundsOf(const QPainter& painter)
{
    QRectF bounds = painter.combinedTransform().inverted().mapRect(QRectF(painter.viewport()));
    if (painter.hasClipping())
        bounds &= painter.clipBoundingRect();
    const QRect whole = bounds.toAlignedRect();
    return {whole.left(), whole.top(), whole.left() + whole.width(), whole.top() + whole.height()};
}

double TargetPixelOf(const QPainter& painter)
{
    const QTransform transform = painter.deviceTransform();
    const double scale = std::hypot(transform.m11(), transform.m12());
    return scale > 0 ? 1 / scale : 1;
}

bool MovesByWholePixels(const QTransform& transform)
{
    return transform.type() <= QTransform::TxTranslate && transform.dx() == std::rint(transform.dx()) &&
           transform.dy() == std::rint(transform.dy());
}

/// Of an antialiased picture that is laid out finer than its pixels.
int FinenessOf(const QPainter& painter)
{
    const QTransform transform = painter.deviceTransform();
    const bool isPlain = transform.type() == QTransform::TxScale && transform.m11() == transform.m22() &&
                         transform.dx() == 0 && transform.dy() == 0;
    const bool isFine = transform.m11() == 1.0 / 4 || transform.m11() == 1.0 / 8;
    return isPlain && isFine && painter.testRenderHint(QPainter::Antialiasing) ? static_cast<int>(1 / transform.m11())
                                                                               : 0;
}

/// Corners in order.
TRect Ordered(const TRect& box)
{
    const auto [left, right] = std::minmax(box.Left, box.Right);
    const auto [top, bottom] = std::minmax(box.Top, box.Bottom);
    return {left, top, right, bottom};
}

QRect ToQRect(const TRect& box)
{
    return {box.Left, box.Top, box.Width(), box.Height()};
}

QRectF Inset(const TRect& box, double by)
{
    return {box.Left + by, box.Top + by, box.Width() - 2 * by, box.Height() - 2 * by};
}

/// The frame of a box as four strips without a common pixel: unlike a stroke it has whole corners when drawn smoothly,
/// and it toggles each pixel once.
void FillFrame(QPainter& painter, const TRect& box, double line, const QBrush& brush)
{
    const double width = box.Width(), sides = box.Height() - 2 * line;
    painter.fillRect(QRectF(box.Left, box.Top, width, line), brush);
    painter.fillRect(QRectF(box.Left, box.Bottom - line, width, line), brush);
    painter.fillRect(QRectF(box.Left, box.Top + line, line, sides), brush);
    painter.fillRect(QRectF(box.Right - line, box.Top + line, line, sides), brush);
}

/// A checker board of white and nothing.
QImage FocusTile(int cell)
{
    QImage tile(2 * cell, 2 * cell, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < tile.height(); ++y)
        for (int x = 0; x < tile.width(); ++x)
            tile.setPixel(x, y, (x < cell) == (y < cell) ? 0xFFFFFFFFU : 0);
    return tile;
}

}  // namespace

TQtDevice::TQtDevice(QPainter& painter, double scale)
    : FPainter(painter),
      FBrushes(scale),
      FBounds(BoundsOf(painter)),
      FTargetPixel(TargetPixelOf(painter)),
      FAntialias(painter.testRenderHint(QPainter::Antialiasing)),
      FSmooth(FAntialias || !MovesByWholePixels(painter.deviceTransform())),
      FFineness(FSmooth ? FinenessOf(painter) : 1)
{}

bool TQtDevice::Begin(const TDrawState& state)
{
    const TDrawState visible{state.Mode, state.Clip.Intersected(FBounds)};
    if (visible.Clip.IsEmpty())
        return false;
    if (!FState || FState->Mode != visible.Mode) {
        const bool isXor = visible.Mode == dmXor;
        FPainter.setCompositionMode(isXor ? QPainter::RasterOp_SourceXorDestination
                                          : QPainter::CompositionMode_SourceOver);
        // Exclusive-or undoes itself only where pixels are toggled whole.
        FPainter.setRenderHint(QPainter::Antialiasing, FAntialias && !isXor);
    }
    // A clip is always set, even the whole image: thin lines are twice as fast then.
    if (!FState || FState->Clip != visible.Clip)
        FPainter.setClipRect(ToQRect(visible.Clip));
    FState = visible;
    return true;
}

bool TQtDevice::IsThin(const TPenState& pen) const
{
    return !FSmooth && pen.Width <= 1;
}

double TQtDevice::StrokeWidth(const TPenState& pen) const
{
    return std::max(FTargetPixel, static_cast<double>(std::clamp(pen.Width, 1, WidestPen)));
}

/// Strokes are centred on coordinates: an odd number of target pixels fills whole ones when moved by half of one.
double TQtDevice::StrokeShift(const TPenState& pen) const
{
    return std::lround(StrokeWidth(pen) / FTargetPixel) % 2 != 0 ? FTargetPixel / 2 : 0;
}

void TQtDevice::SetStroke(const TPenState& pen, Qt::PenCapStyle cap, Qt::PenJoinStyle join)
{
    if (FStroke == pen && FCap == cap && FJoin == join)
        return;
    QPen stroke(QtColor(pen.Color), IsThin(pen) ? 0 : StrokeWidth(pen), Qt::SolidLine, cap, join);
    if (IsDashed(pen.Style))
        stroke.setDashPattern(QtDashPattern(pen.Style));
    FPainter.setPen(stroke);
    FStroke = pen;
    FCap = cap;
    FJoin = join;
}

void TQtDevice::SetStrokeOnly(const TPenState& pen, Qt::PenCapStyle cap)
{
    SetStroke(pen, cap);
    FPainter.setBrush(Qt::NoBrush);
}

void TQtDevice::SetFillOnly(const TBrushState& brush)
{
    FPainter.setPen(Qt::NoPen);
    FStroke.reset();
    FPainter.setBrush(FBrushes.Brush(brush));
}

void TQtDevice::Rectangle(const TRect& box, const TPenState& pen, const TBrushState& brush, const TDrawState& state)
{
    const TRect drawn = Near(Ordered(box));
    if (drawn.IsEmpty() || !Begin(state))
        return;
    if (pen.Style == psClear) {
        if (brush.Style != bsClear)
            FPainter.fillRect(ToQRect(drawn), FBrushes.Brush(brush));
    } else if (IsThin(pen)) {
        ThinRectangle(drawn, pen, brush, state.Mode);
    } else {
        WideRectangle(drawn, pen, brush);
    }
}

void TQtDevice::ThinRectangle(const TRect& box, const TPenState& pen, const TBrushState& brush, TDrawMode mode)
{
    const bool isDashed = IsDashed(pen.Style);
    if (!isDashed && FillPixels(box, pen.Color, brush))
        return;
    // The gaps of a dashed frame show the filling, unless both would toggle the same pixels.
    const int border = isDashed && mode == dmCopy ? 0 : 1;
    const TRect inside{box.Left + border, box.Top + border, box.Right - border, box.Bottom - border};
    if (brush.Style != bsClear && !inside.IsEmpty())
        FPainter.fillRect(ToQRect(inside), FBrushes.Brush(brush));
    if (box.Width() == 1 || box.Height() == 1) {
        if (!isDashed) {
            FPainter.fillRect(ToQRect(box), QtColor(pen.Color));
            return;
        }
        SetStrokeOnly(pen, Qt::FlatCap);
        const bool isColumn = box.Width() == 1;
        ThinLine(box.TopLeft(), {box.Left + (isColumn ? 0 : box.Width()), box.Top + (isColumn ? box.Height() : 0)},
                 false);
        return;
    }
    SetStrokeOnly(pen, Qt::FlatCap);
    FPainter.drawRect(box.Left, box.Top, box.Width() - 1, box.Height() - 1);
}

void TQtDevice::WideRectangle(const TRect& box, const TPenState& pen, const TBrushState& brush)
{
    const double width = StrokeWidth(pen);
    if (width * 2 >= std::min(box.Width(), box.Height()) && !IsDashed(pen.Style)) {
        FPainter.fillRect(ToQRect(box), QtColor(pen.Color));
        return;
    }
    const bool isDashed = IsDashed(pen.Style);
    const QRectF inside = Inset(box, isDashed && FState->Mode == dmCopy ? 0 : width);
    if (brush.Style != bsClear && inside.isValid())
        FPainter.fillRect(inside, FBrushes.Brush(brush));
    if (!isDashed)
        return FillFrame(FPainter, box, width, QtColor(pen.Color));
    SetStrokeOnly(pen, Qt::FlatCap);
    FPainter.drawRect(Inset(box, width / 2));
}

void TQtDevice::Ellipse(const TRect& box, const TPenState& pen, const TBrushState& brush, const TDrawState& state)
{
    const TRect drawn = Near(Ordered(box));
    if (drawn.IsEmpty())
        return;
    if (FSmooth || (pen.Style != psClear && !IsThin(pen))) {
        if (Begin(state))
            WideEllipse(drawn, pen, brush);
        return;
    }
    if (drawn.Width() == 1 || drawn.Height() == 1)
        return Rectangle(drawn, pen, brush, state);
    // A flat ellipse of a painter can be a pixel too wide.
    if (Begin({state.Mode, state.Clip.Intersected(drawn)}))
        ThinEllipse(drawn, pen, brush, state.Mode);
}

void TQtDevice::ThinEllipse(const TRect& box, const TPenState& pen, const TBrushState& brush, TDrawMode mode)
{
    const QRect inside(box.Left, box.Top, box.Width() - 1, box.Height() - 1);
    if (brush.Style != bsClear) {
        SetFillOnly(brush);
        // Without an outline the fill would lack its top row.
        if (mode == dmCopy)
            FPainter.setPen(QPen(FBrushes.Brush(brush), 0));
        FPainter.drawEllipse(inside);
    }
    if (pen.Style != psClear) {
        SetStrokeOnly(pen, Qt::FlatCap);
        FPainter.drawEllipse(inside);
    }
}

void TQtDevice::WideEllipse(const TRect& box, const TPenState& pen, const TBrushState& brush)
{
    const bool hasPen = pen.Style != psClear;
    const double width = hasPen ? StrokeWidth(pen) : 0;
    if (hasPen && width * 2 >= std::min(box.Width(), box.Height())) {
        SetFillOnly({pen.Color, bsSolid});
        FPainter.drawEllipse(Inset(box, 0));
        return;
    }
    if (brush.Style != bsClear) {
        SetFillOnly(brush);
        FPainter.drawEllipse(Inset(box, FState->Mode == dmXor ? width : width / 2));
    }
    if (hasPen) {
        SetStrokeOnly(pen, Qt::FlatCap);
        FPainter.drawEllipse(Inset(box, width / 2));
    }
}

void TQtDevice::FocusRect(const TRect& box, const TDrawState& state)
{
    const TRect outer = Near(Ordered(box));
    if (outer.IsEmpty() || !Begin({dmXor, state.Clip}))
        return;
    const int line = std::max(1, static_cast<int>(std::lround(FBrushes.Scale())));
    const QBrush dots(FocusTile(line));
    if (outer.Width() <= 2 * line || outer.Height() <= 2 * line) {
        FPainter.fillRect(ToQRect(outer), dots);
        return;
    }
    FillFrame(FPainter, outer, line, dots);
}

}  // namespace plotkit
