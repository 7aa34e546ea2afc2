// The job of KxQtSprite is to stamp one small shape at many points of an image, pixel by pixel.
#pragma once

#include <QImage>
#include <optional>
#include <span>
#include <vector>

#include "host/Recording.h"

namespace plotkit {

/// A shape as runs of opaque pixels around its origin.
class TQtSprite
{
public:
    /// Nothing for shapes whose pixels depend on where they stand or on what is below them (hatches, exclusive-or,
    /// text, focus rectangles, stamps), and for large ones.
    static std::optional<TQtSprite> Of(const TRecording& shape);

    /// The pixels that the shape may set when its origin is (0, 0).
    const TRect& Box() const { return FBox; }
    /// `image` has 32 bits per pixel and holds `Box()` at `at` wholly; nothing outside `clip` is written.
    void Stamp(QImage& image, TPoint at, const TRect& clip) const;

private:
    struct TRun
    {
        int Y, Left, Right;
        QRgb Color;
    };

    TRect FBox;
    std::vector<TRun> FRuns;
};

/// Of equal points only the last: all others are hidden by it. Points outside `bounds` are left out.
std::vector<TPoint> WithoutHiddenStamps(std::span<const TPoint> points, const TRect& bounds);

}  // namespace plotkit
