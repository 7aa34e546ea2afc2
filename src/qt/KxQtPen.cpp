#include "qt/KxQtPen.h"

#include <QImage>

#include "host/Host.h"

namespace plotkit {

namespace {

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
    const auto [line, period] = THatch::At(scale);
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

QList<qreal> QtDashPattern(TPenStyle style)
{
    const auto lengths = DashPattern(style);
    return {lengths.begin(), lengths.end()};
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
