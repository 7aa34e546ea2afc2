#include "qt/KxQtPen.h"

#include <QImage>
#include <algorithm>
#include <cmath>

#include "host/Host.h"

namespace plotkit {

namespace {

constexpr int HatchPeriod = 8;

bool IsOnHatch(TBrushStyle style, int x, int y, int period, int line)
{
    const bool horizontal = y < line, vertical = x < line;
    const bool falling = (x - y + period) % period < line, rising = (x + y) % period < line;
    switch (style) {
        case bsHorizontal:
            return horizontal;
        case bsVertical:
            return vertical;
        case bsForwardDiagonal:
            return falling;
        case bsBackwardDiagonal:
            return rising;
        case bsCross:
            return horizontal || vertical;
        case bsDiagonalCross:
            return falling || rising;
        default:
            return true;
    }
}

QImage HatchTile(TBrushStyle style, QRgb color, double scale)
{
    const int line = std::max(1, static_cast<int>(std::lround(scale)));
    const int period = std::max(2 * line, static_cast<int>(std::lround(HatchPeriod * scale)));
    QImage tile(period, period, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < period; ++y)
        for (int x = 0; x < period; ++x)
            tile.setPixel(x, y, IsOnHatch(style, x, y, period, line) ? color : 0);
    return tile;
}

}  // namespace

QColor QtColor(TColor color)
{
    const TColor resolved = Host().ResolveColor(color);
    return {RedOf(resolved), GreenOf(resolved), BlueOf(resolved)};
}

QList<qreal> DashPattern(TPenStyle style)
{
    switch (style) {
        case psDash:
            return {4, 2};
        case psDot:
            return {1, 2};
        case psDashDot:
            return {4, 2, 1, 2};
        case psDashDotDot:
            return {4, 2, 1, 2, 1, 2};
        default:
            return {};
    }
}

bool IsDashed(TPenStyle style)
{
    return style >= psDash && style <= psDashDotDot;
}

const QBrush& TQtBrushes::Brush(const TBrushState& state)
{
    const QColor color = QtColor(state.Color);
    const auto [place, isNew] = FBrushes.try_emplace({static_cast<int>(color.rgb()), state.Style});
    if (isNew && state.Style == bsSolid)
        place->second = QBrush(color);
    else if (isNew && state.Style != bsClear)
        place->second = QBrush(HatchTile(state.Style, color.rgb(), FScale));
    return place->second;
}

}  // namespace plotkit
