#include "graph/KxDraw.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>

#include "foundation/KxArithm.h"
#include "host/CheckedMath.h"
#include "host/Host.h"
#include "host/PixelMath.h"
#include "host/Recording.h"

namespace plotkit {

namespace {

/// An offset from a symbol's centre in hundredths of its size.
struct TOffset
{
    std::int16_t X, Y;
};

constexpr std::array<TOffset, 4> CrossRays{{{100, 0}, {-100, 0}, {0, 100}, {0, -100}}};
constexpr std::array<TOffset, 4> XRays{{{100, 100}, {100, -100}, {-100, 100}, {-100, -100}}};
/// No regular star: its tips stand at 108, 100 and 82 hundredths.
constexpr std::array<TOffset, 10> Star{
    {{0, -108}, {27, -30}, {100, -30}, {40, 12}, {64, 82}, {0, 40}, {-64, 82}, {-40, 12}, {-100, -30}, {-27, -30}}};
constexpr std::array<TOffset, 4> Diamond{{{0, -100}, {100, 0}, {0, 100}, {-100, 0}}};
constexpr std::array<TOffset, 3> Delta{{{0, -100}, {100, 100}, {-100, 100}}};
constexpr std::array<TOffset, 3> Nabla{{{-100, -100}, {100, -100}, {0, 100}}};

void KeepDashesThin(TCanvas& canvas)
{
    if (canvas.Pen.Width == 1)
        canvas.Pen.Width = 0;
}

bool IsFilled(TKxPointSymbol symbol)
{
    return symbol >= Sy5Star && symbol <= LastPtSymbol && symbol % 2 == 1;
}

class TSymbolPen
{
public:
    TSymbolPen(TPoint centre, int size, TCanvas& canvas) : FCentre(centre), FSize(size), FCanvas(canvas) {}

    void Dot() const
    {
        FCanvas.MoveTo(FCentre.X, FCentre.Y);
        FCanvas.LineTo(FCentre.X, AddPixels(FCentre.Y, 1));
    }
    void Rays(std::span<const TOffset> rays) const
    {
        for (const TOffset& ray : rays) {
            FCanvas.MoveTo(FCentre.X, FCentre.Y);
            const TPoint end = At(ray);
            FCanvas.LineTo(end.X, end.Y);
        }
    }
    void Polygon(std::span<const TOffset> corners) const
    {
        std::array<TPoint, 10> points;
        const auto end = std::transform(corners.begin(), corners.end(), points.begin(),
                                        [this](const TOffset& corner) { return At(corner); });
        FCanvas.Polygon({points.begin(), end});
    }
    TRect Box() const
    {
        const TPoint first = At({-100, -100}), last = At({100, 100});
        return {first.X, first.Y, AddPixels(last.X, 1), AddPixels(last.Y, 1)};
    }

private:
    TPoint At(const TOffset& offset) const
    {
        const auto along = [this](std::int64_t centre, std::int16_t hundredths) {
            return SaturatePixel(centre + std::int64_t{FSize} * hundredths / 100);
        };
        return {along(FCentre.X, offset.X), along(FCentre.Y, offset.Y)};
    }

    TPoint FCentre;
    int FSize;
    TCanvas& FCanvas;
};

void DrawSymbolShape(const TSymbolPen& pen, TKxPointSymbol symbol, TCanvas& canvas)
{
    const TRect box = pen.Box();
    switch (symbol) {
        case SyPoint:
            return pen.Dot();
        case SyCross:
            return pen.Rays(CrossRays);
        case SyX:
            return pen.Rays(XRays);
        case SyStar:
            pen.Rays(CrossRays);
            return pen.Rays(XRays);
        case Sy5Star:
        case Sy5StarFilled:
            return pen.Polygon(Star);
        case SyCircle:
        case SyCircleFilled:
            return canvas.Ellipse(box.Left, box.Top, box.Right, box.Bottom);
        case SySquare:
        case SySquareFilled:
            return canvas.Rectangle(box.Left, box.Top, box.Right, box.Bottom);
        case SyDiamond:
        case SyDiamondFilled:
            return pen.Polygon(Diamond);
        case SyDelta:
        case SyDeltaFilled:
            return pen.Polygon(Delta);
        case SyNabla:
        case SyNablaFilled:
            return pen.Polygon(Nabla);
    }
}

int Sign(double value)
{
    return value > 0 ? 1 : value < 0 ? -1 : 0;
}

struct TArrowHead
{
    TPoint Left, Right;
};

/// The corners behind the tip of a shaft that is not empty.
TArrowHead ArrowHead(double x1, double y1, double x2, double y2, double tipLength, double tipWidth)
{
    const int backX = Sign(x1 - x2), backY = Sign(y1 - y2);
    const double dx2 = (x2 - x1) * (x2 - x1), dy2 = (y2 - y1) * (y2 - y1), length2 = tipLength * tipLength;
    const double k = length2 / (dx2 + dy2);
    const double ratio = Divide(tipWidth, tipLength);
    // How far the head reaches along each axis; rounding may leave less than nothing below a root.
    double reachX = SquareRoot(std::max(0.0, length2 - k * dy2));
    double reachY = SquareRoot(std::max(0.0, length2 - k * dx2));
    if ((k * dy2 > length2 || k * dx2 > length2) && (dx2 <= 0 || dy2 <= 0)) {
        reachX = 0;
        reachY = tipLength;
    }
    const int baseX = RoundToInt(backX * reachX + x2), baseY = RoundToInt(backY * reachY + y2);
    return {{RoundToInt(baseX - reachY * ratio * backY), RoundToInt(baseY + reachX * ratio * backX)},
            {RoundToInt(baseX + reachY * ratio * backY), RoundToInt(baseY - reachX * ratio * backX)}};
}

}  // namespace

void DrawLine(int x1, int y1, int x2, int y2, TCanvas& canvas)
{
    KeepDashesThin(canvas);
    canvas.MoveTo(x1, y1);
    canvas.LineTo(x2, y2);
}

void DrawLines(std::span<const TPoint> ends, TCanvas& canvas)
{
    KeepDashesThin(canvas);
    canvas.Lines(ends);
}

void DrawFrame(int x1, int y1, int x2, int y2, TCanvas& canvas)
{
    KeepDashesThin(canvas);
    const std::array<TPoint, 5> outline{{{x1, y1}, {x1, y2}, {x2, y2}, {x2, y1}, {x1, y1}}};
    canvas.Polyline(outline);
}

void DrawPointSymbol(int x, int y, int size, TKxPointSymbol symbol, TCanvas& canvas)
{
    if (TPoint{x, y} == MissingPoint)
        return;
    canvas.Brush.SetStyle(bsSolid);
    canvas.Pen.Style = psSolid;
    if (IsFilled(symbol))
        canvas.Brush.SetColor(canvas.Pen.Color);
    DrawSymbolShape(TSymbolPen({x, y}, size, canvas), symbol, canvas);
}

void DrawPointSymbols(std::span<const TPoint> at, int size, TKxPointSymbol symbol, TCanvas& canvas)
{
    std::vector<TPoint> present;
    present.reserve(at.size());
    std::copy_if(at.begin(), at.end(), std::back_inserter(present), [](TPoint p) { return p != MissingPoint; });
    if (present.empty())
        return;
    const auto shape = std::make_shared<TRecording>();
    TCanvas shapeCanvas(*shape, canvas.Measurer(), canvas.Scale());
    shapeCanvas.Pen = canvas.Pen;
    shapeCanvas.Brush = canvas.Brush;
    DrawPointSymbol(0, 0, size, symbol, shapeCanvas);
    canvas.Pen = shapeCanvas.Pen;
    canvas.Brush = shapeCanvas.Brush;
    if (!shape->Commands.empty())
        canvas.Stamp(shape, present);
}

void DrawArrow(int x1, int y1, int x2, int y2, int tipLength, int tipWidth, TCanvas& canvas)
{
    canvas.Brush.SetStyle(bsClear);
    if (x1 == x2 && y1 == y2) {
        canvas.MoveTo(x1, y1);
        canvas.LineTo(x1, AddPixels(y1, 1));
        return;
    }
    DrawLine(x1, y1, x2, y2, canvas);
    const TArrowHead head = ArrowHead(x1, y1, x2, y2, tipLength, tipWidth);
    canvas.Brush.SetColor(canvas.Pen.Color);
    const std::array<TPoint, 3> corners{{{x2, y2}, head.Left, head.Right}};
    canvas.Polygon(corners);
}

void DrawArrows(std::span<const TPoint> starts, std::span<const TPoint> ends, int tipLength, int tipWidth,
                TCanvas& canvas)
{
    const TRect clip = canvas.ClipRect();
    const std::int64_t reach = std::int64_t{canvas.DevicePen().Width} + std::abs(std::int64_t{tipLength}) +
                               std::abs(std::int64_t{tipWidth}) + 1;
    const auto isSeen = [&](TPoint a, TPoint b) {
        return a != MissingPoint && b != MissingPoint && std::max(a.X, b.X) + reach >= clip.Left &&
               std::min(a.X, b.X) - reach <= clip.Right && std::max(a.Y, b.Y) + reach >= clip.Top &&
               std::min(a.Y, b.Y) - reach <= clip.Bottom;
    };
    std::vector<TPoint> shafts;
    for (std::size_t i = 0; i < std::min(starts.size(), ends.size()); ++i)
        if (isSeen(starts[i], ends[i])) {
            const TPoint dot{starts[i].X, AddPixels(starts[i].Y, 1)};
            shafts.insert(shafts.end(), {starts[i], starts[i] == ends[i] ? dot : ends[i]});
        }
    // All arrows have one colour, so that it does not matter which lies above which.
    DrawLines(shafts, canvas);
    if (tipLength == 0)
        return;
    canvas.Brush.SetStyle(bsSolid);
    canvas.Brush.SetColor(canvas.Pen.Color);
    for (std::size_t i = 0; i < std::min(starts.size(), ends.size()); ++i) {
        const TPoint from = starts[i], to = ends[i];
        if (from == to || !isSeen(from, to))
            continue;
        const TArrowHead head = ArrowHead(from.X, from.Y, to.X, to.Y, tipLength, tipWidth);
        const std::array<TPoint, 3> corners{{to, head.Left, head.Right}};
        canvas.Polygon(corners);
    }
}

TColor XoredColor(TColor color, TColor background)
{
    const auto rgb = [](TColor c) { return ColorToInt(Host().ResolveColor(c)) & 0xFFFFFF; };
    return IntToColor(rgb(color) ^ rgb(background));
}

TColor ShadedColor(TColor color, int tenths)
{
    const TColor shown = Host().ResolveColor(color);
    const auto part = [tenths](std::uint8_t byte) { return static_cast<std::uint8_t>(byte / 10 * tenths); };
    return RgbColor(part(RedOf(shown)), part(GreenOf(shown)), part(BlueOf(shown)));
}

void Draw3DBar(int x1, int y1, int x2, int y2, int depthX, int depthY, TColor frameColor, TColor frontColor,
               TColor topColor, TColor sideColor, TCanvas& canvas)
{
    const auto [left, top, right, bottom] = OrderedRect(x1, y1, x2, y2);
    canvas.Brush.SetStyle(bsSolid);
    canvas.Brush.SetColor(frontColor);
    canvas.Pen.Style = psSolid;
    canvas.Pen.Color = frameColor;
    canvas.Rectangle(left, top, right, bottom);

    const std::int64_t reachX = std::abs(std::int64_t{depthX}), reachY = std::abs(std::int64_t{depthY});
    const auto at = [](std::int64_t x, std::int64_t y) { return TPoint{SaturatePixel(x), SaturatePixel(y)}; };
    const std::int64_t edge = std::int64_t{right} - 1, foot = std::int64_t{bottom} - 1;
    const std::int64_t back = std::int64_t{top} - reachY - 1;
    canvas.Brush.SetColor(topColor);
    const std::array topFace{TPoint{left, top}, at(edge, top), at(edge + reachX, back), at(left + reachX, back)};
    canvas.Polygon(topFace);
    canvas.Brush.SetColor(sideColor);
    const std::array sideFace{at(edge, top), at(edge + reachX, back), at(edge + reachX, foot - reachY), at(edge, foot)};
    canvas.Polygon(sideFace);
}

}  // namespace plotkit
