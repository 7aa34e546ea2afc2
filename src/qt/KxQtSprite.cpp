#include "qt/KxQtSprite.h"

#include <QPainter>
#include <algorithm>

#include "host/PixelMath.h"
#include "qt/KxQtDevice.h"

namespace plotkit {

namespace {

constexpr int LargestSide = 512;
/// A whole picture's worth of marks costs more than a few points that are drawn twice.
constexpr std::size_t FewPoints = 256;

/// Boxes around what commands may draw; nothing for commands that are no part of a sprite.
struct TExtent
{
    std::optional<TRect> operator()(const TLineCommand& c) const
    {
        const std::array ends{c.From, c.To};
        return Around(ends, c.Pen, c.State);
    }
    std::optional<TRect> operator()(const TLinesCommand& c) const { return Around(c.Ends, c.Pen, c.State); }
    std::optional<TRect> operator()(const TPolylineCommand& c) const { return Around(c.Points, c.Pen, c.State); }
    std::optional<TRect> operator()(const TPolygonCommand& c) const
    {
        return IsPlain(c.Brush) ? Around(c.Points, c.Pen, c.State) : std::nullopt;
    }
    std::optional<TRect> operator()(const TEllipseCommand& c) const { return AroundBox(c); }
    std::optional<TRect> operator()(const TRectangleCommand& c) const { return AroundBox(c); }
    std::optional<TRect> operator()(const TFocusRectCommand&) const { return std::nullopt; }
    std::optional<TRect> operator()(const TTextCommand&) const { return std::nullopt; }
    std::optional<TRect> operator()(const TStampCommand&) const { return std::nullopt; }

private:
    static bool IsPlain(const TBrushState& brush) { return brush.Style == bsSolid || brush.Style == bsClear; }

    template <class TCommand>
    static std::optional<TRect> AroundBox(const TCommand& c)
    {
        const std::array corners{c.Box.TopLeft(), TPoint{c.Box.Right, c.Box.Bottom}};
        return IsPlain(c.Brush) ? Around(corners, c.Pen, c.State) : std::nullopt;
    }

    static std::optional<TRect> Around(std::span<const TPoint> points, const TPenState& pen, const TDrawState& state)
    {
        if (points.empty() || state.Mode != dmCopy)
            return std::nullopt;
        const auto [left, right] =
            std::minmax_element(points.begin(), points.end(), [](TPoint a, TPoint b) { return a.X < b.X; });
        const auto [top, bottom] =
            std::minmax_element(points.begin(), points.end(), [](TPoint a, TPoint b) { return a.Y < b.Y; });
        // Joins reach up to twice the width beyond their point.
        const int reach = 2 * std::clamp(pen.Width, 1, LargestSide) + 1;
        return TRect{AddPixels(left->X, -reach), AddPixels(top->Y, -reach), AddPixels(right->X, reach),
                     AddPixels(bottom->Y, reach)};
    }
};

bool IsSmall(const TRect& box)
{
    return box.Left >= -LargestSide && box.Top >= -LargestSide && box.Right <= LargestSide && box.Bottom <= LargestSide;
}

QImage Drawn(const TRecording& shape, const TRect& box)
{
    QImage image(box.Width(), box.Height(), QImage::Format_ARGB32_Premultiplied);
    image.fill(0);
    QPainter painter(&image);
    painter.translate(-box.Left, -box.Top);
    TQtDevice device(painter);
    const TPoint origin;
    DrawStamp(device, shape, {&origin, 1}, {});
    return image;
}

}  // namespace

std::optional<TQtSprite> TQtSprite::Of(const TRecording& shape)
{
    if (shape.Commands.empty())
        return std::nullopt;
    TQtSprite sprite;
    for (const TDrawCommand& command : shape.Commands) {
        const auto extent = std::visit(TExtent(), command);
        if (!extent || !IsSmall(*extent))
            return std::nullopt;
        const TRect& box = sprite.FBox;
        sprite.FBox = {std::min(box.Left, extent->Left), std::min(box.Top, extent->Top),
                       std::max(box.Right, extent->Right), std::max(box.Bottom, extent->Bottom)};
    }
    const QImage image = Drawn(shape, sprite.FBox);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width();) {
            const QRgb color = image.pixel(x, y);
            const int start = x;
            while (x < image.width() && image.pixel(x, y) == color)
                ++x;
            if (qAlpha(color) != 0)
                sprite.FRuns.push_back({y + sprite.FBox.Top, start + sprite.FBox.Left, x + sprite.FBox.Left, color});
        }
    }
    return sprite;
}

void TQtSprite::Stamp(QImage& image, TPoint at, const TRect& clip) const
{
    const bool isWhole = FBox.Shifted(at).Intersected(clip) == FBox.Shifted(at);
    uchar* const bits = image.bits();
    const qsizetype stride = image.bytesPerLine();
    for (const TRun& run : FRuns) {
        const int y = at.Y + run.Y;
        int left = at.X + run.Left, right = at.X + run.Right;
        if (!isWhole) {
            left = std::max(left, clip.Left);
            right = std::min(right, clip.Right);
            if (left >= right || y < clip.Top || y >= clip.Bottom)
                continue;
        }
        std::fill_n(reinterpret_cast<QRgb*>(bits + y * stride) + left, right - left, run.Color);
    }
}

std::vector<TPoint> WithoutHiddenStamps(std::span<const TPoint> points, const TRect& bounds)
{
    std::vector<TPoint> kept;
    kept.reserve(points.size());
    std::copy_if(points.begin(), points.end(), std::back_inserter(kept), [&](TPoint p) { return bounds.Contains(p); });
    if (kept.size() < FewPoints)
        return kept;
    const auto width = static_cast<std::size_t>(bounds.Width());
    std::vector<bool> taken(width * static_cast<std::size_t>(bounds.Height()));
    const auto isHidden = [&](TPoint p) {
        const std::size_t place =
            static_cast<std::size_t>(p.Y - bounds.Top) * width + static_cast<std::size_t>(p.X - bounds.Left);
        const bool before = taken[place];
        taken[place] = true;
        return before;
    };
    // From behind, so that the last of equal points is the one that stays.
    kept.erase(kept.begin(), std::remove_if(kept.rbegin(), kept.rend(), isHidden).base());
    return kept;
}

}  // namespace plotkit
