// The job of KxPixelLines is to set the pixels of one-pixel lines in an image.
#pragma once

#include <QImage>
#include <cstdint>
#include <span>

#include "host/Types.h"

namespace plotkit {

/// Of images with opaque 32-bit pixels. Each segment has its pixels for itself, nearest to the ideal line, both ends
/// included and the same from either end, whatever was drawn before and wherever it is cut. So whole columns of a
/// polyline can be drawn as what they cover.
class TPixelLines
{
public:
    /// `clip` lies within the image.
    TPixelLines(QImage& image, const TRect& clip, QRgb color);

    /// Through points that count from `origin`.
    void Polyline(std::span<const TPoint> points, TPoint origin);

private:
    /// A segment seen along its longer direction, from the lower coordinate up.
    struct TCourse;

    void Column(std::int64_t x, std::int64_t low, std::int64_t high);
    void Segment(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2);
    void Follow(const TCourse& course);

    QRgb* FPixels;
    std::ptrdiff_t FRowLength;
    TRect FClip;
    QRgb FColor;
};

}  // namespace plotkit
