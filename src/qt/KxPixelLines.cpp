#include "qt/KxPixelLines.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace plotkit {

namespace {

// Products of two differences of pixels.
__extension__ typedef __int128 TWide;

TWide FloorDivided(TWide a, TWide b)
{
    const TWide quotient = a / b;
    return a % b < 0 ? quotient - 1 : quotient;
}

}  // namespace

struct TPixelLines::TCourse
{
    std::int64_t From, To;     ///< along the longer direction
    std::int64_t Start, Rise;  ///< across, where it begins and how far it goes
    std::int64_t First, Last;  ///< of the clip, along and across
    std::int64_t Low, High;
    std::ptrdiff_t Step, Side;  ///< pixels of the image from one to the next
};

TPixelLines::TPixelLines(QImage& image, const TRect& clip, QRgb color)
    : FPixels(reinterpret_cast<QRgb*>(image.bits())),
      FRowLength(image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb))),
      FClip(clip),
      FColor(color)
{}

void TPixelLines::Polyline(std::span<const TPoint> points, TPoint origin)
{
    for (std::size_t i = 0; i < points.size();) {
        const TPoint first = points[i];
        std::int32_t low = first.Y, high = first.Y;
        for (++i; i < points.size() && points[i].X == first.X; ++i) {
            low = std::min(low, points[i].Y);
            high = std::max(high, points[i].Y);
        }
        const std::int64_t x = std::int64_t{first.X} + origin.X;
        Column(x, std::int64_t{low} + origin.Y, std::int64_t{high} + origin.Y);
        if (i < points.size())
            Segment(x, std::int64_t{points[i - 1].Y} + origin.Y, std::int64_t{points[i].X} + origin.X,
                    std::int64_t{points[i].Y} + origin.Y);
    }
}

void TPixelLines::Column(std::int64_t x, std::int64_t low, std::int64_t high)
{
    if (x < FClip.Left || x >= FClip.Right)
        return;
    low = std::max<std::int64_t>(low, FClip.Top);
    high = std::min<std::int64_t>(high, FClip.Bottom - 1);
    QRgb* pixel = FPixels + low * FRowLength + x;
    for (std::int64_t y = low; y <= high; ++y, pixel += FRowLength)
        *pixel = FColor;
}

void TPixelLines::Segment(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2)
{
    const bool isFlat = std::abs(x2 - x1) >= std::abs(y2 - y1);
    if (isFlat ? x1 > x2 : y1 > y2) {
        std::swap(x1, x2);
        std::swap(y1, y2);
    }
    if (isFlat)
        Follow({x1, x2, y1, y2 - y1, FClip.Left, FClip.Right - 1, FClip.Top, FClip.Bottom - 1, 1, FRowLength});
    else
        Follow({y1, y2, x1, x2 - x1, FClip.Top, FClip.Bottom - 1, FClip.Left, FClip.Right - 1, FRowLength, 1});
}

void TPixelLines::Follow(const TCourse& course)
{
    const std::int64_t first = std::max(course.From, course.First), last = std::min(course.To, course.Last);
    const auto [lowest, highest] = std::minmax({course.Start, course.Start + course.Rise});
    if (first > last || highest < course.Low || lowest > course.High)
        return;
    // Where it stands is Start + floor(part / whole), half a pixel up being the next one.
    const std::int64_t whole = 2 * (course.To - course.From), rise = 2 * course.Rise;
    std::int64_t across = course.Start, part = whole / 2;
    if (first > course.From && whole > 0) {
        const TWide far = TWide{first - course.From} * rise + part;
        const TWide steps = FloorDivided(far, whole);
        across += static_cast<std::int64_t>(steps);
        part = static_cast<std::int64_t>(far - steps * whole);
    }
    QRgb* pixel = FPixels + first * course.Step + across * course.Side;
    const bool isInside = lowest >= course.Low && highest <= course.High;
    for (std::int64_t along = first; along <= last; ++along, pixel += course.Step) {
        if (isInside || (across >= course.Low && across <= course.High))
            *pixel = FColor;
        part += rise;
        if (part >= whole) {
            part -= whole;
            ++across;
            pixel += course.Side;
        } else if (part < 0) {
            part += whole;
            --across;
            pixel -= course.Side;
        }
    }
}

}  // namespace plotkit
