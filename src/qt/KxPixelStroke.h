// The job of KxPixelStroke is to draw the way of a round pen through many points into an image.
#pragma once

#include <QImage>
#include <cstdint>
#include <span>
#include <vector>

#include "host/Types.h"

namespace plotkit {

/// What a disc covers that is moved through points, gathered column by column as runs of rows: where the pen passes
/// again, nothing is added. So the pixels depend neither on the order of the segments nor on how often one is drawn,
/// and points above each other can be drawn as what they cover.
class TPixelStroke
{
public:
    /// How many columns and rows of the points' coordinates make a pixel. With one a pixel belongs to the stroke as a
    /// whole when its middle does. With more it is covered in part: between that many columns nothing is interpolated,
    /// along them it is to a 256th.
    explicit TPixelStroke(int fineness) : FFineness(fineness) {}

    static constexpr double WidestPen = 256;
    /// Up to WidestPen wide, with its middle `shift` right of and below the corner that the points mean. `clip` begins
    /// and ends with whole pixels.
    void Begin(const TRect& clip, double width, double shift);
    /// Through points that count from `origin`.
    void Polyline(std::span<const TPoint> points, TPoint origin);
    /// Lays an opaque colour over an image with 32-bit pixels, which are opaque or premultiplied, that has the clip
    /// inside; forgets the stroke.
    void Draw(QImage& image, QRgb color);

private:
    /// Rows [From, To) below the top of the clip in `FParts` of a row; then an older one of the same column.
    struct TRun
    {
        std::int32_t From, To, Older;
    };
    class TShares;

    void Column(std::int64_t x, double low, double high);
    void Segment(double x1, double y1, double x2, double y2);
    void Add(std::int64_t column, double low, double high);
    void Collect(std::int32_t newest);
    void Unite();
    void Fill(QImage& image, QRgb color);
    void Blend(QImage& image, QRgb color);

    int FFineness;
    int FParts = 1;
    TRect FClip;
    double FRadius = 0, FShift = 0;
    int FFirst = 0;                     ///< column of the disc, counted from that of its point
    std::vector<double> FHalfHeights;   ///< of the disc by column
    std::vector<std::int32_t> FNewest;  ///< run of each column of the clip, -1 for none
    std::vector<TRun> FRuns;
    std::vector<TRun> FColumn;  ///< runs of one column that do not touch, from above
    std::size_t FMany = 0;      ///< runs that are worth uniting
};

}  // namespace plotkit
