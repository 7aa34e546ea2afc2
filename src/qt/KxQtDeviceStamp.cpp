#include <QImage>

#include "qt/KxQtDevice.h"
#include "qt/KxQtSprite.h"

namespace plotkit {

namespace {

/// Below, making a sprite costs more than it saves.
constexpr std::size_t FewPoints = 4;

bool IsInside(const TRect& inner, const TRect& outer)
{
    return inner.Intersected(outer) == inner;
}

}  // namespace

QImage* TQtDevice::WritableImage() const
{
    if (FSmooth || FPainter.device()->devType() != QInternal::Image)
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
