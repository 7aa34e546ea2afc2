// The job of PixelSheet is an image to draw test shapes on, and questions about its pixels.
#pragma once

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <set>
#include <utility>

#include "qt/KxQtDevice.h"

namespace plotkit {

constexpr QRgb White = 0xFFFFFFFF, Black = 0xFF000000, Red = 0xFFFF0000;

constexpr TPenState Pen(TPenStyle style = psSolid, int width = 1, TColor color = clBlack)
{
    return {color, style, width};
}
constexpr TBrushState Brush(TBrushStyle style = bsSolid, TColor color = clRed)
{
    return {color, style};
}
constexpr TBrushState NoBrush{clWhite, bsClear};
constexpr TPenState NoPen{clBlack, psClear, 1};

/// With a painter and a device on it.
class TPixelSheet
{
public:
    explicit TPixelSheet(int width = 64, int height = 64, QRgb ground = White)
        : FImage(width, height, QImage::Format_RGB32), FGround(ground)
    {
        FImage.fill(ground);
    }

    TQtDevice& Device() { return FDevice; }
    QPainter& Painter() { return FPainter; }
    const QImage& Image() const { return FImage; }

    /// Positions of all pixels that differ from the ground.
    std::set<std::pair<int, int>> Marked() const
    {
        std::set<std::pair<int, int>> marked;
        for (int y = 0; y < FImage.height(); ++y)
            for (int x = 0; x < FImage.width(); ++x)
                if (FImage.pixel(x, y) != FGround)
                    marked.emplace(x, y);
        return marked;
    }
    int CountOf(QRgb color) const
    {
        int count = 0;
        for (const auto& [x, y] : Marked())
            count += FImage.pixel(x, y) == color;
        return count;
    }
    /// Of the marked pixels; empty when there are none.
    TRect Extent() const
    {
        TRect extent{FImage.width(), FImage.height(), 0, 0};
        for (const auto& [x, y] : Marked())
            extent = {std::min(extent.Left, x), std::min(extent.Top, y), std::max(extent.Right, x + 1),
                      std::max(extent.Bottom, y + 1)};
        return extent.IsEmpty() ? TRect() : extent;
    }

private:
    QImage FImage;
    QRgb FGround;
    QPainter FPainter{&FImage};
    TQtDevice FDevice{FPainter};
};

}  // namespace plotkit
