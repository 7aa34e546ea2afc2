#include <QImage>
#include <algorithm>

#include "qt/KxQtDevice.h"
#include "qt/KxQtLines.h"
#include "qt/KxQtSprite.h"

namespace plotkit {

namespace {

/// Below, making a sprite costs more than it saves.
constexpr std::size_t FewPoints = 4;

bool IsInside(const TRect& inner, const TRect& outer)
{
    return inner.Intersected(outer) == inner;
}

/// Sets, or toggles in exclusive-or mode, the pixels of lines along rows and columns.
class TPixelRuns
{
public:
    TPixelRuns(QImage& image, QRgb color, TPoint origin, const TRect& clip, TDrawMode mode = dmCopy)
        : FBits(image.bits()),
          FStride(image.bytesPerLine()),
          FKept(mode == dmXor ? 0xFFFFFFFF : 0),
          FColor(mode == dmXor ? color & 0xFFFFFF : color),
          FOrigin(origin),
          FClip(clip.Intersected(TRect{0, 0, image.width(), image.height()}.Shifted({-origin.X, -origin.Y})))
    {}

    /// False for a line in another direction.
    bool Draw(TPoint from, TPoint to) const
    {
        if (from.Y == to.Y)
            DrawRow(from.Y, std::min(from.X, to.X + 1), std::max(from.X + 1, to.X));
        else if (from.X == to.X)
            DrawColumn(from.X, std::min(from.Y, to.Y + 1), std::max(from.Y + 1, to.Y));
        else
            return false;
        return true;
    }

    void Fill(const TRect& box) const
    {
        const TRect seen = box.Intersected(FClip);
        for (int y = seen.Top; y < seen.Bottom && seen.Left < seen.Right; ++y)
            SetPixels(Row(y) + seen.Left, Row(y) + seen.Right);
    }

private:
    QRgb* Row(int y) const { return reinterpret_cast<QRgb*>(FBits + (y + FOrigin.Y) * FStride) + FOrigin.X; }
    void DrawRow(int y, int left, int right) const
    {
        left = std::max(left, FClip.Left);
        right = std::min(right, FClip.Right);
        if (left < right && y >= FClip.Top && y < FClip.Bottom)
            SetPixels(Row(y) + left, Row(y) + right);
    }
    void DrawColumn(int x, int top, int bottom) const
    {
        if (x < FClip.Left || x >= FClip.Right)
            return;
        for (int y = std::max(top, FClip.Top); y < std::min(bottom, FClip.Bottom); ++y)
            Row(y)[x] = (Row(y)[x] & FKept) ^ FColor;
    }

    void SetPixels(QRgb* pixel, const QRgb* end) const
    {
        for (; pixel != end; ++pixel)
            *pixel = (*pixel & FKept) ^ FColor;
    }

    uchar* FBits;
    qsizetype FStride;
    QRgb FKept, FColor;  ///< what stays of a pixel, and what is toggled in that
    TPoint FOrigin;
    TRect FClip;
};

}  // namespace

QImage* TQtDevice::OpenImage() const
{
    if (FPainter.device()->devType() != QInternal::Image)
        return nullptr;
    auto* image = static_cast<QImage*>(FPainter.device());
    const bool hasOpaqueWords = image->format() == QImage::Format_RGB32 || image->format() == QImage::Format_ARGB32 ||
                                image->format() == QImage::Format_ARGB32_Premultiplied;
    // Writing to a shared image would part it from its painter.
    return hasOpaqueWords && image->isDetached() ? image : nullptr;
}

TPoint TQtDevice::OriginInImage() const
{
    const QTransform transform = FPainter.deviceTransform();
    return {static_cast<int>(transform.dx()), static_cast<int>(transform.dy())};
}

void TQtDevice::Lines(std::span<const TPoint> ends, const TPenState& pen, const TDrawState& state)
{
    if (pen.Style == psClear || !Begin(state))
        return;
    QImage* const image = IsThin(pen) && !IsDashed(pen.Style) ? WritableImage() : nullptr;
    if (!image)
        return TDrawDevice::Lines(ends, pen, state);
    const TPixelRuns runs(*image, QtColor(pen.Color).rgb(), OriginInImage(), FState->Clip, state.Mode);
    for (std::size_t i = 1; i < ends.size(); i += 2) {
        const TPoint from = ends[i - 1], to = ends[i];
        // Next to the largest numbers a sum would leave them.
        if (from != to && (IsFar(from) || IsFar(to) || !runs.Draw(from, to)))
            Line(from, to, pen, state);
    }
}

bool TQtDevice::DrawStraight(TPoint from, TPoint to, const TPenState& pen, TDrawMode mode)
{
    const bool isStraight = (from.X == to.X || from.Y == to.Y) && !IsFar(from) && !IsFar(to);
    QImage* const image = isStraight && !IsDashed(pen.Style) ? WritableImage() : nullptr;
    return image && TPixelRuns(*image, QtColor(pen.Color).rgb(), OriginInImage(), FState->Clip, mode).Draw(from, to);
}

bool TQtDevice::FillPixels(const TRect& box, TColor border, const TBrushState& brush)
{
    QImage* const image = FState->Mode == dmCopy && brush.Style <= bsClear ? WritableImage() : nullptr;
    if (!image)
        return false;
    const TPoint origin = OriginInImage();
    const TPixelRuns pen(*image, QtColor(border).rgb(), origin, FState->Clip);
    if (brush.Style == bsSolid && box.Width() > 2 && box.Height() > 2)
        TPixelRuns(*image, QtColor(brush.Color).rgb(), origin, FState->Clip)
            .Fill({box.Left + 1, box.Top + 1, box.Right - 1, box.Bottom - 1});
    pen.Fill({box.Left, box.Top, box.Right, box.Top + 1});
    pen.Fill({box.Left, box.Bottom - 1, box.Right, box.Bottom});
    pen.Fill({box.Left, box.Top, box.Left + 1, box.Bottom});
    pen.Fill({box.Right - 1, box.Top, box.Right, box.Bottom});
    return true;
}

void TQtDevice::Stamp(const std::shared_ptr<const TRecording>& shape, std::span<const TPoint> points,
                      const TDrawState& state)
{
    if (!shape || points.empty() || !Begin({dmCopy, state.Clip}))
        return;
    QImage* image = points.size() < FewPoints ? nullptr : WritableImage();
    const auto sprite = image ? TQtSprite::Of(*shape) : std::nullopt;
    if (!sprite)
        return DrawStamp(*this, *shape, points, state);

    const TPoint origin = OriginInImage();
    const TRect imageBox = TRect{0, 0, image->width(), image->height()}.Shifted({-origin.X, -origin.Y});
    const TRect clip = FState->Clip;
    // Where the sprite would touch the clip.
    const TRect& box = sprite->Box();
    const TRect near{clip.Left - box.Right, clip.Top - box.Bottom, clip.Right - box.Left, clip.Bottom - box.Top};
    for (const TPoint& point : WithoutHiddenStamps(points, near)) {
        // At the image's own edge a painter may set other pixels of cut lines.
        if (IsInside(box.Shifted(point), imageBox))
            sprite->Stamp(*image, point + origin, clip.Shifted(origin));
        else
            DrawStamp(*this, *shape, {&point, 1}, state);
    }
}

}  // namespace plotkit
